"""The C library: where it lies, what its calls take, and how their errors are raised."""

from __future__ import annotations

import ctypes
import ctypes.util
import os
from pathlib import Path
from typing import Any, Dict, Iterator, List, Optional, Tuple

from .errors import LedgerwickError, error_of
from .values import flag, whole

_ABI = 1
_FILE = "libledgerwick_c.so"


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
        ("as_of", ctypes.c_int32),
    ]


_RELEASE = ctypes.CFUNCTYPE(None, ctypes.c_void_p)


class ArrowSchema(ctypes.Structure):
    """The types of some columns, as `ArrowSchema` of the header."""


class ArrowArray(ctypes.Structure):
    """The memory of some columns, as `ArrowArray` of the header."""


class ArrowArrayStream(ctypes.Structure):
    """As `ArrowArrayStream` of the header."""

    _fields_ = [
        ("get_schema", ctypes.c_void_p),
        ("get_next", ctypes.c_void_p),
        ("get_last_error", ctypes.c_void_p),
        ("release", _RELEASE),
        ("private_data", ctypes.c_void_p),
    ]


ArrowSchema._fields_ = [
    ("format", ctypes.c_char_p),
    ("name", ctypes.c_char_p),
    ("metadata", ctypes.c_char_p),
    ("flags", ctypes.c_int64),
    ("n_children", ctypes.c_int64),
    ("children", ctypes.POINTER(ctypes.POINTER(ArrowSchema))),
    ("dictionary", ctypes.POINTER(ArrowSchema)),
    ("release", _RELEASE),
    ("private_data", ctypes.c_void_p),
]
ArrowArray._fields_ = [
    ("length", ctypes.c_int64),
    ("null_count", ctypes.c_int64),
    ("offset", ctypes.c_int64),
    ("n_buffers", ctypes.c_int64),
    ("n_children", ctypes.c_int64),
    ("buffers", ctypes.POINTER(ctypes.c_void_p)),
    ("children", ctypes.POINTER(ctypes.POINTER(ArrowArray))),
    ("dictionary", ctypes.POINTER(ArrowArray)),
    ("release", _RELEASE),
    ("private_data", ctypes.c_void_p),
]


# How an argument is written in `CALLS`: what goes in is a small letter, what comes out a capital.
KINDS: Dict[str, Any] = {
    "h": ctypes.c_void_p,  # a handle
    "i": ctypes.c_int32,  # a number, a flag, a date
    "b": ctypes.c_int32,  # a flag
    "q": ctypes.c_int64,  # a number of 64 bits, an amount of money
    "f": ctypes.c_double,
    "s": ctypes.c_char_p,
    "o": ctypes.POINTER(Options),
    "c": ctypes.c_void_p,  # cells
    "x": ctypes.POINTER(ArrowSchema),
    "a": ctypes.POINTER(ArrowArray),
    "t": ctypes.POINTER(ArrowArrayStream),
}
OUTPUTS: Dict[str, Any] = {
    "H": ctypes.c_void_p,
    "I": ctypes.c_int32,
    "Q": ctypes.c_int64,
    "F": ctypes.c_double,
    "S": ctypes.c_char_p,
    "Z": ctypes.c_size_t,
}

# A larger number would be cut to these bits without a word.
_BITS = {"i": 31, "q": 63}

