"""Builds the wheel of the package, by PEP 517 and with nothing but Python.

A wheel holds the shared libraries where it finds some: in the folder that LEDGERWICK_LIBRARIES names,
or else in a build of the sources around it, an optimised one first. Without one it holds Python alone,
and the package looks for the library in the system.
"""

from __future__ import annotations

import base64
import hashlib
import io
import os
import re
import sys
import sysconfig
import tarfile
import zipfile
from pathlib import Path
from typing import Dict, List, Optional

HERE = Path(__file__).resolve().parent.parent
LIBRARY = "libledgerwick_c.so.1"
# What a wheel needs of a folder of libraries: each file by the name that it is loaded under.
LIBRARIES = re.compile(r"libledgerwick\w*\.so\.\d+|Fernbank\.so")


def _version() -> str:
    text = (HERE / "ledgerwick/__init__.py").read_text("utf-8")
    found = re.search(r'^__version__ = "(.+)"$', text, re.M)
    assert found
    return found.group(1)


def _licence() -> bytes:
    """The project's one file on its licence, beside the sources of the package or at the tree's top."""
    found = [each for each in (HERE / "LICENCE", HERE.parent.parent / "LICENCE") if each.exists()]
    return found[0].read_bytes()


def _metadata() -> str:
    description = (HERE / "README.md").read_text("utf-8")
    return f"""Metadata-Version: 2.1
Name: ledgerwick
Version: {_version()}
Summary: UK payroll: the Ledgerwick object library from Python
License: see the file LICENCE
Author: Ledgerwick developers
Author-email: developers@ledgerwick.invalid
Keywords: payroll,UK,PAYE,auto-enrolment
Classifier: Operating System :: POSIX :: Linux
Classifier: Programming Language :: Python :: 3
Classifier: Topic :: Office/Business :: Financial :: Accounting
Classifier: Typing :: Typed
Requires-Python: >=3.9
Description-Content-Type: text/markdown

{description}"""


def _libraries() -> List[Path]:
    named = os.environ.get("LEDGERWICK_LIBRARIES")
    builds = HERE.parent.parent / "build"
    order = ("wheel/lib", "release*/lib", "*/lib")
    folders = [Path(named)] if named else [each for glob in order for each in builds.glob(glob)]
    for folder in folders:
        if (folder / LIBRARY).exists():
            return [each for each in sorted(folder.iterdir()) if LIBRARIES.fullmatch(each.name)]
    if named:
        raise FileNotFoundError(f"{named} holds no {LIBRARY}")
    return []


def _tag(has_libraries: bool) -> str:
    platform = re.sub(r"[-.]", "_", sysconfig.get_platform()) if has_libraries else "any"
    return f"py3-none-{platform}"


def _write(folder: str, files: Dict[str, bytes], tag: str) -> str:
    info = f"ledgerwick-{_version()}.dist-info"
    files = {
        **files,
        f"{info}/METADATA": _metadata().encode(),
        f"{info}/LICENCE": _licence(),
        f"{info}/WHEEL": "Wheel-Version: 1.0\nGenerator: ledgerwick_build\n"
        f"Root-Is-Purelib: {str(tag.endswith('any')).lower()}\nTag: {tag}\n".encode(),
    }
    record = ""
    for name, content in files.items():
        digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
        record += f"{name},sha256={digest},{len(content)}\n"
    files[f"{info}/RECORD"] = f"{record}{info}/RECORD,,\n".encode()
    wheel = f"ledgerwick-{_version()}-{tag}.whl"
    with zipfile.ZipFile(Path(folder) / wheel, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in files.items():
            entry = zipfile.ZipInfo(name)  # of no date, so that the same sources make the same wheel
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o100644 << 16
            archive.writestr(entry, content)
    _leave_nothing()
    return wheel


def _leave_nothing() -> None:
    """Python keeps what it compiles beside the sources; pip's one run needs none of it."""
    if __cached__ and Path(__cached__).exists():
        Path(__cached__).unlink()
        if not any(Path(__cached__).parent.iterdir()):
            Path(__cached__).parent.rmdir()


def build_wheel(
    wheel_directory: str, config_settings: object = None, metadata_directory: Optional[str] = None
) -> str:
    libraries = _libraries()
    sources = [*sorted(HERE.glob("ledgerwick/*.py")), HERE / "ledgerwick/py.typed"]
    files = {f"ledgerwick/{each.name}": each.read_bytes() for each in [*sources, *libraries]}
    if not libraries:
        print("no shared libraries were found; the package will look for the system's")
    return _write(wheel_directory, files, _tag(bool(libraries)))


def build_editable(
    wheel_directory: str, config_settings: object = None, metadata_directory: Optional[str] = None
) -> str:
    return _write(wheel_directory, {"ledgerwick.pth": f"{HERE}\n".encode()}, _tag(False))


def build_sdist(sdist_directory: str, config_settings: object = None) -> str:
    name = f"ledgerwick-{_version()}"
    names = ("pyproject.toml", "README.md", "ledgerwick/*.py", "ledgerwick/py.typed",
             "build_backend/*.py", "examples/*.py")
    with tarfile.open(Path(sdist_directory) / f"{name}.tar.gz", "w:gz") as archive:
        for each in sorted(each for pattern in names for each in HERE.glob(pattern)):
            archive.add(each, f"{name}/{each.relative_to(HERE)}")
        for file, content in (("PKG-INFO", _metadata().encode()), ("LICENCE", _licence())):
            information = tarfile.TarInfo(f"{name}/{file}")
            information.size = len(content)
            archive.addfile(information, io.BytesIO(content))
    _leave_nothing()
    return f"{name}.tar.gz"


if __name__ == "__main__":  # the metadata, for the Debian package
    sys.stdout.write(_metadata())
