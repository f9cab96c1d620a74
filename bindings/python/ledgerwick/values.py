"""How values cross into the library and out of it: dates, money, whole numbers, flags, texts."""

from __future__ import annotations

import operator
from datetime import date, datetime, time
from decimal import Context, Decimal, Overflow
from enum import IntEnum
from typing import Any, Optional, Union

Value = Union[None, bool, int, float, Decimal, date, str]

# What a cell of a table, or a field of a row, holds.
EMPTY, NO_VALUE, BOOLEAN, INTEGER, DOUBLE, MONEY, DATE, TEXT, MIXED = range(9)

# Whatever context the program works in, an amount stays what it is.
_EXACT = Context(prec=40)


class _Named(IntEnum):
    """Shown by its name: weekly."""

    def __str__(self) -> str:
        return self.name.lower()


class Frequency(_Named):
    """How often an employee is paid; ALL is everybody, where there is a choice."""

    ALL = -1
    CASUAL = 0
    WEEKLY = 1
    FORTNIGHTLY = 2
    FOUR_WEEKLY = 3
    MONTHLY = 4
    QUARTERLY = 13
    HALF_YEARLY = 26
    YEARLY = 52


class Durability(_Named):
    """What a power cut can take: nothing, the call that was running, the last calls."""

    EACH_UPDATE = 0
    BATCHED = 1
    RELAXED = 2


class Letter(_Named):
    """The letters of auto-enrolment."""

    ENROLMENT = 1
    POSTPONEMENT = 2
    NOT_ELIGIBLE = 3
    RE_ENROLMENT = 4
    ENROLMENT_ATTACHMENT = 500


# The columns and fields whose whole numbers are members of an enum.
ENUMS = {
    "frequency": Frequency,
    "last_frequency": Frequency,
    "PREPayFrequency": Frequency,
}


def _kind(value: object) -> str:
    return type(value).__name__


def text(value: str) -> bytes:
    """A text as the library takes it."""
    if not isinstance(value, str):
        raise TypeError(f"a text is needed, not {_kind(value)}")
    if "\0" in value:
        raise ValueError("a text for the payroll cannot hold the character U+0000")
    try:
        return value.encode("utf-8")
    except UnicodeEncodeError:
        raise ValueError(f"{value!r} cannot be written in UTF-8") from None


def whole(value: Any, bits: int = 31) -> int:
    """A whole number of any integer type, numpy's too; never cut to its place."""
    if isinstance(value, bool):
        raise TypeError("a whole number is needed, not bool")
    try:
        number = operator.index(value)
    except TypeError:
        raise TypeError(f"a whole number is needed, not {_kind(value)}") from None
    if not -(1 << bits) <= number < 1 << bits:
        raise OverflowError(f"{number} is too large for its place")
    return number


def flag(value: Any) -> int:
    """True or False."""
    if value is True or value is False or _kind(value) in ("bool_", "bool"):  # numpy's too
        return int(bool(value))
    raise TypeError(f"True or False is needed, not {_kind(value)}")


def date_out(day: Optional[date]) -> int:
    """A date as the library takes it; a datetime is one when it has no time of day."""
    if day is None:
        return 0
    if not isinstance(day, date):
        raise TypeError(f"a date is needed, not {_kind(day)}")
    if isinstance(day, datetime) and (day != day or day.time() != time()):
        raise ValueError(f"{day} is no day: it has a time")
    return day.year * 10000 + day.month * 100 + day.day


def date_in(number: int) -> Optional[date]:
    """A date of the library; None for one that is not set."""
    return date(number // 10000, number // 100 % 100, number % 100) if number else None


def day_in(number: int) -> date:
    """A date of the library that is always set."""
    day = date_in(number)
    assert day is not None
    return day


def money_out(amount: Union[Decimal, int]) -> int:
    """An amount in ten-thousandths; exact, or a ValueError."""
    if isinstance(amount, bool) or not isinstance(amount, (Decimal, int)):
        raise TypeError(f"an amount is a Decimal or an int, not {_kind(amount)}")
    try:
        ticks = _EXACT.scaleb(Decimal(amount), 4)
    except Overflow:
        raise OverflowError(f"{amount} is too large for an amount") from None
    if not ticks.is_finite() or ticks != ticks.to_integral_value():
        raise ValueError(f"{amount} is no amount of at most four decimals")
    return whole(int(ticks), 63)


def number_out(value: Union[float, Decimal]) -> float:
    """A number with a fraction."""
    if isinstance(value, bool):
        raise TypeError("a number is needed, not bool")
    try:
        number = float(value)
    except (TypeError, ValueError):
        raise TypeError(f"a number is needed, not {_kind(value)}") from None
    if number != number or number in (float("inf"), float("-inf")):
        raise ValueError(f"{value} is no number")
    return number


def money_in(ticks: int) -> Decimal:
    """An amount with two decimals, or with four when it needs them."""
    if ticks % 100 == 0:
        return _EXACT.scaleb(Decimal(ticks // 100), -2)
    return _EXACT.scaleb(Decimal(ticks), -4)
