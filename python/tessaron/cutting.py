"""Cutting data: the calculator of feeds and speeds, and the option lists of the technology expert."""

from __future__ import annotations

import ctypes
import dataclasses
from typing import NamedTuple

from . import _library as lib


class _CutStructure(ctypes.Structure):
    _fields_ = [
        ("size", ctypes.c_size_t),
        ("metric", ctypes.c_int),
        ("flute_count", ctypes.c_int),
        ("tool_diameter", ctypes.c_double),
        ("depth_of_cut", ctypes.c_double),
        ("surface_speed", ctypes.c_double),
        ("spindle_speed", ctypes.c_double),
        ("feed_per_tooth", ctypes.c_double),
        ("feedrate", ctypes.c_double),
        ("stepover", ctypes.c_double),
        ("chip_thickness", ctypes.c_double),
        ("material_removal_rate", ctypes.c_double),
    ]


@dataclasses.dataclass(frozen=True)
class Cut:
    """The quantities of a milling cut; 0 is an unknown. Millimetres, or inches when not metric."""

    metric: bool = True
    flute_count: int = 0
    tool_diameter: float = 0.0
    """mm or in"""
    depth_of_cut: float = 0.0
    """mm or in"""
    surface_speed: float = 0.0
    """m/min or ft/min"""
    spindle_speed: float = 0.0
    """whole revolutions per minute"""
    feed_per_tooth: float = 0.0
    """mm or in"""
    feedrate: float = 0.0
    """mm/min or in/min"""
    stepover: float = 0.0
    """mm or in"""
    chip_thickness: float = 0.0
    """mm or in: the largest one that a tooth cuts"""
    material_removal_rate: float = 0.0
    """cm^3/min or in^3/min"""

    def calculated(self) -> Cut:
        """The cut with all that can be derived from what is known."""
        plain = _CutStructure(size=ctypes.sizeof(_CutStructure), **dataclasses.asdict(self))
        lib.call("tessaronCutCalculate", ctypes.byref(plain))
        values = {field.name: getattr(plain, field.name) for field in dataclasses.fields(self)}
        return Cut(**{**values, "metric": self.metric})


class _OptionStructure(ctypes.Structure):
    _fields_ = [
        ("size", ctypes.c_size_t),
        ("code", ctypes.c_int),
        ("factor", ctypes.c_double),
        ("text", ctypes.c_char_p),
    ]


class ExpertOption(NamedTuple):
    """A choice: its code, which parameter sets store, its text, and the factor that goes with it."""

    code: int
    text: str
    factor: float


def expert_options(key: str) -> list[ExpertOption]:
    """The choices of a list, by the key that parameter sets store one under, such as "Part Material Type"."""
    name, count = lib.bytes_of(key, "key"), ctypes.c_size_t()
    lib.call("tessaronExpertOptionCount", name, ctypes.byref(count))
    options = []
    for index in range(count.value):
        plain = _OptionStructure(size=ctypes.sizeof(_OptionStructure))
        lib.call("tessaronExpertOption", name, lib.size(index), ctypes.byref(plain))
        options.append(ExpertOption(plain.code, lib.text_of(plain.text), plain.factor))
    return options
