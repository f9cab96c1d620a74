"""The C library: where it lies, what its calls take, and how their errors are raised."""

import ctypes
import ctypes.util
import operator
import os
from pathlib import Path
from typing import Any, Iterator, Tuple

_ABI = 1
_FILE = "libledgerwick_c.so"


class LedgerwickError(Exception):
    """A failure of the library, of the database or of the call."""

    def __init__(self, number: int, source: str, description: str) -> None:
        super().__init__(number, source, description)
        self.number = number
        self.source = source
        self.description = description

    def __str__(self) -> str:
        return f"Error {self.number} in {self.source}: {self.description}"


class CError(ctypes.Structure):
    _fields_ = [
        ("number", ctypes.c_int32),
        ("source", ctypes.c_char * 128),
        ("description", ctypes.c_char * 2048),
    ]


class Options(ctypes.Structure):
    _fields_ = [
        ("size", ctypes.c_size_t),
        ("durability", ctypes.c_int32),
        ("busy_timeout", ctypes.c_int32),
        ("read_only", ctypes.c_int32),
        ("program_path", ctypes.c_char_p),
        ("workstation", ctypes.c_char_p),
        ("program_name", ctypes.c_char_p),
    ]


class Cell(ctypes.Structure):
    _fields_ = [
        ("kind", ctypes.c_int32),
        ("integer", ctypes.c_int64),
        ("number", ctypes.c_double),
        ("text", ctypes.c_void_p),
        ("length", ctypes.c_size_t),
    ]


# How an argument is written in `CALLS`: what goes in is a small letter, what comes out a capital.
KINDS = {
    "h": ctypes.c_void_p,  # a handle
    "i": ctypes.c_int32,  # a number, a flag, a date
    "q": ctypes.c_int64,  # a number of 64 bits, an amount of money
    "f": ctypes.c_double,
    "s": ctypes.c_char_p,
    "o": ctypes.POINTER(Options),
    "c": ctypes.POINTER(Cell),
    "H": ctypes.POINTER(ctypes.c_void_p),
    "I": ctypes.POINTER(ctypes.c_int32),
    "Q": ctypes.POINTER(ctypes.c_int64),
    "F": ctypes.POINTER(ctypes.c_double),
    "S": ctypes.POINTER(ctypes.c_char_p),
    "Z": ctypes.POINTER(ctypes.c_size_t),
}

# A larger number would be cut to these bits without a word.
_BITS = {"i": 31, "q": 63}

# Every call of the library, without the error that is the last argument of each.
CALLS = {
    "company_create": "si",
    "session_open": "sioH",
    "session_close": "h",
    "set_today": "hi",
    "load": "h",
    "reload": "hi",
    "payroll_year": "hI",
    "get_parameter": "hsS",
    "set_parameter": "hss",
    "table_close": "h",
    "table_size": "hQI",
    "table_name": "hiS",
    "table_find": "hsI",
    "table_kind": "hqiI",
    "table_integer": "hqiQ",
    "table_double": "hqiF",
    "table_money": "hqiQ",
    "table_date": "hqiI",
    "table_text": "hqiSZ",
    "table_row": "hqci",
    "rows": "hsiH",
    "row_new": "hsH",
    "row_open": "hsqH",
    "row_kind": "hsI",
    "row_integer": "hsQ",
    "row_double": "hsF",
    "row_money": "hsQ",
    "row_date": "hsI",
    "row_text": "hsSZ",
    "row_set_integer": "hsq",
    "row_set_double": "hsf",
    "row_set_money": "hsq",
    "row_set_date": "hsi",
    "row_set_text": "hss",
    "row_store": "hQ",
    "row_close": "h",
    "count": "hIII",
    "employees": "hiH",
    "employments": "hiH",
    "employment_add": "hiiiisiiI",
    "employment_end": "hii",
    "set_next_dates": "hiii",
    "tax_date": "iIII",
    "pay_period": "iiIII",
    "reference_period": "hiiII",
    "tax_week_end": "hiI",
    "tax_month_end": "hiI",
    "next_expected": "hiiiiiI",
    "week_of_date": "hiI",
    "date_of_week": "hiI",
    "calculation_set": "hiI",
    "next_pay_date": "hiiiII",
    "last_pay_date": "hiII",
    "next_period_end": "hiII",
    "open_run_date": "hII",
    "count_due": "hiII",
    "due": "hiH",
    "reference_period_end": "hiiI",
    "last_reference_period_end": "hI",
    "run_open": "hiiiiHI",
    "run_rows": "hiiiiH",
    "run_mark_calculated": "hiiiiI",
    "reset_visited": "hi",
    "run_close": "hiiiiH",
    "fill_missing_periods": "hH",
    "import_pay": "hiq",
    "load_imported": "h",
    "piecework": "hiiiHQ",
    "ae_status": "hiiiiH",
    "ae_employees": "hiH",
    "ae_assessment": "hiiiiH",
    "ae_scheme_changed": "hi",
    "ae_re_enrolment_changed": "hii",
    "ae_recipients": "hiH",
    "ae_letter": "hiiS",
}