# Every call of the library, without the error that is the last argument of each.
CALLS = {
    "error_row": "SQS",
    "company_create": "si",
    "company_upgrade": "sH",
    "session_open": "sioH",
    "session_close": "h",
    "transaction_begin": "h",
    "transaction_end": "hb",
    "set_today": "hi",
    "load": "h",
    "reload": "hi",
    "payroll_year": "hI",
    "get_parameter": "hsS",
    "set_parameter": "hss",
    "import": "hsH",
    "export": "hsH",
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
    "table_column_kind": "hiI",
    "table_arrow": "hxa",
    "arrow_stream": "aqqqt",
    "rows": "hsiH",
    "rows_select": "hssiiiH",
    "fields": "hsH",
    "row_new": "hsH",
    "row_open": "hsqH",
    "row_open_fields": "hsqsH",
    "row_kind": "hsI",
    "row_field_kind": "hsI",
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
    "employees_select": "hisH",
    "employments": "hiH",
    "employments_select": "hisH",
    "employment_add": "hiibbsiiI",
    "employment_end": "hii",
    "set_next_dates": "hiii",
    "tax_date": "iIII",
    "pay_period": "iiIII",
    "reference_period": "hiiII",
    "tax_week_end": "hiI",
    "tax_month_end": "hiI",
    "next_expected": "hiibbbI",
    "week_of_date": "hiI",
    "date_of_week": "hiI",
    "calculation_set": "hiI",
    "audit": "hH",
    "run_plan": "hiiiiiH",
    "report": "hisS",
    "explain": "hiiH",
    "pay_dates": "hiiH",
    "figures": "hiH",
    "next_pay_date": "hibiII",
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
    "ae_status": "hiibiH",
    "ae_employees": "hbH",
    "ae_assessment": "hiiibH",
    "ae_scheme_changed": "hi",
    "ae_re_enrolment_changed": "hii",
    "ae_recipients": "hiH",
    "ae_letter": "hiiS",
    "ae_check_template": "hsH",
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
    sources = beside.parent.parent.parent  # whose own builds are there when it is run from them
    if (sources / "capi" / "ledgerwick_c.h").exists():
        for build in sorted(sources.glob(f"build/*/lib/{_FILE}.{_ABI}")):
            yield str(build)
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
        f"{_FILE}.{_ABI} was not found; install the package libledgerwick1, or name the file in "
        "LEDGERWICK_LIBRARY: " + "; ".join(failures)
    )


def _declare(library: ctypes.CDLL) -> None:
    for name, kinds in CALLS.items():
        function = getattr(library, "ledgerwick_" + name)
        function.restype = ctypes.c_int32
        function.argtypes = [
            *(ctypes.POINTER(OUTPUTS[kind]) if kind.isupper() else KINDS[kind] for kind in kinds),
            ctypes.POINTER(CError),
        ]


LIBRARY = _load()
_declare(LIBRARY)


def call(name: str, *arguments: Any) -> Tuple[Any, ...]:
    """Calls `ledgerwick_NAME` with what goes in, and gives what comes out.

    Outputs stand in the order of the call; a text comes as str.
    """
    function = getattr(LIBRARY, "ledgerwick_" + name)
    inputs = iter(arguments)
    passed: List[Any] = []
    outputs: List[Any] = []
    for kind in CALLS[name]:
        if kind.isupper():
            outputs.append(OUTPUTS[kind]())
            passed.append(ctypes.byref(outputs[-1]))
        else:
            value = next(inputs)
            if kind in _BITS:
                value = whole(value, _BITS[kind])
            passed.append(flag(value) if kind == "b" else value)
    error = CError()
    if function(*passed, ctypes.byref(error)) != 0:
        raise _failure(error)
    return tuple(
        output.value.decode() if isinstance(output.value, bytes) else output.value
        for output in outputs
    )


def _failure(error: CError) -> LedgerwickError:
    table, key, field = ctypes.c_char_p(), ctypes.c_int64(), ctypes.c_char_p()
    LIBRARY.ledgerwick_error_row(
        ctypes.byref(table), ctypes.byref(key), ctypes.byref(field), ctypes.byref(CError())
    )
    row = (_decoded(table.value), key.value, _decoded(field.value))
    return error_of(error.number, error.source.decode(), error.description.decode(), row)


def _decoded(value: Optional[bytes]) -> Optional[str]:
    return None if value is None else value.decode("utf-8", "replace")


def number(name: str, *arguments: Any) -> int:
    """The one whole number that a call gives."""
    return int(call(name, *arguments)[0])
