"""A host in Python: starts a job, watches it without a display, and reads the toolpath."""

import ctypes
import math
import pathlib
import sys


class Record(ctypes.Structure):
    _fields_ = [
        ("kind", ctypes.c_int),
        ("point", ctypes.c_double * 3),
        ("radius", ctypes.c_double),
        ("value", ctypes.c_double),
    ]


RAPID_MOVE, LINEAR_MOVE = 0, 1
FINISHED = 2


def main(libraries: pathlib.Path, sample: str) -> None:
    engine = ctypes.CDLL(str(libraries / "libTessaronEngines.so.1"))
    module = ctypes.CDLL(str(libraries / "libTessaronResources.so.1"))
    engine.tessaronJobStartFile.argtypes = [ctypes.c_char_p, ctypes.c_char_p, ctypes.c_size_t]
    engine.tessaronJobRecordCount.restype = ctypes.c_size_t
    engine.tessaronJobRecord.argtypes = [ctypes.c_int, ctypes.c_size_t, ctypes.POINTER(Record)]
    module.displayProgressDialogForJobId.argtypes = [ctypes.c_int, ctypes.c_char_p]

    text = ctypes.create_string_buffer(512)
    assert engine.tessaronJobStartFile(b"no such file", text, len(text)) < 0
    assert b"no such file" in text.value

    job = engine.tessaronJobStartFile(sample.encode(), text, len(text))
    assert job > 0, text.value
    assert module.displayProgressDialogForJobId(job, "Tasche".encode()) == 1
    assert engine.tessaronJobWait(job, 60000) == FINISHED

    count = engine.tessaronJobRecordCount(job)
    record = Record()
    kinds = []
    for index in range(count):
        assert engine.tessaronJobRecord(job, index, ctypes.byref(record)) == 1
        assert all(math.isfinite(value) for value in record.point)
        kinds.append(record.kind)
    assert RAPID_MOVE in kinds and LINEAR_MOVE in kinds, kinds
    assert engine.tessaronJobRelease(job) == 0
    assert engine.tessaronJobRecordCount(job) == 0


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), sys.argv[2])
