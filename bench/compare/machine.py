"""What the figures were measured on."""

import os
import platform
import time
from pathlib import Path


def first_value(path, key):
    for line in Path(path).read_text().splitlines():
        name, _, value = line.partition(":")
        if name.strip() == key:
            return value.strip()
    return "unknown"


def describe_load(when):
    one, five, fifteen = os.getloadavg()
    print(f"\nLoad of the machine {when} ({time.strftime('%H:%M')}): {one:.2f}, {five:.2f}, {fifteen:.2f}.")


def describe(rivals, repetitions):
    memory = int(first_value("/proc/meminfo", "MemTotal").split()[0]) / 1024 / 1024
    processor = first_value("/proc/cpuinfo", "model name")
    print(f"Measured {time.strftime('%Y-%m-%d')}: {processor}, {os.cpu_count()} cores, "
          f"{memory:.0f} GB, Linux {platform.release().partition('-')[0]}; medians of {repetitions}.")
    if rivals:
        print("\n| program | version |\n|---|---|")
    for rival in rivals:
        print(f"| {rival.title} | {rival.version()} |")
    describe_load("at the start")
