"""Operation templates: named parameter sets in folders."""

from __future__ import annotations

import ctypes
import os
from collections.abc import Mapping
from typing import NamedTuple

from . import _library as lib
from .parameters import Parameters, Value


class FaultyFile(NamedTuple):
    """A file of a template folder that does not read as a template, and the status that tells why."""

    path: str
    status: int


class TemplateFolder:
    """A folder of templates. It need not exist: reading finds nothing, saving makes it."""

    def __init__(self, path: str | os.PathLike[str]) -> None:
        self.path = os.fspath(path)
        self._folder = lib.bytes_of(path, "path")

    def _list(self) -> lib.Handle:
        handle = lib.Handle("tessaronTemplatesFree")
        handle.adopt("tessaronTemplatesList", self._folder)
        return handle

    def templates(self) -> dict[str, Parameters]:
        """The templates by name, in ascending order; changing one changes no file."""
        handle = self._list()
        found = {}
        for index in range(lib.count("tessaronTemplatesCount", handle.pointer)):
            pointer = ctypes.c_void_p()
            lib.call("tessaronTemplatesAt", handle.pointer, lib.size(index), ctypes.byref(pointer))
            parameters = Parameters._of(pointer, handle)
            found[str(parameters["Template Name"])] = parameters
        return found

    def faulty_files(self) -> list[FaultyFile]:
        """The files that are passed over."""
        handle = self._list()
        found = []
        for index in range(lib.count("tessaronTemplatesFaultCount", handle.pointer)):
            path, status = ctypes.c_char_p(), ctypes.c_int()
            lib.call(
                "tessaronTemplatesFault", handle.pointer, lib.size(index), ctypes.byref(path), ctypes.byref(status)
            )
            found.append(FaultyFile(lib.text_of(path.value), status.value))
        return found

    def save(self, name: str, values: Mapping[str, Value], overwrite: bool = False) -> Parameters:
        """Saves values as a template; returns what was stored, with guid, version and dates."""
        stored = Parameters(values)
        lib.call("tessaronTemplateSave", self._folder, lib.bytes_of(name, "name"), int(overwrite), stored._pointer)
        return stored

    def delete(self, name: str) -> None:
        lib.call("tessaronTemplateDelete", self._folder, lib.bytes_of(name, "name"))

    def free_name(self, prefix: str) -> str:
        """A name that no template has: the prefix and the first free number."""
        return lib.read_text("tessaronTemplateFreeName", self._folder, lib.bytes_of(prefix, "prefix"))
