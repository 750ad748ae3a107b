"""Toolpaths."""

from __future__ import annotations

import ctypes
import enum
import os
from collections.abc import Iterable, Mapping, Sequence
from typing import TYPE_CHECKING, Any, NamedTuple, overload

from . import _library as lib

if TYPE_CHECKING:
    import numpy
    import numpy.typing


class RecordKind(enum.IntEnum):
    """Kinds of records."""

    RAPID_MOVE = 0
    LINEAR_MOVE = 1
    ARC_COUNTER_CLOCKWISE = 2
    ARC_CLOCKWISE = 3
    FEED_RATE = 4
    SPINDLE_SPEED = 5
    CUSTOM = 6
    TOOL_AXIS = 7


class _RecordStructure(ctypes.Structure):
    _fields_ = [(name, ctypes.c_double) for name in ("kind", "x", "y", "z", "radius", "value")]


class Record(NamedTuple):
    """One record. Values that the kind does not have are 0; a move has its end only."""

    kind: RecordKind
    x: float = 0.0
    y: float = 0.0
    z: float = 0.0
    radius: float = 0.0
    """Of an arc; negative for the one of more than half a turn."""
    value: float = 0.0
    """The feed rate or the spindle speed."""


class Toolpath(Sequence[Record]):
    """Records in the order in which the machine executes them."""

    def __init__(self, records: Iterable[Record | str] = ()) -> None:
        self._create("tessaronToolpathCreate")
        for record in records:
            self.append(record)

    def _create(self, function: str, *arguments: object) -> None:
        self._handle = lib.Handle("tessaronToolpathFree")
        self._handle.adopt(function, *arguments)

    @classmethod
    def _made(cls, function: str, *arguments: object) -> Toolpath:
        toolpath = cls.__new__(cls)
        toolpath._create(function, *arguments)
        return toolpath

    @classmethod
    def read(cls, path: str | os.PathLike[str]) -> Toolpath:
        """Reads a toolpath from an XML archive."""
        return cls._made("tessaronToolpathRead", lib.bytes_of(path, "path"))

    def write(self, path: str | os.PathLike[str]) -> None:
        """Writes the toolpath into an XML archive, whole or not at all."""
        lib.call("tessaronToolpathWrite", self._handle.pointer, lib.bytes_of(path, "path"))

    def write_gcode(self, path: str | os.PathLike[str], settings: Mapping[str, object] = {}) -> None:
        """Writes the toolpath as G-code; the settings of the control by name, such as {"units": "inch", "tool": 3}."""
        texts = [lib.bytes_of(str(text)) for pair in settings.items() for text in pair]
        pairs = (ctypes.c_char_p * (len(texts) + 1))(*texts)
        lib.call("tessaronToolpathWriteGcode", self._handle.pointer, lib.bytes_of(path, "path"), pairs)

    def append(self, record: Record | str) -> None:
        """Appends a record; a text becomes a custom record. The toolpath of a job cannot be changed."""
        if isinstance(record, str):
            lib.call("tessaronToolpathAppendText", self._handle.pointer, lib.bytes_of(record))
        else:
            plain = _RecordStructure(*record)
            lib.call("tessaronToolpathAppend", self._handle.pointer, ctypes.byref(plain), lib.size(1))

    def text(self, index: int) -> str:
        """The text of a custom record."""
        return lib.read_text("tessaronToolpathText", self._handle.pointer, lib.size(range(len(self))[index]))

    def table(self) -> numpy.typing.NDArray[numpy.float64]:
        """All records as an array of len(self) rows: kind, x, y, z, radius, value. Needs numpy."""
        import numpy

        table = numpy.empty((len(self), 6))
        pointer = table.ctypes.data_as(ctypes.c_void_p)
        lib.call("tessaronToolpathRecords", self._handle.pointer, lib.size(0), lib.size(len(table)), pointer)
        return table

    def __len__(self) -> int:
        return lib.count("tessaronToolpathCount", self._handle.pointer)

    @overload
    def __getitem__(self, index: int) -> Record: ...
    @overload
    def __getitem__(self, index: slice) -> list[Record]: ...
    def __getitem__(self, index: int | slice) -> Record | list[Record]:
        wanted: Any = range(len(self))[index]
        if isinstance(wanted, int):
            return self._records(wanted, 1)[0]
        if wanted.step == 1:
            return self._records(wanted.start, len(wanted))
        return [self._records(number, 1)[0] for number in wanted]

    def __iter__(self) -> Any:
        return iter(self._records(0, len(self)))

    def _records(self, first: int, count: int) -> list[Record]:
        plain = (_RecordStructure * count)()
        lib.call("tessaronToolpathRecords", self._handle.pointer, lib.size(first), lib.size(count), plain)
        return [Record(RecordKind(int(p.kind)), p.x, p.y, p.z, p.radius, p.value) for p in plain]
