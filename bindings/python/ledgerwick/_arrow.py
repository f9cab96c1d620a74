"""Columns of the library as they lie in memory, in the layout of the Arrow C data interface."""

from __future__ import annotations

import ctypes
import weakref
from datetime import date
from enum import IntEnum
from itertools import chain
from typing import Any, Callable, Dict, Hashable, List, Optional, Sequence, Type

from . import _library
from ._library import ArrowArray, ArrowArrayStream, ArrowSchema
from .values import money_in

_EPOCH = date(1970, 1, 1).toordinal()
_BITS = [tuple(byte >> bit & 1 for bit in range(8)) for byte in range(256)]


class Batch:
    """What the library handed out, released when nobody looks at it any more."""

    def __init__(self, table: int) -> None:
        self.array = ArrowArray()
        schema = ArrowSchema()
        arguments = (table, ctypes.byref(schema), ctypes.byref(self.array))
        _library.call("table_arrow", *arguments)
        self.rows: int = self.array.length
        self.names: List[str] = []
        self.formats: List[str] = []
        for place in range(schema.n_children):
            child = schema.children[place].contents
            self.names.append(child.name.decode())
            self.formats.append(child.format.decode())
        schema.release(ctypes.addressof(schema))
        weakref.finalize(self, _release, self.array)

    def stream(self, rows: range) -> ArrowArrayStream:
        """These rows as a stream for another library."""
        stream = ArrowArrayStream()
        _library.call(
            "arrow_stream",
            ctypes.byref(self.array),
            rows.start if rows else 0,
            rows.step if len(rows) > 1 else 1,
            len(rows),
            ctypes.byref(stream),
        )
        return stream


def _release(parts: Any) -> None:
    if parts.release:
        parts.release(ctypes.addressof(parts))


class Column:
    """One column; its values become Python's when they are asked for."""

    def __init__(self, batch: Batch, place: int, enum: Optional[Type[IntEnum]]) -> None:
        self._batch = batch  # owns the memory
        self._array = batch.array.children[place].contents
        self._read = _READERS[batch.formats[place]]
        self._enum: Dict[int, IntEnum] = {member.value: member for member in enum or ()}
        self._all: Optional[List[Any]] = None
        self.holds_dates = batch.formats[place] == "tdD"

    def values(self) -> List[Any]:
        """All values, first to last. The list is kept and not to be changed."""
        if self._all is None:
            self._all = self._some(0, self._batch.rows)
        return self._all

    def at(self, row: int) -> Any:
        """One value, without a look at the others."""
        return self._some(row, row + 1)[0] if self._all is None else self._all[row]

    def _some(self, first: int, end: int) -> List[Any]:
        values = self._read(self._array, first, end)
        if self._enum:
            values = [self._enum.get(value, value) for value in values]
        if self._array.null_count != 0 and self._array.n_buffers > 0:
            valid = _bits(self._array.buffers[0], first, end)
            values = [value if valid[place] else None for place, value in enumerate(values)]
        return values


class MixedColumn(Column):
    """A column with values of several kinds, as a damaged database has them."""

    def __init__(self, values: List[Any]) -> None:
        self._all = values
        self.holds_dates = False


def _memory(address: Optional[int], first: int, end: int) -> memoryview:
    size = end - first
    if size == 0 or not address:
        return memoryview(b"")
    return memoryview((ctypes.c_ubyte * size).from_address(address + first)).cast("B")


def _bits(address: int, first: int, end: int) -> List[int]:
    data = _memory(address, first // 8, (end + 7) // 8)
    bits = list(chain.from_iterable(map(_BITS.__getitem__, data)))
    return bits[first % 8 : first % 8 + end - first]


def _each(numbers: List[int], convert: Callable[[int], Any]) -> List[Any]:
    """A value that comes often is made once."""
    known: Dict[Hashable, Any] = {number: convert(number) for number in set(numbers)}
    return [known[number] for number in numbers]


def _fixed(array: Any, first: int, end: int, code: str, width: int) -> Any:
    return _memory(array.buffers[1], first * width, end * width).cast(code)


def _nothing(array: Any, first: int, end: int) -> List[Any]:
    return [None] * (end - first)


def _booleans(array: Any, first: int, end: int) -> List[Any]:
    return list(map(bool, _bits(array.buffers[1], first, end)))


def _integers(array: Any, first: int, end: int) -> List[Any]:
    return list(_fixed(array, first, end, "q", 8).tolist())


def _doubles(array: Any, first: int, end: int) -> List[Any]:
    return list(_fixed(array, first, end, "d", 8).tolist())


def _money(array: Any, first: int, end: int) -> List[Any]:
    # Of 16 bytes the upper 8 only carry the sign on.
    return _each(_fixed(array, first, end, "q", 16)[::2].tolist(), money_in)


def _dates(array: Any, first: int, end: int) -> List[Any]:
    days = _fixed(array, first, end, "i", 4).tolist()
    return _each(days, lambda day: date.fromordinal(day + _EPOCH))


def _texts(array: Any, first: int, end: int) -> List[Any]:
    offsets: Sequence[int] = _memory(array.buffers[1], first * 8, (end + 1) * 8).cast("q").tolist()
    begin = offsets[0]
    data = _memory(array.buffers[2], begin, offsets[-1]).tobytes()
    ends = zip(offsets, offsets[1:])
    if data.isascii():
        whole = data.decode("ascii")
        return [whole[start - begin : stop - begin] for start, stop in ends]
    return [data[start - begin : stop - begin].decode() for start, stop in ends]


_READERS: Dict[str, Callable[[Any, int, int], List[Any]]] = {
    "n": _nothing,
    "b": _booleans,
    "l": _integers,
    "g": _doubles,
    "d:19,4": _money,
    "tdD": _dates,
    "U": _texts,
}

# ---- a stream in a capsule, as other libraries look for it --------------------------------------

_NAME = b"arrow_array_stream"
_streams: Dict[int, ArrowArrayStream] = {}

_new_capsule = ctypes.pythonapi.PyCapsule_New
_new_capsule.restype = ctypes.py_object
_destructor = ctypes.PYFUNCTYPE(None, ctypes.c_void_p)
_new_capsule.argtypes = [ctypes.c_void_p, ctypes.c_char_p, _destructor]
# On a capsule that goes there is no reference to count.
_pointer_of = ctypes.PYFUNCTYPE(ctypes.c_void_p, ctypes.c_void_p, ctypes.c_char_p)(
    ("PyCapsule_GetPointer", ctypes.pythonapi)
)


def _drop(capsule: int) -> None:
    stream = _streams.pop(_pointer_of(capsule, _NAME))
    _release(stream)  # unless somebody took it out


_drop_capsule = _destructor(_drop)


def capsule_of(stream: ArrowArrayStream) -> object:
    """The stream for `__arrow_c_stream__`."""
    address = ctypes.addressof(stream)
    _streams[address] = stream
    return _new_capsule(address, _NAME, _drop_capsule)
