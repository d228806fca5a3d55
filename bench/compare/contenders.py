"""Who is measured at what, and what must come out."""

import csv
import subprocess
import sys
from dataclasses import dataclass, field
from pathlib import Path
from typing import Callable

import layer_table
from wrong_result import WrongResult

HERE = Path(__file__).resolve().parent
# Debian's Python is the one that has Debian's ezdxf.
PYTHON = "/usr/bin/python3" if Path("/usr/bin/python3").exists() else sys.executable
COLUMNS = ["name", "on", "freeze", "locked", "linetype"]
# Layer 0 is the current one and holds no dash: no rule refuses any of these.
HALF_OF_THE_LAYERS = "*-*[02468]"


@dataclass(frozen=True)
class Job:
    name: str
    title: str
    check: Callable[[Path, Path], None]  # drawing, output; raises WrongResult
    prints: bool = False  # the output is standard output


@dataclass(eq=False)
class Rival:
    title: str
    suffix: str  # of what it writes beside the drawing
    commands: dict  # by name of a job, the arguments; {in} and {out} stand for paths
    version: Callable[[], str]
    start_up_command: list = None  # starts all that the jobs need, and ends
    start_up: float = field(default=0.0, init=False)  # CPU seconds, once measured

    def command(self, job, drawing, output):
        return [str(word).format(**{"in": drawing, "out": output}) for word in self.commands[job.name]]


def said_by(*command):
    run = subprocess.run(command, capture_output=True, text=True)
    return (run.stdout.strip() or run.stderr.strip()).splitlines()[0]


def debian_version(package):
    return said_by("dpkg-query", "-W", "-f=${Version}, Debian", package)


def has_ezdxf():
    return subprocess.run([PYTHON, "-c", "import ezdxf"], stderr=subprocess.DEVNULL).returncode == 0


def yes(answer):
    return "yes" if answer else "no"


def check_list(drawing, output):
    expected = sorted([layer.name, yes(layer.on), yes(layer.frozen), yes(layer.locked), layer.linetype]
                      for layer in layer_table.layers(drawing))
    with open(output, encoding="utf-8", newline="") as file:
        rows = list(csv.reader(file))
    if rows[:1] != [COLUMNS] or sorted(rows[1:]) != expected:
        raise WrongResult(f"{output.name} does not list the {len(expected)} layers of {drawing.name}")


def check_frozen(drawing, output):
    before, after = layer_table.layers(drawing), layer_table.layers(output)
    expected = {layer.name: layer.frozen or ("-" in layer.name and layer.name[-1] in "02468") for layer in before}
    found = {layer.name: layer.frozen for layer in after}
    if found != expected:
        wrong = sorted(set(expected.items()) ^ set(found.items()))[:3]
        raise WrongResult(f"{output.name} has other layers, or others of them frozen: {wrong}")
    if layer_table.entity_count(output) != layer_table.entity_count(drawing):
        raise WrongResult(f"{output.name} has another number of entities")


def check_picture(_, output):
    with open(output, "rb") as file:
        head = file.read(8)
    if not head.startswith((b"%PDF", b"\x89PNG")):
        raise WrongResult(f"{output.name} is no picture")


def jobs():
    return [
        Job("list", "Read a drawing and list its layers", check_list, prints=True),
        Job("freeze", "Read a drawing, freeze half of the layers, write it", check_frozen),
        Job("draw", "Read a drawing and draw it once", check_picture),
    ]


def rivals(bin_folder, config_folder):
    """Ours first: of those that do a job, the first is what the others are compared with."""
    layerman, kest = bin_folder / "layerman", bin_folder / "kest"
    found = [
        Rival("layerman", ".layerman",
              {"list": [layerman, "list", "{in}", "--columns", ",".join(COLUMNS), "--format", "csv"],
               "freeze": [layerman, "set", "{in}", "--search", HALF_OF_THE_LAYERS, "freeze=yes", "-o", "{out}"]},
              lambda: said_by(layerman, "--version"), [layerman, "--version"]),
        Rival("kest", ".png", {"draw": [kest, "--config", config_folder, "--screenshot", "{out}", "{in}"]},
              lambda: said_by(kest, "--version")),
        Rival("python3-ezdxf", ".ezdxf",
              {"list": [PYTHON, HERE / "ezdxf_list.py", "{in}"],
               "freeze": [PYTHON, HERE / "ezdxf_freeze.py", "{in}", "{out}"]},
              lambda: debian_version("python3-ezdxf"), [PYTHON, "-c", "import ezdxf"]),
    ]
    librecad = Path("/usr/bin/librecad")
    if librecad.exists():
        # It gives a single drawing's picture the name of the drawing, whatever -o says.
        found.append(Rival("LibreCAD", ".pdf", {"draw": [librecad, "dxf2pdf", "-a", "{in}"]},
                           lambda: debian_version("librecad")))
    return found
