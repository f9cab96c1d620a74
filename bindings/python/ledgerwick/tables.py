"""Rows with names, as the library hands them out."""

import ctypes
from collections.abc import Iterable, Mapping, Sequence
from datetime import date
from decimal import Context, Decimal, Overflow
from typing import Any, Dict, Iterator, List, Optional, Tuple, Union, overload

from ._library import Cell, call

Value = Union[None, bool, int, float, Decimal, date, str]

# Kinds of a cell; the two before them hold nothing.
_BOOLEAN, _INTEGER, _DOUBLE, _MONEY, _DATE, TEXT = range(2, 8)

# Whatever context the program works in, an amount stays what it is.
_EXACT = Context(prec=40)


def date_out(day: Optional[date]) -> int:
    """A date as the library takes it."""
    if day is None:
        return 0
    if type(day) is not date:
        raise TypeError(f"a date is needed, not {type(day).__name__}")
    return day.year * 10000 + day.month * 100 + day.day


def date_in(number: int) -> Optional[date]:
    return date(number // 10000, number // 100 % 100, number % 100) if number else None


def money_out(amount: Union[Decimal, int]) -> int:
    """An amount in ten-thousandths; exact, or a ValueError."""
    if not isinstance(amount, (Decimal, int)):
        raise TypeError(f"an amount is a Decimal or an int, not {type(amount).__name__}")
    try:
        ticks = _EXACT.scaleb(Decimal(amount), 4)
    except Overflow:
        raise OverflowError(f"{amount} is too large for an amount") from None
    if not ticks.is_finite() or ticks != ticks.to_integral_value():
        raise ValueError(f"{amount} is no amount of at most four decimals")
    return int(ticks)


def money_in(ticks: int) -> Decimal:
    """An amount with two decimals, or with four when it needs them."""
    if ticks % 100 == 0:
        return _EXACT.scaleb(Decimal(ticks // 100), -2)
    return _EXACT.scaleb(Decimal(ticks), -4)


class Row(Mapping[str, Any]):
    """One row: `row.naid`, `row["naid"]` and `row[0]` are the same cell.

    It is a mapping from the names of the columns to their values: `dict(row)`, `row.values()`.
    """

    __slots__ = ("_places", "_values")

    def __init__(self, places: Dict[str, int], values: Tuple[Value, ...]) -> None:
        self._places = places
        self._values = values

    def __getitem__(self, key: Union[str, int]) -> Any:
        return self._values[self._places[key] if isinstance(key, str) else key]

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_") or name not in self._places:
            raise AttributeError(f"the row has no column {name!r}")
        return self[name]

    def __dir__(self) -> List[str]:
        return [*super().__dir__(), *self._places]

    def __iter__(self) -> Iterator[str]:
        return iter(self._places)

    def __len__(self) -> int:
        return len(self._values)

    def __repr__(self) -> str:
        return "Row(" + ", ".join(f"{name}={self[name]!r}" for name in self) + ")"


class Table(Sequence[Row]):
    """Rows that were read once and stay as they were; a sequence with `columns`, their names."""

    def __init__(self, columns: Iterable[str], rows: List[Tuple[Value, ...]]) -> None:
        self.columns = tuple(columns)
        self._places = {name: place for place, name in enumerate(self.columns)}
        self._rows = rows

    @overload
    def __getitem__(self, index: int) -> Row: ...
    @overload
    def __getitem__(self, index: slice) -> "Table": ...
    def __getitem__(self, index: Union[int, slice]) -> Union[Row, "Table"]:
        if isinstance(index, slice):
            return Table(self.columns, self._rows[index])
        return Row(self._places, self._rows[index])

    def __len__(self) -> int:
        return len(self._rows)

    def column(self, name: str) -> List[Value]:
        """The values of one column, from the first row to the last."""
        place = self._places[name]
        return [row[place] for row in self._rows]

    def __repr__(self) -> str:
        return f"<Table of {len(self)} rows: {', '.join(self.columns)}>"


def _value(cell: Cell) -> Value:
    if cell.kind == TEXT:
        return ctypes.string_at(cell.text, cell.length).decode()
    if cell.kind == _DATE:
        return date_in(cell.integer)
    if cell.kind == _MONEY:
        return money_in(cell.integer)
    if cell.kind == _DOUBLE:
        return cell.number
    if cell.kind == _BOOLEAN:
        return cell.integer != 0
    return cell.integer if cell.kind == _INTEGER else None


def take(handle: int) -> Table:
    """Reads all of a table of the library and closes it."""
    try:
        rows, columns = call("table_size", handle)
        names = [call("table_name", handle, column)[0] for column in range(columns)]
        cells = (Cell * columns)()
        taken = []
        for row in range(rows):
            call("table_row", handle, row, cells, columns)
            taken.append(tuple(map(_value, cells)))
        return Table(names, taken)
    finally:
        call("table_close", handle)
