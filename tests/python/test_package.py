"""The Python package as its users call it."""

import asyncio
import gc
import math
import pathlib
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import tessaron

try:
    import numpy
except ImportError:
    numpy = None

BLOCK = [(0, 0), (100, 0), (100, 80), (0, 80)]
POCKET = [(20, 20), (80, 20), (80, 60), (20, 60)]


def pocket(**parameters):
    part = tessaron.Input()
    for boundary, points in ((tessaron.STOCK, BLOCK), (tessaron.PART, BLOCK), (tessaron.PART, POCKET)):
        part.add_polyline(boundary, points, closed=True)
    part.parameters.update(
        {
            "Tool Diameter": 6.0,
            "Stepover": 2.4,
            "Depth of Cut": 3.0,
            "Top Material Z": 0.0,
            "Z Depth": -5.0,
            "Rapid Plane Z": 10.0,
            "Feedrate": 400.0,
            "Spindle Speed": 9000,
            "Cut Tolerance": 0.02,
            **parameters,
        }
    )
    return part


class ParametersTest(unittest.TestCase):
    def test_behave_as_a_mapping_that_keeps_kinds(self):
        values = tessaron.Parameters({"Feedrate": 800.0, "Tool Num Flutes": 4}, Name="Fräsen")
        self.assertEqual(list(values), ["Feedrate", "Name", "Tool Num Flutes"])
        self.assertEqual(dict(values), {"Feedrate": 800.0, "Name": "Fräsen", "Tool Num Flutes": 4})
        self.assertIsInstance(values["Tool Num Flutes"], int)
        del values["Name"]
        self.assertNotIn("Name", values)
        self.assertNotIn("", values)
        for missing in (lambda: values["Name"], lambda: values.pop("Name")):
            with self.assertRaises(KeyError):
                missing()
        for fault, value in ((TypeError, None), (OverflowError, 2**31), (ValueError, "a\0b")):
            with self.assertRaises(fault):
                values["x"] = value
        self.assertEqual(len(values), 2)

    def test_keep_bytes_that_are_no_text(self):
        values = tessaron.Parameters({"Name": b"Fr\xe4sen".decode("utf-8", "surrogateescape")})
        self.assertEqual(values["Name"].encode("utf-8", "surrogateescape"), b"Fr\xe4sen")

    def test_come_back_from_a_file(self):
        with tempfile.TemporaryDirectory() as folder:
            for form in ("xml", "binary"):
                path = pathlib.Path(folder, form)
                tessaron.Parameters({"Feedrate": 0.1}).write(path, form)
                self.assertEqual(dict(tessaron.Parameters.read(path)), {"Feedrate": 0.1})
            with self.assertRaises(ValueError):
                tessaron.Parameters().write(path, "json")


class InputTest(unittest.TestCase):
    def test_says_what_is_wrong(self):
        part = pocket()
        del part.parameters["Tool Diameter"]
        with self.assertRaises(tessaron.Error) as raised:
            part.check()
        self.assertEqual((raised.exception.status, raised.exception.field), (-1012, "Tool Diameter"))
        with self.assertRaises(tessaron.Error) as raised:
            tessaron.Input.read("/no/such/part.xml")
        self.assertEqual(raised.exception.file, "/no/such/part.xml")
        for call in (
            lambda: part.add_line(tessaron.PART, (0, 0), (1, math.nan)),
            lambda: part.add_circle(tessaron.PART, (0, 0), -1),
            lambda: part.add_polyline(7, POCKET),
            lambda: part.add_polyline(tessaron.PART, [(1, 2, 3), (4, 5, 6)]),
            lambda: part.add_spline(tessaron.PART, POCKET, [0, 0, 0, 0, 1, 1, 1, 1], [1, 1]),
        ):
            with self.assertRaises(ValueError):
                call()

    def test_its_parameters_keep_it_alive(self):
        parameters = pocket().parameters
        gc.collect()
        self.assertEqual(parameters["Stepover"], 2.4)

    def test_tells_what_will_not_be_used(self):
        found = pocket(**{"Feed rate": 3.0}).check()
        self.assertEqual([(finding.field, finding.place) for finding in found], [("Feed rate", None)])


