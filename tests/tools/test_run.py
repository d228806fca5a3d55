"""./run builds what it starts, opens the right drawing and gets by without a display; .ci/run calls ./check.
The programs that it calls are stand-ins that note their arguments."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(sys.argv.pop(1))

NOTE = '#!/bin/sh\necho "$(basename "$0") $*" >> "$LOG"\n'


class Run(unittest.TestCase):
    def setUp(self):
        self.base = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.base)
        self.root, self.elsewhere = self.base / "project", self.base / "else where"
        for folder in ("tools", "samples", "build/release/bin", ".ci", "bin"):
            (self.root / folder).mkdir(parents=True)
        self.elsewhere.mkdir()
        for name in ("run", ".ci/run"):
            shutil.copy(PROJECT / name, self.root / name)
        self.program("tools/setup.sh")
        self.program("build/release/bin/kest")
        self.program("bin/cmake")
        self.program("check")
        (self.root / "samples/office.dxf").touch()
        (self.root / "build/release/build.ninja").touch()
        (self.elsewhere / "my plan.dxf").touch()

    def program(self, name, body=NOTE):
        path = self.root / name
        path.write_text(body)
        path.chmod(0o755)

    def start(self, *arguments, name="run", display=None):
        environment = {"PATH": f"{self.root}/bin:{os.environ['PATH']}", "LOG": str(self.base / "log")}
        if display:
            environment["DISPLAY"] = display
        command = [self.root / name, *arguments]
        return subprocess.run(command, env=environment, cwd=self.elsewhere, capture_output=True, text=True)

    def log(self):
        path = self.base / "log"
        return path.read_text().splitlines() if path.exists() else []

    BUILD = ["setup.sh ", "cmake --build --preset release --target kest LayerManager"]

    def test_without_a_file_it_opens_a_copy_of_the_sample(self):
        sample, copy = self.root / "samples/office.dxf", self.root / "build/office.dxf"
        sample.write_text("as it came")
        self.assertEqual(self.start(display=":0").returncode, 0)
        self.assertEqual(self.log(), [*self.BUILD, f"kest {copy}"])
        self.assertEqual(copy.read_text(), "as it came")
        copy.write_text("saved")
        self.assertEqual(self.start(display=":0").returncode, 0)
        self.assertEqual((sample.read_text(), copy.read_text()), ("as it came", "saved"))

    def test_a_file_is_looked_for_where_the_caller_stands(self):
        self.assertEqual(self.start("my plan.dxf", display=":0").returncode, 0)
        self.assertEqual(self.log()[-1], f"kest {self.elsewhere}/my plan.dxf")

    def test_an_absolute_path_is_taken_as_it_is(self):
        self.start(str(self.elsewhere / "my plan.dxf"), display=":0")
        self.assertEqual(self.log()[-1], f"kest {self.elsewhere}/my plan.dxf")

    def test_a_missing_file_is_said_before_anything_is_built(self):
        result = self.start("none.dxf", display=":0")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, f"run: there is no file {self.elsewhere}/none.dxf\n")
        self.assertEqual(self.log(), [])

    def test_without_a_display_it_draws_a_picture_and_says_where(self):
        result = self.start("my plan.dxf")
        picture = f"{self.root}/build/release/my plan.png"
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(self.log()[-1], f"kest --screenshot {picture} {self.elsewhere}/my plan.dxf")
        self.assertEqual(
            result.stdout.splitlines(),
            ["run: there is no display; drawing a picture of the window instead.", f"run: the picture is {picture}"],
        )

    def test_it_configures_once(self):
        (self.root / "build/release/build.ninja").unlink()
        self.start(display=":0")
        self.assertEqual(self.log()[1], "cmake --preset release")

    def test_a_failing_build_starts_nothing(self):
        self.program("bin/cmake", NOTE + "exit 1\n")
        self.assertNotEqual(self.start(display=":0").returncode, 0)
        self.assertFalse([line for line in self.log() if line.startswith("kest")])

    def test_continuous_integration_is_the_check_and_nothing_else(self):
        self.assertEqual(self.start(name=".ci/run").returncode, 0)
        self.assertEqual(self.log(), ["check "])


if __name__ == "__main__":
    unittest.main(verbosity=2)
