"""Tables as the library hands them out, and their rows."""

from __future__ import annotations

import csv
import html
import io
from functools import lru_cache, partial
from importlib import import_module
from os import PathLike
from typing import (
    TYPE_CHECKING,
    Any,
    Callable,
    ClassVar,
    Dict,
    Iterator,
    List,
    Optional,
    Sequence,
    Tuple,
    Type,
    TypeVar,
    Union,
    cast,
    overload,
)

from ._arrow import Batch, Column, MixedColumn, capsule_of
from ._library import call
from .values import BOOLEAN, DATE, DOUBLE, ENUMS, INTEGER, MIXED, MONEY, TEXT, date_in, money_in

_SHOWN_ROWS = 10  # of a table that is shown
_SHOWN_FIELDS = 12  # of a row
_WIDTH = 100


class Row(Tuple[Any, ...]):
    """One row: a tuple of its values, each of which has the name of its column too.

    >>> row = company.employees(columns=["naid", "name"])[0]
    >>> naid, name = row
    >>> row.name, row["name"], row[1]
    ('Mr John Smith', 'Mr John Smith', 'Mr John Smith')
    """

    __slots__ = ()
    _fields: ClassVar[Tuple[str, ...]] = ()
    _base: ClassVar[Type[Row]]

    if TYPE_CHECKING:

        def __getattr__(self, name: str) -> Any: ...

    def __getitem__(self, key: Any) -> Any:
        if isinstance(key, str):
            try:
                key = self._fields.index(key)
            except ValueError:
                raise KeyError(key) from None
        return tuple.__getitem__(self, key)

    def _asdict(self) -> Dict[str, Any]:
        """The values by their names.

        >>> company.employees(columns=["naid", "name"])[0]._asdict()
        {'naid': 1, 'name': 'Mr John Smith'}
        """
        return dict(zip(self._fields, self))

    def __repr__(self) -> str:
        shown = [f"{name}={value!r}" for name, value in zip(self._fields, self)]
        if len(shown) > _SHOWN_FIELDS:
            shown[_SHOWN_FIELDS:] = [f"… {len(shown) - _SHOWN_FIELDS} more"]
        return f"{self._base.__name__}({', '.join(shown)})"

    def __reduce__(self) -> Tuple[Any, ...]:
        return _row, (self._base, self._fields, tuple(self))


def _row(base: Type[Row], fields: Tuple[str, ...], values: Tuple[Any, ...]) -> Row:
    return tuple.__new__(class_of(base, fields), values)


def _getter(place: int) -> Any:
    return property(lambda row: tuple.__getitem__(row, place))


@lru_cache(maxsize=256)
def class_of(base: Type[Row], fields: Tuple[str, ...]) -> Type[Row]:
    """The class of the rows with these columns."""
    members: Dict[str, Any] = {name: _getter(place) for place, name in enumerate(fields)}
    members.update(__slots__=(), _fields=fields, _base=base, __doc__=base.__doc__)
    return type(base.__name__, (base,), members)


R = TypeVar("R", bound=Row)
R_co = TypeVar("R_co", bound=Row, covariant=True)


