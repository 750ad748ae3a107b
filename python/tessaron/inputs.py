"""Inputs of pocketing jobs."""

from __future__ import annotations

import ctypes
import os
from collections.abc import Iterable, Sequence
from typing import NamedTuple, Optional, Tuple

from . import _library as lib
from .parameters import Parameters, format_number

PART = 0
"""Curves that bound the finished part: material that must stay."""
STOCK = 1
"""Curves that bound the stock: material that may be removed."""

Point = Sequence[float]


class FindingStructure(ctypes.Structure):
    _fields_ = [
        ("size", ctypes.c_size_t),
        ("status", ctypes.c_int),
        ("has_place", ctypes.c_int),
        ("x", ctypes.c_double),
        ("y", ctypes.c_double),
        ("field", ctypes.c_char_p),
        ("text", ctypes.c_char_p),
    ]


class Finding(NamedTuple):
    """Something that an input asks for and a job does not do, or that the user should look at."""

    status: int
    field: str
    text: str
    place: Optional[Tuple[float, float]]


def read_finding(function: str, of: object, index: int) -> Finding:
    found = FindingStructure(size=ctypes.sizeof(FindingStructure))
    lib.call(function, of, lib.size(index), ctypes.byref(found))
    place = (found.x, found.y) if found.has_place else None
    return Finding(found.status, lib.text_of(found.field), lib.text_of(found.text), place)


def _doubles(values: Iterable[float]) -> ctypes.Array[ctypes.c_double]:
    flat = [float(value) for value in values]
    return (ctypes.c_double * len(flat))(*flat)


def _points(points: Iterable[Point], name: str) -> tuple[ctypes.Array[ctypes.c_double], ctypes.c_size_t]:
    listed = [tuple(point) for point in points]
    if any(len(point) != 2 for point in listed):
        raise ValueError(f"each of the {name} has two coordinates")
    return _doubles(value for point in listed for value in point), lib.size(len(listed))


class Input:
    """The input of a 2-D pocketing job: outlines of part and stock, holes to enter by, machining parameters.

    An outline is made of curves that meet end to end, in any order and direction, or of one closed curve.
    """

    def __init__(self) -> None:
        self._create("tessaronInputCreate")

    def _create(self, function: str, *arguments: object) -> None:
        self._handle = lib.Handle("tessaronInputFree")
        self._handle.adopt(function, *arguments)

    @classmethod
    def read(cls, path: str | os.PathLike[str]) -> Input:
        """Reads an input from an archive file, XML or binary."""
        made = cls.__new__(cls)
        made._create("tessaronInputRead", lib.bytes_of(path, "path"))
        return made

    def write(self, path: str | os.PathLike[str], format: str = "xml") -> None:
        """Writes the input into an archive file, whole or not at all; format: "xml" or "binary"."""
        lib.call("tessaronInputWrite", self._pointer, lib.bytes_of(path, "path"), format_number(format))

    def copy(self) -> Input:
        made = Input.__new__(Input)
        made._create("tessaronInputCopy", self._pointer)
        return made

    @property
    def _pointer(self) -> ctypes.c_void_p:
        return self._handle.pointer

    @property
    def parameters(self) -> Parameters:
        """The machining parameters; changing them changes the input."""
        function = lib.library.tessaronInputParameters
        function.restype = ctypes.c_void_p
        return Parameters._of(ctypes.c_void_p(function(self._pointer)), self)

    def add_line(self, boundary: int, start: Point, end: Point) -> None:
        """Adds a straight line."""
        lib.call("tessaronInputAddLine", self._pointer, boundary, _points([start], "points")[0], _points([end], "points")[0])

    def add_polyline(self, boundary: int, points: Iterable[Point], closed: bool = False) -> None:
        """Adds straight lines through points, and with `closed` back to the first."""
        lib.call("tessaronInputAddPolyline", self._pointer, boundary, *_points(points, "points"), int(closed))

    def add_arc(self, boundary: int, center: Point, radius: float, start_angle: float, end_angle: float) -> None:
        """Adds an arc from one angle to another: counter-clockwise when the end angle is the greater one."""
        lib.call(
            "tessaronInputAddArc",
            self._pointer,
            boundary,
            _points([center], "points")[0],
            lib.real(radius),
            lib.real(start_angle),
            lib.real(end_angle),
        )

    def add_circle(self, boundary: int, center: Point, radius: float) -> None:
        """Adds a full circle."""
        self.add_arc(boundary, center, radius, 0.0, 6.283185307179586)

    def add_spline(
        self,
        boundary: int,
        control_points: Iterable[Point],
        knots: Iterable[float],
        weights: Optional[Iterable[float]] = None,
    ) -> None:
        """Adds a B-spline curve of degree len(knots) - len(control_points) - 1, rational when it has weights."""
        points, count = _points(control_points, "control points")
        knot_list = _doubles(knots)
        weight_list = None if weights is None else _doubles(weights)
        if weight_list is not None and len(weight_list) != count.value:
            raise ValueError("there is one weight for each control point")
        lib.call(
            "tessaronInputAddSpline", self._pointer, boundary, points, count, knot_list, lib.size(len(knot_list)), weight_list
        )

    def clear(self, boundary: int) -> None:
        """Removes all curves of a boundary."""
        lib.call("tessaronInputClear", self._pointer, boundary)

    def add_hole(self, center: Point, usable_depth: float, through: bool = False) -> None:
        """Adds a hole that is drilled already, to enter by."""
        lib.call(
            "tessaronInputAddHole", self._pointer, _points([center], "points")[0], lib.real(usable_depth), int(through)
        )

    def set_holder_profile(self, points: Iterable[Point]) -> None:
        """Sets the outline of the tool holder: radius and height of each point."""
        lib.call("tessaronInputSetHolderProfile", self._pointer, *_points(points, "points"))

    def check(self) -> list[Finding]:
        """Checks what can be checked without computing.

        Returns what is set and will not be used; raises tessaron.Error, with the field, for what a job would refuse.
        """
        lib.call("tessaronInputCheck", self._pointer)
        found = range(lib.count("tessaronInputFindingCount", self._pointer))
        return [read_finding("tessaronInputFinding", self._pointer, index) for index in found]
