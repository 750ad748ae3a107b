"""Toolpath jobs."""

from __future__ import annotations

import asyncio
import ctypes
import enum
import os
import time
from collections.abc import Callable
from typing import Optional

from . import _library as lib
from .inputs import Finding, Input, read_finding
from .toolpaths import Toolpath


class JobState(enum.IntEnum):
    """States of a job."""

    RUNNING = 1
    FINISHED = 2
    FAILED = 3
    CANCELLED = 4


class _Info(ctypes.Structure):
    _fields_ = [
        ("size", ctypes.c_size_t),
        ("state", ctypes.c_int),
        ("status", ctypes.c_int),
        ("percent", ctypes.c_double),
        ("worker_count", ctypes.c_size_t),
        ("finding_count", ctypes.c_size_t),
        ("record_count", ctypes.c_size_t),
    ]


class Job:
    """A toolpath job on the engine's threads. It starts at once; leaving its `with` block cancels and forgets it.

    `id` is what windows take, such as displayProgressDialogForJobId.
    """

    def __init__(self, part: Input) -> None:
        job = ctypes.c_int()
        lib.call("tessaronJobStart", part._pointer, ctypes.byref(job))
        self.id = job.value

    def __enter__(self) -> Job:
        return self

    def __exit__(self, *_: object) -> None:
        self.release()

    def _info(self) -> _Info:
        info = _Info(size=ctypes.sizeof(_Info))
        lib.call("tessaronJobQuery", self.id, ctypes.byref(info))
        return info

    @property
    def state(self) -> JobState:
        return JobState(self._info().state)

    @property
    def percent(self) -> float:
        """0 to 100; never falls while the job runs."""
        return float(self._info().percent)

    @property
    def findings(self) -> list[Finding]:
        """Of a finished job: what was set and not used, and what was left out."""
        return [read_finding("tessaronJobFinding", self.id, index) for index in range(self._info().finding_count)]

    def wait(self, seconds: Optional[float] = None) -> JobState:
        """Waits until the job has ended, or for so many seconds. Ctrl+C gets through."""
        end = None if seconds is None else time.monotonic() + seconds
        state = ctypes.c_int()
        while True:
            left = 0.1 if end is None else min(0.1, max(0.0, end - time.monotonic()))
            lib.call("tessaronJobWait", self.id, int(left * 1000), ctypes.byref(state))
            if state.value != JobState.RUNNING or (end is not None and time.monotonic() >= end):
                return JobState(state.value)

    def result(self, progress: Optional[Callable[[float], object]] = None) -> Toolpath:
        """Waits for the toolpath, and tells `progress` the percentage meanwhile, some ten times a second.

        Raises tessaron.Error, with status and field, when the job fails or is cancelled.
        """
        while self.wait(0.1) == JobState.RUNNING:
            if progress is not None:
                progress(self.percent)
        info = self._info()
        if info.state != JobState.FINISHED:
            text, field = ctypes.c_char_p(), ctypes.c_char_p()
            lib.call("tessaronJobFailure", self.id, ctypes.byref(text), ctypes.byref(field))
            raise lib.Error(lib.text_of(text.value), info.status, "", lib.text_of(field.value))
        if progress is not None:
            progress(info.percent)
        return Toolpath._made("tessaronJobToolpath", self.id)

    def open_descriptor(self) -> int:
        """A file descriptor that is readable as soon as the job has ended: for select, or asyncio's add_reader.

        The caller closes it by os.close.
        """
        descriptor = ctypes.c_int()
        lib.call("tessaronJobDescriptor", self.id, ctypes.byref(descriptor))
        return descriptor.value

    async def finished(self, progress: Optional[Callable[[float], object]] = None) -> Toolpath:
        """result() for a coroutine: the event loop goes on while the job runs."""
        loop = asyncio.get_running_loop()
        ended = asyncio.Event()
        descriptor = self.open_descriptor()
        loop.add_reader(descriptor, ended.set)
        try:
            while not ended.is_set():
                if progress is not None:
                    progress(self.percent)
                try:
                    await asyncio.wait_for(ended.wait(), 0.1)
                except asyncio.TimeoutError:
                    pass
        finally:
            loop.remove_reader(descriptor)
            os.close(descriptor)
        return self.result(progress)

    def cancel(self) -> None:
        """Asks the job to stop; does nothing to one that has ended."""
        lib.call("tessaronJobCancel", self.id)

    def release(self) -> None:
        """Forgets the job, after cancelling it when it still runs; toolpaths stay. Twice does no harm."""
        lib.library.tessaronJobRelease(self.id)