def _candidates() -> Iterator[str]:
    """The places of the library, the most particular one first."""
    named = os.environ.get("LEDGERWICK_LIBRARY")
    if named:
        yield named
        return
    beside = Path(__file__).resolve().parent
    for name in (f"{_FILE}.{_ABI}", _FILE):
        if (beside / name).exists():
            yield str(beside / name)
    yield f"{_FILE}.{_ABI}"
    found = ctypes.util.find_library("ledgerwick_c")
    if found:
        yield found


def _load() -> ctypes.CDLL:
    failures = []
    for place in _candidates():
        try:
            library = ctypes.CDLL(place)
        except OSError as failure:
            failures.append(str(failure))
            continue
        if not hasattr(library, "ledgerwick_abi"):
            raise ImportError(f"{place} is not libledgerwick_c")
        library.ledgerwick_version.restype = ctypes.c_char_p
        library.ledgerwick_abi.restype = ctypes.c_int32
        abi = library.ledgerwick_abi()
        if abi != _ABI:
            raise ImportError(f"{place} has ABI {abi}; this package needs {_ABI}")
        return library
    raise ImportError(
        "libledgerwick_c was not found; name its file in LEDGERWICK_LIBRARY: " + "; ".join(failures)
    )


def _declare(library: ctypes.CDLL) -> None:
    for name, kinds in CALLS.items():
        function = getattr(library, "ledgerwick_" + name)
        function.restype = ctypes.c_int32
        function.argtypes = [*(KINDS[kind] for kind in kinds), ctypes.POINTER(CError)]


LIBRARY = _load()
_declare(LIBRARY)


def text(value: str) -> bytes:
    """A text as the library takes it."""
    if not isinstance(value, str):
        raise TypeError(f"a text is needed, not {type(value).__name__}")
    if "\0" in value:
        raise ValueError("a text for the payroll cannot hold the character U+0000")
    return value.encode("utf-8")


def _whole(name: str, value: Any, bits: int) -> int:
    try:
        number = operator.index(value)
    except TypeError:
        raise TypeError(f"a whole number is needed, not {type(value).__name__}") from None
    if not -(1 << bits) <= number < 1 << bits:
        raise OverflowError(f"{number} is too large for ledgerwick_{name}")
    return number


def call(name: str, *arguments: Any) -> Tuple[Any, ...]:
    """Calls `ledgerwick_NAME` with what goes in, and gives what comes out.

    Outputs stand in the order of the call; a text comes as str.
    """
    function = getattr(LIBRARY, "ledgerwick_" + name)
    inputs = iter(arguments)
    passed = []
    outputs = []
    for kind in CALLS[name]:
        if kind.isupper():
            output = KINDS[kind]._type_()
            outputs.append(output)
            passed.append(ctypes.byref(output))
        else:
            value = next(inputs)
            passed.append(_whole(name, value, _BITS[kind]) if kind in _BITS else value)
    error = CError()
    if function(*passed, ctypes.byref(error)) != 0:
        raise LedgerwickError(error.number, error.source.decode(), error.description.decode())
    return tuple(
        output.value.decode() if isinstance(output, ctypes.c_char_p) else output.value
        for output in outputs
    )
