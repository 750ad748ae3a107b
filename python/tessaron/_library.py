"""The engine library, its errors, and the owner of its handles."""

from __future__ import annotations

import ctypes
import os
import pathlib
import weakref
from typing import Any

_INVALID_ARGUMENT = -1901
NOT_FOUND = -1902
WRONG_KIND = -1903
_OUT_OF_MEMORY = -1904
NOT_READY = -1907


def _open() -> ctypes.CDLL:
    """The library of TESSARON_LIBRARIES, else the one installed above this package, else the system's."""
    name = "libTessaronEngines.so.1"
    folder = os.environ.get("TESSARON_LIBRARIES")
    if folder:
        return ctypes.CDLL(str(pathlib.Path(folder) / name))
    for parent in pathlib.Path(__file__).resolve().parents[1:5]:
        for found in sorted([*parent.glob(name), *parent.glob(f"*/{name}")]):
            return ctypes.CDLL(str(found))
    return ctypes.CDLL(name)


class _ErrorStructure(ctypes.Structure):
    _fields_ = [
        ("status", ctypes.c_int),
        ("text", ctypes.c_char_p),
        ("file", ctypes.c_char_p),
        ("field", ctypes.c_char_p),
    ]


class Error(Exception):
    """What the library or the engine complains about.

    status: the engine's status code; file: the path of the file at fault, or ""; field: the parameter at fault, or "".
    """

    def __init__(self, text: str, status: int, file: str = "", field: str = "") -> None:
        super().__init__(text)
        self.status = status
        self.file = file
        self.field = field


library = _open()
library.tessaronLastError.restype = ctypes.POINTER(_ErrorStructure)


def text_of(value: bytes | None) -> str:
    """A text of the library's. Bytes that are no UTF-8 come back unchanged when they are passed in again."""
    return (value or b"").decode("utf-8", "surrogateescape")


def bytes_of(text: str | os.PathLike[str], name: str = "text") -> bytes:
    encoded = os.fspath(text).encode("utf-8", "surrogateescape")
    if b"\0" in encoded:
        raise ValueError(f"{name} has a zero character in it")
    return encoded


def check(status: int) -> None:
    """Raises what the last call complained about."""
    if status == 0:
        return
    error = library.tessaronLastError().contents
    text, field = text_of(error.text), text_of(error.field)
    if status == _OUT_OF_MEMORY:
        raise MemoryError(text)
    if status == _INVALID_ARGUMENT:
        raise ValueError(text)
    raise Error(text, status, text_of(error.file), field)


def call(name: str, *arguments: Any) -> None:
    """Calls a function that returns a status."""
    check(getattr(library, name)(*arguments))


def count(name: str, handle: Any) -> int:
    """Calls a function that counts."""
    function = getattr(library, name)
    function.restype = ctypes.c_size_t
    return int(function(handle))


def read_text(name: str, *arguments: Any) -> str:
    """Calls a function whose last argument receives a text."""
    text = ctypes.c_char_p()
    call(name, *arguments, ctypes.byref(text))
    return text_of(text.value)


def size(value: int) -> ctypes.c_size_t:
    return ctypes.c_size_t(value)


def real(value: float) -> ctypes.c_double:
    return ctypes.c_double(value)


class Handle:
    """Owns a handle of the library, which goes with the object."""

    def __init__(self, free: str) -> None:
        self.pointer = ctypes.c_void_p()
        self._free = free

    def adopt(self, name: str, *arguments: Any) -> None:
        """Calls a function whose last argument receives a new handle."""
        call(name, *arguments, ctypes.byref(self.pointer))
        weakref.finalize(self, getattr(library, self._free), self.pointer)


def _version() -> str:
    number = library.tessaronVersion()
    return f"{number // 10000}.{number // 100 % 100}.{number % 100}"


__version__ = _version()