class Table(Sequence[R_co]):
    """Rows that were read once and stay as they were: a sequence of them with `columns`.

    >>> table = company.employees(columns=["naid", "name", "frequency"])
    >>> len(table), table.columns
    (3, ('naid', 'name', 'frequency'))
    >>> table.column("naid")
    [1, 2, 3]
    """

    def __init__(self, base: Type[R_co], names: Tuple[str, ...], columns: List[Column],
                 batch: Batch, rows: range) -> None:
        self._base = base
        self._columns = columns
        self._batch = batch
        self._rows = rows  # which of the columns' rows are this table's
        self.columns: Tuple[str, ...] = names

    def _class(self) -> Callable[[Any], R_co]:
        return cast(Callable[[Any], R_co], partial(tuple.__new__, class_of(self._base, self.columns)))

    def _lists(self) -> List[List[Any]]:
        return [self._taken(column) for column in self._columns]

    def _taken(self, column: Column) -> List[Any]:
        values = column.values()
        if self._rows == range(self._batch.rows):
            return values
        return [values[row] for row in self._rows]

    @overload
    def __getitem__(self, index: int) -> R_co: ...
    @overload
    def __getitem__(self, index: slice) -> Table[R_co]: ...
    def __getitem__(self, index: Union[int, slice]) -> Union[R_co, Table[R_co]]:
        if isinstance(index, slice):
            rows = self._rows[index]
            return Table(self._base, self.columns, self._columns, self._batch, rows)
        row = self._rows[index]
        return self._class()(column.at(row) for column in self._columns)

    def __len__(self) -> int:
        return len(self._rows)

    def __iter__(self) -> Iterator[R_co]:
        return map(self._class(), zip(*self._lists()))

    def column(self, name: str) -> List[Any]:
        """The values of one column, from the first row to the last.

        >>> company.employees().column("period_rate")
        [Decimal('412.50'), Decimal('388.00'), Decimal('2400.00')]
        """
        if name not in self.columns:
            raise KeyError(f"the table has no column {name!r}")
        return list(self._taken(self._columns[self.columns.index(name)]))

    # ---- as other shapes ------------------------------------------------------------------------

    def to_dicts(self) -> List[Dict[str, Any]]:
        """A dict for each row.

        >>> company.employees(columns=["naid", "name"]).to_dicts()[:1]
        [{'naid': 1, 'name': 'Mr John Smith'}]
        """
        return [dict(zip(self.columns, values)) for values in zip(*self._lists())]

    @overload
    def to_csv(self, target: None = None) -> str: ...
    @overload
    def to_csv(self, target: Union[str, PathLike[str], io.TextIOBase]) -> None: ...
    def to_csv(
        self, target: Union[None, str, PathLike[str], io.TextIOBase] = None
    ) -> Optional[str]:
        """Writes a CSV file with a line of names, or returns it as a text.

        >>> company.employees(columns=["naid", "name"]).to_csv("people.csv")
        """
        if target is None:
            out = io.StringIO(newline="")
            self._write(out)
            return out.getvalue()
        if isinstance(target, (str, PathLike)):
            with open(target, "w", newline="", encoding="utf-8") as file:
                self._write(file)
        else:
            self._write(target)
        return None

    def _write(self, file: Any) -> None:
        writer = csv.writer(file)
        writer.writerow(self.columns)
        writer.writerows(zip(*self._lists()))

    def to_pandas(self) -> Any:
        """A pandas DataFrame; money stays Decimal, dates become datetime64 where they fit.

        >>> frame = company.employees().to_pandas()    # doctest: +SKIP
        """
        pandas: Any = import_module("pandas")

        frame = pandas.DataFrame(dict(zip(self.columns, self._lists())), columns=self.columns)
        for name, column in zip(self.columns, self._columns):
            if column.holds_dates:
                try:
                    frame[name] = pandas.to_datetime(frame[name])
                except (ValueError, OverflowError):
                    pass  # a day that datetime64 does not know
        return frame

    def to_arrow(self) -> Any:
        """A pyarrow Table. Other libraries take the table itself: `polars.DataFrame(table)`.

        >>> people = company.employees().to_arrow()    # doctest: +SKIP
        """
        return import_module("pyarrow").table(self)

    def __arrow_c_stream__(self, requested_schema: object = None) -> object:
        return capsule_of(self._batch.stream(self._rows))

    # ---- to look at -----------------------------------------------------------------------------

    def _head(self) -> List[Tuple[str, ...]]:
        shown = self[:_SHOWN_ROWS]
        return [tuple("" if cell is None else str(cell) for cell in row) for row in shown]

    def _size(self) -> str:
        return f"{len(self)} rows × {len(self.columns)} columns"

    def __repr__(self) -> str:
        head = self._head()
        columns: List[List[str]] = []
        width = 0
        for place, name in enumerate(self.columns):
            cells = [name, *(row[place] for row in head)]
            cells = [cell if len(cell) <= 30 else cell[:29] + "…" for cell in cells]
            wide = max(map(len, cells))
            width += wide + 2
            if width > _WIDTH and columns:
                columns.append(["…"] * len(cells))
                break
            columns.append([cell.ljust(wide) for cell in cells])
        lines = ["  ".join(cells).rstrip() for cells in zip(*columns)]
        if len(self) > len(head):
            lines.append("…")
        return "\n".join([*lines, f"[{self._size()}]"])

    def _repr_html_(self) -> str:
        def line(tag: str, cells: Tuple[str, ...]) -> str:
            return "".join(f"<{tag}>{html.escape(cell)}</{tag}>" for cell in cells)

        body = "".join(f"<tr>{line('td', row)}</tr>" for row in self._head())
        more = "…, " if len(self) > _SHOWN_ROWS else ""
        return (
            f"<table><thead><tr>{line('th', self.columns)}</tr></thead>"
            f"<tbody>{body}</tbody></table><p>{more}{self._size()}</p>"
        )


def _cell(handle: int, row: int, column: int) -> Any:
    """A cell of a column in which each may be of another kind."""
    where = (handle, row, column)
    kind = call("table_kind", *where)[0]
    if kind == TEXT:
        return call("table_text", *where)[0]
    if kind == DATE:
        return date_in(call("table_date", *where)[0])
    if kind == MONEY:
        return money_in(call("table_money", *where)[0])
    if kind == DOUBLE:
        return call("table_double", *where)[0]
    if kind == BOOLEAN:
        return call("table_integer", *where)[0] != 0
    return call("table_integer", *where)[0] if kind == INTEGER else None


def take(handle: int, base: Type[R]) -> Table[R]:
    """Takes all columns of a table of the library and closes it."""
    try:
        batch = Batch(handle)
        columns = []
        for place, name in enumerate(batch.names):
            if batch.formats[place] == "U" and call("table_column_kind", handle, place)[0] == MIXED:
                values = [_cell(handle, row, place) for row in range(batch.rows)]
                columns.append(cast(Column, MixedColumn(values)))
            else:
                columns.append(Column(batch, place, ENUMS.get(name)))
        return Table(base, tuple(batch.names), columns, batch, range(batch.rows))
    finally:
        call("table_close", handle)
