#!/usr/bin/python3
"""Runs the benchmarks that carry promises and prints their medians as tables in Markdown.

    cmake --build --preset release --target benchmarks
    bench/compare/headlines.py --bin build/release/bin
"""

import argparse
import json
import re
import subprocess
import sys
from collections import defaultdict
from dataclasses import dataclass
from pathlib import Path

import machine
from measured_run import ENVIRONMENT


@dataclass(frozen=True)
class Headline:
    program: str
    benchmark: str  # without its sizes
    words: str


BY_LAYERS = (
    Headline("grid", "fillAndFrame", "list all layers in the grid and paint it"),
    Headline("grid", "sortBy/name", "sort the grid by name"),
    Headline("grid", "sortBy/linetype", "sort the grid by linetype"),
    Headline("grid", "scrolledFrame", "scroll by a page"),
    Headline("palette_search", "keyThatNarrows", "a key in the search box, until the grid is painted"),
    Headline("palette_search", "clearingTheBox", "clear the search box"),
    Headline("layer_filters", "fiveCriteria", "test a filter of five criteria on all layers"),
    Headline("layer_filters", "used", "find the layers in use"),
    Headline("filter_preview", "editThatKeepsMost", "an edit in the filter editor, until its preview is painted"),
    Headline("filter_tree", "lockAndUnlockAll", "lock and unlock all layers from the filter tree"),
    Headline("palette_sync", "freezeAllAndUndo/withoutPalette", "freeze all layers and undo it, palette closed"),
    Headline("palette_sync", "freezeAllAndUndo/allListed", "the same, all layers listed in the palette"),
    Headline("layer_states", "save", "save a layer state"),
    Headline("layer_states", "restore", "restore a layer state that changes all"),
    Headline("layer_states", "compare", "tell whether a state is the same as the drawing"),
)
BY_DRAWING = (
    Headline("drawing_io", "load", "read a drawing"),
    Headline("drawing_io", "saveUnedited", "save it, nothing edited"),
    Headline("drawing_io", "saveHalfFrozen", "save it, half of its layers frozen"),
)
BY_ENTITIES = (
    Headline("canvas", "readGeometry", "read what is drawn"),
    Headline("canvas", "paintAll", "paint everything"),
    Headline("canvas", "toggleLayer", "show or hide a layer"),
    Headline("picking", "click", "what lies under a click"),
)
TABLES = (
    ("By number of layers", BY_LAYERS),
    ("By number of layers and of entities", BY_DRAWING),
    ("By number of entities", BY_ENTITIES),
)


def medians(bin_folder, program, headlines, repetitions):
    """{(benchmark, sizes): milliseconds by the clock and of the first thread's CPU time} of one program's headlines."""
    names = "|".join(re.escape(headline.benchmark) for headline in headlines)
    run = subprocess.run(
        [bin_folder / program, f"--benchmark_filter=^({names})/[0-9]", f"--benchmark_repetitions={repetitions}",
         "--benchmark_min_time=0.2", "--benchmark_report_aggregates_only=true", "--benchmark_format=json"],
        env=ENVIRONMENT, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
    found = {}
    for result in json.loads(run.stdout)["benchmarks"]:
        if result["aggregate_name"] != "median":
            continue
        name, *words = re.split(r"/(?=\d)|/(?=real_time|iterations)", result["run_name"])
        sizes = tuple(int(word) for word in words if word.isdigit())
        factor = {"ns": 1e-6, "us": 1e-3, "ms": 1, "s": 1e3}[result["time_unit"]]
        found[name, sizes] = result["real_time"] * factor, result["cpu_time"] * factor
    return found


def text(times):
    wall, cpu = (f"{time:.0f}" if time >= 100 else f"{time:.3g}" for time in times)
    return f"{wall} / {cpu}"


def print_table(title, headlines, found):
    """One part for each choice of sizes: programs differ in theirs."""
    print(f"\n### {title}: milliseconds by the clock / of CPU time")
    by_sizes = defaultdict(list)
    for line in headlines:
        sizes = tuple(sorted(size for name, size in found[line.program] if name == line.benchmark))
        if not sizes:
            raise SystemExit(f"headlines: {line.program} has no benchmark {line.benchmark}")
        by_sizes[sizes].append(line)
    for sizes, lines in by_sizes.items():
        print("\n| benchmark | what | " + " | ".join(" / ".join(f"{n:,}" for n in size) for size in sizes) + " |")
        print("|---|---|" + "---:|" * len(sizes))
        for line in lines:
            cells = " | ".join(text(found[line.program][line.benchmark, size]) for size in sizes)
            print(f"| `{line.program}`: `{line.benchmark}` | {line.words} | {cells} |")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--bin", type=Path, required=True, help="folder of the built benchmarks")
    parser.add_argument("--repetitions", type=int, default=5)
    arguments = parser.parse_args()
    by_program = defaultdict(list)
    for _, headlines in TABLES:
        for headline in headlines:
            by_program[headline.program].append(headline)
    machine.describe([], arguments.repetitions)
    found = {program: medians(arguments.bin, program, headlines, arguments.repetitions)
             for program, headlines in by_program.items()}
    for title, headlines in TABLES:
        print_table(title, headlines, found)
    machine.describe_load("at the end")


if __name__ == "__main__":
    sys.exit(main())
