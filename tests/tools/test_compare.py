"""The comparison with other programs runs, and does not measure a program that did not do its work; the benchmarks that
are summed up exist. Arguments: the project, the folder of the built programs."""

import importlib.util
import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

if importlib.util.find_spec("ezdxf") is None:
    print("skipped: python3-ezdxf is not installed")
    sys.exit(77)

PROJECT, PROGRAMS = (Path(argument) for argument in (sys.argv.pop(1), sys.argv.pop(1)))

# Does everything but freeze layers.
LAZY_LAYERMAN = """#!/bin/sh
[ "$1" = set ] || exec "{layerman}" "$@"
while [ "$1" != -o ]; do [ -f "$1" ] && drawing="$1"; shift; done
cp "$drawing" "$2"
"""


def compare(programs):
    return subprocess.run(
        [sys.executable, "-B", PROJECT / "bench/compare/compare.py", "--bin", programs, "--smoke"],
        capture_output=True,
        text=True,
    )


def benchmarks_of(source):
    captured = [f"{name}/{case}" for name, case in re.findall(r"BENCHMARK_CAPTURE\((\w+), (\w+)", source)]
    return re.findall(r"BENCHMARK\((\w+)\)", source) + captured


class Compare(unittest.TestCase):
    def test_every_job_has_a_row_for_each_program_and_size(self):
        result = compare(PROGRAMS)
        self.assertEqual(result.returncode, 0, result.stderr)
        rows = [line.split(" | ") for line in result.stdout.splitlines() if line.startswith("| ") and " MB | " in line]
        for program, jobs in (("layerman", 2), ("python3-ezdxf", 2), ("kest", 1)):
            mine = [row for row in rows if len(row) == 9 and row[3] == program]
            self.assertEqual([row[0] for row in mine], ["| 50", "| 100"] * jobs, result.stdout)
            for row in mine:
                self.assertRegex(row[4], r"^\d+\.\d+ s$")
                self.assertGreater(int(row[6].split()[0]), 0)

    def test_a_program_that_leaves_layers_thawed_is_not_measured(self):
        with tempfile.TemporaryDirectory() as name:
            for program in ("make_drawing", "kest"):
                os.symlink(PROGRAMS / program, Path(name) / program)
            stand_in = Path(name) / "layerman"
            stand_in.write_text(LAZY_LAYERMAN.format(layerman=PROGRAMS / "layerman"))
            stand_in.chmod(0o755)
            result = compare(name)
        self.assertEqual(result.returncode, 1)
        self.assertIn("has other layers, or others of them frozen", result.stderr)
        self.assertNotIn("###", result.stdout.split("without a drawing")[1])


class Headlines(unittest.TestCase):
    def test_every_headline_is_a_benchmark(self):
        sys.path.insert(0, str(PROJECT / "bench/compare"))
        import headlines

        for _, lines in headlines.TABLES:
            for line in lines:
                source = (PROJECT / f"bench/{line.program}.cpp").read_text()
                self.assertIn(line.benchmark, benchmarks_of(source))


if __name__ == "__main__":
    unittest.main()
