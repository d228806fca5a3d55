#!/usr/bin/python3
"""Measures layerman against what a user could pick instead, on drawings of growing size.

Every job is a whole process: start, read, work, write, end. Within a repetition the programs take turns, so that a
machine that is busy for a while is busy for all of them. After every run the result is compared with what it must be by
a reader of its own. Prints tables in Markdown.

    bench/compare/compare.py --bin build/release/bin                 # all sizes, five repetitions
    bench/compare/compare.py --bin build/dev/bin --smoke             # small and once: does it still work?

Exits with 0, with 1 when a result was wrong, with 77 when python3-ezdxf is not installed.
"""

import argparse
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

import contenders
import machine
from measured_run import measure
from wrong_result import WrongResult

SIZES = ((100, 1_000), (1_000, 10_000), (10_000, 100_000), (100_000, 1_000_000))
SLOW_SECONDS, SLOW_REPETITIONS = 20, 3
SMOKE_SIZES = ((50, 200), (100, 400))


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--bin", type=Path, required=True, help="folder of the built programs")
    parser.add_argument("--repetitions", type=int, default=5)
    parser.add_argument("--jobs", help="names with commas between, default all: list, freeze, draw")
    parser.add_argument("--smallest", type=int, default=0, help="leave out drawings with fewer layers")
    parser.add_argument("--largest", type=int, default=SIZES[-1][0], help="leave out drawings with more layers")
    parser.add_argument("--limit", type=float, default=120, help="CPU seconds after which a run is ended")
    parser.add_argument("--smoke", action="store_true", help="small drawings, one repetition")
    return parser.parse_args()


def make_drawing(generator, folder, layers, entities):
    path = folder / f"{layers}x{entities}.dxf"
    size = ["--layers", str(layers), "--entities", str(entities)]
    subprocess.run([generator, "--out", path, *size], check=True, stdout=subprocess.DEVNULL)
    return path


def is_measured_enough(runs):
    return len(runs) >= SLOW_REPETITIONS and runs[0].seconds > SLOW_SECONDS


def measure_size(rivals, jobs, drawing, repetitions, limit):
    """The runs of each (job, rival): a list, or None where one took longer than the limit."""
    runs = {(job, rival): [] for job in jobs for rival in rivals if job.name in rival.commands}
    for _ in range(repetitions):
        for (job, rival), done in runs.items():
            if done is None or is_measured_enough(done):
                continue
            output = drawing.with_suffix(rival.suffix)
            run = measure(rival.command(job, drawing, output), output if job.prints else None, limit)
            if run is None:
                runs[job, rival] = None
                continue
            if run.status != 0:
                raise WrongResult(f"{rival.title} ended with {run.status}: {run.complaint}")
            job.check(drawing, output)
            output.unlink()
            done.append(run)
    return runs


FIGURES = (
    ("wall time", lambda run: run.seconds),
    ("CPU time", lambda run: run.cpu_seconds),
    ("peak memory", lambda run: run.peak_megabytes),
)


def seconds_text(seconds):
    return f"{seconds:.3f} s" if seconds < 10 else f"{seconds:.1f} s"


def cells(runs, limit):
    """The medians in words."""
    if runs is None:
        return "-", f"over {limit:.0f} s", "-"
    wall, cpu, memory = (statistics.median(figure(run) for run in runs) for _, figure in FIGURES)
    return seconds_text(wall), seconds_text(cpu), f"{memory:.0f} MB"


def ratios(runs, own):
    """How many times our medians each of theirs is."""
    if not runs or not own:
        return "-"
    medians = [[statistics.median(figure(run) for run in each) for _, figure in FIGURES] for each in (runs, own)]
    return " / ".join(f"{theirs / ours:.1f}" for theirs, ours in zip(*medians))


def spread_of(runs):
    if not runs:
        return "-"
    seconds = [run.seconds for run in runs]
    return f"{len(runs)}: {min(seconds):.3f} - {max(seconds):.3f} s"


def print_table(job, rivals, results, limit):
    rivals = [rival for rival in rivals if job.name in rival.commands]
    print(f"\n### {job.title}\n")
    print("| layers | entities | file | program | wall time | CPU time | peak memory | times ours | runs |")
    print("|---:|---:|---:|---|---:|---:|---:|---:|---|")
    for (layers, entities, file_size), runs in results:
        own = runs[job, rivals[0]]
        for rival in rivals:
            done = runs[job, rival]
            words = " | ".join((*cells(done, limit), ratios(done, own), spread_of(done)))
            print(f"| {layers:,} | {entities:,} | {file_size / 1e6:.1f} MB | {rival.title} | {words} |")


def without_start(runs, start_up):
    if not runs:
        return "-"
    seconds = statistics.median(run.cpu_seconds for run in runs) - start_up
    # What is small beside the start is noise of the start.
    return f"{seconds:.3f} s" if seconds > start_up / 10 else "too little to tell"


def print_growth(job, rivals, results):
    """What is left of each time when that of an empty run is taken off."""
    rivals = [rival for rival in rivals if job.name in rival.commands and rival.start_up_command]
    if not rivals:
        return
    print("\nCPU time without the start of the program:\n")
    print("| program | " + " | ".join(f"{layers:,} layers" for (layers, _, _), _ in results) + " |")
    print("|---|" + "---:|" * len(results))
    for rival in rivals:
        row = [runs[job, rival] for _, runs in results]
        print(f"| {rival.title} | " + " | ".join(without_start(done, rival.start_up) for done in row) + " |")


def measure_start_up(rivals, repetitions, limit):
    rivals = [rival for rival in rivals if rival.start_up_command]
    runs = {rival: [] for rival in rivals}
    for _ in range(repetitions):
        for rival in rivals:
            runs[rival].append(measure(rival.start_up_command, None, limit))
    print("\n### Starting and ending without a drawing\n")
    print("| program | wall time | CPU time | peak memory |\n|---|---:|---:|---:|")
    for rival in rivals:
        rival.start_up = statistics.median(run.cpu_seconds for run in runs[rival])
        print(f"| {rival.title} | " + " | ".join(cells(runs[rival], limit)) + " |")


def main():
    arguments = parse_arguments()
    if not contenders.has_ezdxf():
        print("skipped: python3-ezdxf is not installed")
        return 77
    sizes = SMOKE_SIZES if arguments.smoke else [
        size for size in SIZES if arguments.smallest <= size[0] <= arguments.largest
    ]
    repetitions = 1 if arguments.smoke else arguments.repetitions
    with tempfile.TemporaryDirectory(prefix="compare-") as name:
        folder, results = Path(name), []
        jobs, rivals = contenders.jobs(), contenders.rivals(arguments.bin.resolve(), folder / "config")
        if arguments.jobs:
            jobs = [job for job in jobs if job.name in arguments.jobs.split(",")]
        machine.describe(rivals, repetitions)
        try:
            measure_start_up(rivals, repetitions, arguments.limit)
            for layers, entities in sizes:
                drawing = make_drawing(arguments.bin / "make_drawing", folder, layers, entities)
                runs = measure_size(rivals, jobs, drawing, repetitions, arguments.limit)
                results.append(((layers, entities, drawing.stat().st_size), runs))
                drawing.unlink()
        except WrongResult as wrong:
            print(f"compare: {wrong}", file=sys.stderr)
            return 1
    for job in jobs:
        print_table(job, rivals, results, arguments.limit)
        print_growth(job, rivals, results)
    machine.describe_load("at the end")
    return 0


if __name__ == "__main__":
    sys.exit(main())
