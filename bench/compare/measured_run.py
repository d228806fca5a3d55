"""One run of a program: how long it took and how much memory it had at most."""

import os
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path

import contenders

LAUNCHER = Path(__file__).resolve().parent / "launcher.py"
# Programs find no display.
ENVIRONMENT = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LANG": "C.UTF-8", "TZ": "UTC"}


@dataclass
class Run:
    seconds: float  # of the clock on the wall, from the start until the process is gone
    cpu_seconds: float  # of all its threads; what else the machine does hardly changes them
    peak_megabytes: float  # of resident memory, 1 MB = 1,000,000 bytes
    status: int
    complaint: str  # the last line of standard error


def measure(command, output, limit):
    """The run, or None where it took more CPU time than `limit` seconds. `output`, a path or None: what it prints."""
    with tempfile.NamedTemporaryFile(mode="r", errors="replace") as errors:
        words = [str(word) for word in (limit, output or os.devnull, errors.name, *command)]
        launched = subprocess.run(
            [contenders.PYTHON, "-I", "-S", LAUNCHER, *words], env=ENVIRONMENT, stdout=subprocess.PIPE, check=True
        )
        complaint = errors.read().strip().splitlines()[-1:]
    seconds, cpu_seconds, peak, status = launched.stdout.split()
    if status == b"late":
        return None
    return Run(float(seconds), float(cpu_seconds), int(peak) / 1e6, int(status), "".join(complaint))
