"""Parameter sets."""

from __future__ import annotations

import ctypes
import os
from collections.abc import Iterator, MutableMapping
from typing import Any, Union

from . import _library as lib

Value = Union[int, float, str]

_FORMATS = {"xml": 0, "binary": 1}
_INT, _DOUBLE, _TEXT = 1, 2, 3


def format_number(name: str) -> int:
    if name not in _FORMATS:
        raise ValueError(f"there is no archive format {name!r}: use 'xml' or 'binary'")
    return _FORMATS[name]


class Parameters(MutableMapping[str, Value]):
    """Named values, in the order of their keys: each an int of 32 bits, a float or a text.

    The kind of a value counts: 6 and 6.0 are different. A bool is stored as an int.
    """

    def __init__(self, values: Any = (), **more: Value) -> None:
        self._handle = lib.Handle("tessaronParametersFree")
        self._owner: object = None
        self._handle.adopt("tessaronParametersCreate")
        self.update(values, **more)

    @classmethod
    def _of(cls, pointer: ctypes.c_void_p, owner: object) -> Parameters:
        """A set that belongs to another handle, which it keeps alive."""
        parameters = cls.__new__(cls)
        parameters._handle = lib.Handle("")
        parameters._handle.pointer = pointer
        parameters._owner = owner
        return parameters

    @classmethod
    def read(cls, path: str | os.PathLike[str]) -> Parameters:
        """Reads a set from an archive file."""
        parameters = cls.__new__(cls)
        parameters._handle = lib.Handle("tessaronParametersFree")
        parameters._owner = None
        parameters._handle.adopt("tessaronParametersRead", lib.bytes_of(path, "path"))
        return parameters

    def write(self, path: str | os.PathLike[str], format: str = "xml") -> None:
        """Writes the set into an archive file, whole or not at all; format: "xml" or "binary"."""
        lib.call("tessaronParametersWrite", self._pointer, lib.bytes_of(path, "path"), format_number(format))

    @property
    def _pointer(self) -> ctypes.c_void_p:
        return self._handle.pointer

    def __getitem__(self, key: str) -> Value:
        name, kind = lib.bytes_of(key, "key"), ctypes.c_int()
        if name:
            lib.call("tessaronParametersKind", self._pointer, name, ctypes.byref(kind))
        if kind.value == _TEXT:
            return lib.read_text("tessaronParametersGetText", self._pointer, name)
        if kind.value == _INT:
            integer = ctypes.c_int()
            lib.call("tessaronParametersGetInt", self._pointer, name, ctypes.byref(integer))
            return integer.value
        if kind.value == _DOUBLE:
            number = ctypes.c_double()
            lib.call("tessaronParametersGetDouble", self._pointer, name, ctypes.byref(number))
            return number.value
        raise KeyError(key)

    def __setitem__(self, key: str, value: Value) -> None:
        name = lib.bytes_of(key, "key")
        if isinstance(value, str):
            lib.call("tessaronParametersSetText", self._pointer, name, lib.bytes_of(value, key))
        elif isinstance(value, float):
            lib.call("tessaronParametersSetDouble", self._pointer, name, lib.real(value))
        elif hasattr(value, "__index__"):
            integer = value.__index__()
            if not -(2**31) <= integer < 2**31:
                raise OverflowError(f"{key} = {integer} does not fit into 32 bits")
            lib.call("tessaronParametersSetInt", self._pointer, name, integer)
        else:
            raise TypeError(f"{key} is an int, a float or a text, and no {type(value).__name__}")

    def __delitem__(self, key: str) -> None:
        if key not in self:
            raise KeyError(key)
        lib.call("tessaronParametersErase", self._pointer, lib.bytes_of(key, "key"))

    def __iter__(self) -> Iterator[str]:
        key = ctypes.c_char_p()
        following = ctypes.c_char_p()
        for _ in range(len(self)):
            lib.call("tessaronParametersNext", self._pointer, key, ctypes.byref(following))
            key = ctypes.c_char_p(following.value)
            yield lib.text_of(key.value)

    def __len__(self) -> int:
        return lib.count("tessaronParametersCount", self._pointer)

    def __repr__(self) -> str:
        return f"Parameters({dict(self)!r})"
