"""A host in Python: starts a job, watches it without a display, and reads the toolpath."""

import ctypes
import math
import pathlib
import sys


class Record(ctypes.Structure):
    _fields_ = [(name, ctypes.c_double) for name in ("kind", "x", "y", "z", "radius", "value")]


class Error(ctypes.Structure):
    _fields_ = [("status", ctypes.c_int), *((name, ctypes.c_char_p) for name in ("text", "file", "field"))]


class JobInfo(ctypes.Structure):
    _fields_ = [
        ("size", ctypes.c_size_t),
        ("state", ctypes.c_int),
        ("status", ctypes.c_int),
        ("percent", ctypes.c_double),
        *((name, ctypes.c_size_t) for name in ("workers", "findings", "records")),
    ]


RAPID_MOVE, LINEAR_MOVE = 0, 1
FINISHED = 2
READ_ERROR = -1905


def main(libraries: pathlib.Path, sample: str) -> None:
    engine = ctypes.CDLL(str(libraries / "libTessaronEngines.so.1"))
    module = ctypes.CDLL(str(libraries / "libTessaronResources.so.1"))
    engine.tessaronLastError.restype = ctypes.POINTER(Error)
    engine.tessaronInputFree.argtypes = [ctypes.c_void_p]
    engine.tessaronJobStart.argtypes = [ctypes.c_void_p, ctypes.POINTER(ctypes.c_int)]
    engine.tessaronJobRecords.argtypes = [ctypes.c_int, ctypes.c_size_t, ctypes.c_size_t, ctypes.POINTER(Record)]
    module.displayProgressDialogForJobId.argtypes = [ctypes.c_int, ctypes.c_char_p]

    part = ctypes.c_void_p()
    assert engine.tessaronInputRead(b"no such file", ctypes.byref(part)) == READ_ERROR
    assert engine.tessaronLastError().contents.file == b"no such file"

    assert engine.tessaronInputRead(sample.encode(), ctypes.byref(part)) == 0
    job, state = ctypes.c_int(), ctypes.c_int()
    assert engine.tessaronJobStart(part, ctypes.byref(job)) == 0
    engine.tessaronInputFree(part)
    assert module.displayProgressDialogForJobId(job, "Tasche".encode()) == 1
    assert engine.tessaronJobWait(job, 60000, ctypes.byref(state)) == 0
    assert state.value == FINISHED

    info = JobInfo(size=ctypes.sizeof(JobInfo))
    assert engine.tessaronJobQuery(job, ctypes.byref(info)) == 0
    records = (Record * info.records)()
    assert engine.tessaronJobRecords(job, 0, info.records, records) == 0
    assert all(math.isfinite(getattr(record, name)) for record in records for name in ("x", "y", "z"))
    kinds = {int(record.kind) for record in records}
    assert {RAPID_MOVE, LINEAR_MOVE} <= kinds, kinds
    assert engine.tessaronJobRelease(job) == 0
    assert engine.tessaronJobQuery(job, ctypes.byref(info)) != 0


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), sys.argv[2])
