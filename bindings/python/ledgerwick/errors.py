"""The failures of the library, by what a program does about them."""

from __future__ import annotations

from typing import Dict, Optional, Tuple, Type


class LedgerwickError(Exception):
    """A failure of the library, of the database or of the call.

    `number`, `source` and `description` are the library's own; `table`, `key` and `field` name the row
    that was at hand, each None where none was.

    >>> try:
    ...     company.employee(99)
    ... except LedgerwickError as error:
    ...     print(error.number, error.description)
    91 There is no employee 99
    """

    def __init__(
        self,
        number: int,
        source: str,
        description: str,
        table: Optional[str] = None,
        key: Optional[int] = None,
        field: Optional[str] = None,
    ) -> None:
        super().__init__(number, source, description, table, key, field)
        self.number = number
        self.source = source
        self.description = description
        self.table = table
        self.key = key
        self.field = field

    def __str__(self) -> str:
        row = f" ({self.table} {self.key})" if self.table and self.key else ""
        return f"Error {self.number} in {self.source}: {self.description}{row}"


class UnknownEmployee(LedgerwickError, LookupError):
    """No loaded employee has that number."""


class UnknownRow(LedgerwickError, LookupError):
    """The table has no row of that key."""


class UnknownName(LedgerwickError, LookupError):
    """There is no table, field, column or setting of that name."""


class InvalidValue(LedgerwickError, ValueError):
    """A value does not fit its field or its argument."""


class NotAllowed(LedgerwickError):
    """The state of things does not allow the call; the description says what to do first."""


class FileNotThere(LedgerwickError, FileNotFoundError):
    """There is no such company, folder or template."""


class FileThere(LedgerwickError, FileExistsError):
    """A company would be created where there is a file."""


class NotACompany(LedgerwickError):
    """The file is no company's."""


class BadFiles(LedgerwickError, ValueError):
    """The files of an import have faults: a line of the description for each. Nothing was stored."""


class Busy(LedgerwickError):
    """Another program is writing. Make the same call again."""


class Changed(LedgerwickError):
    """Another program changed what the call rests on. Load again, then make the call again."""


class NotLoaded(LedgerwickError):
    """The call is about employees, and none are loaded. Call `load` first."""


class Closed(LedgerwickError):
    """The session was closed. Open the company again."""


class WrongThread(LedgerwickError):
    """The session belongs to another thread, or another process. Open one of your own."""


class OtherVersion(LedgerwickError):
    """The company is of an older or a newer release. The text says what to do."""


class ReadOnly(LedgerwickError):
    """The company was opened to be read."""


class DatabaseFailure(LedgerwickError):
    """The database failed: the disk is full, the file is damaged and the like."""


_BY_NUMBER: Dict[int, Type[LedgerwickError]] = {
    5: NotAllowed,
    6: InvalidValue,
    13: InvalidValue,
    53: FileNotThere,
    58: FileThere,
    91: UnknownEmployee,
    94: InvalidValue,
    3021: UnknownRow,
    3026: DatabaseFailure,
    3027: ReadOnly,
    3049: DatabaseFailure,
    3075: DatabaseFailure,
    3078: DatabaseFailure,
    3146: DatabaseFailure,
    3197: Changed,
    3218: Busy,
    3265: UnknownName,
    3274: OtherVersion,
    3343: NotACompany,
    3420: Closed,
    9909: InvalidValue,
    9910: InvalidValue,
    20002: WrongThread,
    20003: WrongThread,
    20004: NotLoaded,
    20005: BadFiles,
}


def error_of(
    number: int, source: str, description: str, row: Tuple[Optional[str], int, Optional[str]]
) -> LedgerwickError:
    """The failure of a number, as its own class."""
    table, key, field = row
    kind = _BY_NUMBER.get(number, LedgerwickError)
    return kind(number, source, description, table, key or None, field)
