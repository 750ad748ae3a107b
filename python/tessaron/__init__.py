"""CNC toolpath generation: parameter sets, pocketing jobs, toolpaths, operation templates and cutting data.

    import tessaron

    part = tessaron.Input()
    part.add_polyline(tessaron.STOCK, [(0, 0), (100, 0), (100, 80), (0, 80)], closed=True)
    part.add_polyline(tessaron.PART, [(0, 0), (100, 0), (100, 80), (0, 80)], closed=True)
    part.add_polyline(tessaron.PART, [(20, 20), (80, 20), (80, 60), (20, 60)], closed=True)
    part.parameters.update({"Tool Diameter": 6.0, "Stepover": 2.4, "Z Depth": -5.0, "Rapid Plane Z": 10.0})
    with tessaron.Job(part) as job:
        toolpath = job.result()
    toolpath.write_gcode("pocket.ngc")

Lengths are in the unit of the part, angles in radians. Everything that fails raises tessaron.Error, or ValueError for a
bad argument and KeyError for a key that is not there. Waiting lets other Python threads run.
"""

from ._library import Error, __version__
from .cutting import Cut, ExpertOption, expert_options
from .inputs import PART, STOCK, Finding, Input
from .jobs import Job, JobState
from .parameters import Parameters, Value
from .templates import FaultyFile, TemplateFolder
from .toolpaths import Record, RecordKind, Toolpath

__all__ = [
    "Cut",
    "Error",
    "ExpertOption",
    "FaultyFile",
    "Finding",
    "Input",
    "Job",
    "JobState",
    "PART",
    "Parameters",
    "Record",
    "RecordKind",
    "STOCK",
    "TemplateFolder",
    "Toolpath",
    "Value",
    "__version__",
    "expert_options",
]
