"""./check runs its stages in order and stops at the first failure. The programs that it calls are stand-ins
that note their arguments."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(sys.argv.pop(1))

NOTE = '#!/bin/sh\necho "$(basename "$0") $*" >> "$LOG"\n'


FLAGS = "-DKEST_QUICK=ON -DCMAKE_CXX_FLAGS_DEBUG="
LINKER = "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=mold -DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=mold"


class Check(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)
        shutil.copy(PROJECT / "check", self.root)
        for name in ("tools/setup.sh", "bin/cmake", "bin/ctest", "bin/ld.mold"):
            self.program(name)
        self.program("bin/nproc", "#!/bin/sh\necho 2\n")

    def file(self, name):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.touch()
        return path

    def program(self, name, body=NOTE):
        path = self.file(name)
        path.write_text(body)
        path.chmod(0o755)

    def check(self):
        environment = {"PATH": f"{self.root}/bin:{os.environ['PATH']}", "LOG": str(self.root / "log")}
        return subprocess.run([self.root / "check"], env=environment, cwd="/", capture_output=True, text=True)

    def log(self):
        return (self.root / "log").read_text().splitlines()

    def test_the_stages_come_in_order(self):
        result = self.check()
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(
            self.log(),
            [
                "setup.sh ",
                f"cmake --preset dev {FLAGS}-g1 {LINKER}",
                "cmake --build --preset dev -j 2",
                "ctest --preset dev -j 2 -LE sanitize",
                f"cmake --preset asan {FLAGS}-O1 -g1 {LINKER}",
                "cmake --build build/asan -j 2 --target sanitized_tests fuzzers",
                "ctest --test-dir build/asan -L sanitize -j 2 --output-on-failure",
            ],
        )
        self.assertIn("== All passed", result.stdout)

    def test_what_is_configured_is_not_configured_again(self):
        for preset in ("dev", "asan"):
            self.file(f"build/{preset}/build.ninja")
        self.check()
        self.assertEqual([line for line in self.log() if line.startswith("cmake --preset")], [])

    def test_a_failing_test_ends_it(self):
        self.program("bin/ctest", NOTE + "exit 8\n")
        result = self.check()
        self.assertEqual(result.returncode, 8)
        self.assertNotIn("All passed", result.stdout)
        self.assertEqual(self.log()[-1], "ctest --preset dev -j 2 -LE sanitize")

    def test_every_fuzzer_runs_over_its_seeds(self):
        for name in ("one", "two"):
            self.file(f"fuzz/{name}.cpp")
            self.program(f"build/asan/fuzz/{name}")
        self.file("fuzz/corpus/two/seed")
        result = self.check()
        self.assertEqual(result.returncode, 0, result.stderr)
        first, second = sorted(self.log()[-2:])  # they run at the same time
        self.assertRegex(first, r"^one -seed=1 .*-max_total_time=30 .* \S+/one$")
        self.assertRegex(second, r"^two -seed=1 .* \S+/two fuzz/corpus/two$")

    def test_what_a_fuzzer_found_is_shown_and_fails(self):
        self.file("fuzz/one.cpp")
        self.program("build/asan/fuzz/one", "#!/bin/sh\necho 'heap-buffer-overflow' >&2\nexit 77\n")
        result = self.check()
        self.assertEqual(result.returncode, 1)
        self.assertIn("heap-buffer-overflow", result.stdout)
        self.assertIn("check: the fuzzer one found a failure; its input is build/asan/one-*", result.stderr)


if __name__ == "__main__":
    unittest.main(verbosity=2)