class JobTest(unittest.TestCase):
    def test_makes_a_toolpath_that_outlives_it(self):
        percents = []
        with tessaron.Job(pocket()) as job:
            toolpath = job.result(percents.append)
        self.assertEqual(percents[-1], 100)
        kinds = {record.kind for record in toolpath}
        self.assertLessEqual({tessaron.RecordKind.RAPID_MOVE, tessaron.RecordKind.LINEAR_MOVE}, kinds)
        self.assertEqual(min(record.z for record in toolpath), -5)
        self.assertEqual(toolpath[-1], toolpath[len(toolpath) - 1])
        self.assertEqual(toolpath[2:4], [toolpath[2], toolpath[3]])
        with self.assertRaises(IndexError):
            toolpath[len(toolpath)]
        with self.assertRaises(tessaron.Error):
            job.percent
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "toolpath.xml")
            toolpath.write(path)
            self.assertEqual(list(tessaron.Toolpath.read(path)), list(toolpath))
            toolpath.write_gcode(path, {"units": "inch", "tool": 3})
            self.assertIn("G20", path.read_text())
            with self.assertRaises(ValueError):
                toolpath.write_gcode(path, {"colour": "red"})

    @unittest.skipIf(numpy is None, "numpy is not installed")
    def test_toolpath_as_a_table(self):
        with tessaron.Job(pocket()) as job:
            toolpath = job.result()
        table = toolpath.table()
        self.assertEqual(table.shape, (len(toolpath), 6))
        self.assertEqual(tuple(table[-1]), tuple(toolpath[-1]))

    def test_failure_has_status_and_field(self):
        with tessaron.Job(pocket(**{"Tool Diameter": 0.0})) as job, self.assertRaises(tessaron.Error) as raised:
            job.result()
        self.assertEqual(raised.exception.field, "Tool Diameter")

    def test_coroutines_go_on_meanwhile(self):
        async def run():
            turns = 0

            async def count():
                nonlocal turns
                while True:
                    turns += 1
                    await asyncio.sleep(0)

            other = asyncio.create_task(count())
            with tessaron.Job(pocket()) as job:
                toolpath = await job.finished()
            other.cancel()
            return turns, len(toolpath)

        turns, records = asyncio.run(run())
        self.assertGreater(turns, 1)
        self.assertGreater(records, 0)

    def test_waiting_lets_other_threads_run_and_cancel(self):
        with tessaron.Job(pocket(Stepover=0.02)) as job:
            other = threading.Thread(target=job.cancel)
            other.start()
            state = job.wait()
            other.join()
        self.assertEqual(state, tessaron.JobState.CANCELLED)

    def test_a_running_job_does_not_keep_the_interpreter(self):
        script = "import sys; sys.path.insert(0, sys.argv[1]); import test_package as t; t.tessaron.Job(t.pocket(Stepover=0.02))"
        begin = time.monotonic()
        subprocess.run([sys.executable, "-c", script, str(pathlib.Path(__file__).parent)], check=True, timeout=60)
        self.assertLess(time.monotonic() - begin, 30)


class ToolpathTest(unittest.TestCase):
    def test_is_built_from_records_and_texts(self):
        feed = tessaron.Record(tessaron.RecordKind.FEED_RATE, value=400.0)
        arc = tessaron.Record(tessaron.RecordKind.ARC_CLOCKWISE, 1.0, 2.0, 3.0, radius=-4.0)
        toolpath = tessaron.Toolpath([feed, arc, "M0"])
        self.assertEqual(toolpath[:2], [feed, arc])
        self.assertEqual(toolpath.text(-1), "M0")
        with self.assertRaises(tessaron.Error):
            toolpath.text(0)
        with self.assertRaises(ValueError):
            toolpath.append(arc._replace(z=math.inf))


class TemplateTest(unittest.TestCase):
    def test_are_saved_listed_and_deleted(self):
        with tempfile.TemporaryDirectory() as path:
            folder = tessaron.TemplateFolder(path)
            stored = folder.save('1/4" rough', {"Feedrate": 900.0})
            self.assertIn("Template Guid", stored)
            with self.assertRaises(tessaron.Error) as raised:
                folder.save('1/4" rough', {"Feedrate": 1.0})
            self.assertEqual(raised.exception.status, -1045)
            folder.save(folder.free_name("Finish "), {})
            pathlib.Path(path, "broken.vtmpl").write_text("<")
            self.assertEqual(list(folder.templates()), ['1/4" rough', "Finish 1"])
            self.assertEqual([file.status for file in folder.faulty_files()], [-1041])
            folder.delete("Finish 1")
            self.assertEqual(folder.templates()['1/4" rough']["Feedrate"], 900.0)


class CuttingTest(unittest.TestCase):
    def test_calculator(self):
        cut = tessaron.Cut(flute_count=4, tool_diameter=10, surface_speed=100, feed_per_tooth=0.05).calculated()
        self.assertEqual(cut.spindle_speed, 3183)
        self.assertAlmostEqual(cut.feedrate, 636.6)

    def test_lists(self):
        materials = tessaron.expert_options("Part Material Type")
        self.assertEqual(len({option.code for option in materials}), len(materials))
        self.assertTrue(all(option.text for option in materials))
        with self.assertRaises(tessaron.Error):
            tessaron.expert_options("Colours")


if __name__ == "__main__":
    unittest.main()
