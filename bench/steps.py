#!/usr/bin/env python3
"""Counts the instructions of the works that must not depend on the logbook's size, in samples of several sizes.

usage: steps.py BENCH SAMPLES FOLDER

BENCH is the program that measures, SAMPLES the folder of the samples, FOLDER one for copies of them. Prints a table
that ends with how many times as many instructions the largest sample takes as the smallest. The count is the same in
every run, whatever else the machine does. What the kernel does for the program is not in it.
"""

import re
import shutil
import subprocess
import sys
from pathlib import Path

WORKS = ["event report", "import of one event", "save frame", "add frame", "save game", "save event"]
# From the click on. The check of the whole logbook that ends an import is a work of its own.
COUNTED = ["--toggle-collect=tallybrook::bench::Session::measuredClick(*", "--toggle-collect=tallybrook::DB_Check(*"]


def once(bench, data, work, *watch):
    subprocess.run([*watch, bench, "--once", data, f"--benchmark_filter=^{work}/"], check=True,
                   stderr=subprocess.DEVNULL)


def instructions(bench, prepared, folder, work):
    data, record = folder / "data", folder / "record"
    shutil.rmtree(data, ignore_errors=True)
    shutil.copytree(prepared, data)
    once(bench, data, work, "valgrind", "--tool=callgrind", "--collect-atstart=no", *COUNTED,
         f"--callgrind-out-file={record}")
    return int(re.search(r"^totals: (\d+)$", record.read_text(), re.MULTILINE)[1])


def columns(bench, sample, folder):
    """The instructions of each work in one sample."""
    prepared = folder / "prepared"
    shutil.rmtree(prepared, ignore_errors=True)
    shutil.copytree(sample, prepared)
    once(bench, prepared, WORKS[0])  # makes the backup of the logbook as it is
    return [instructions(bench, prepared, folder, work) for work in WORKS]


def main():
    bench, samples, folder = Path(sys.argv[1]), Path(sys.argv[2]), Path(sys.argv[3])
    sizes = sorted(int(sample.name) for sample in samples.iterdir())
    counts = [columns(bench, samples / str(size), folder) for size in sizes]
    print("| work |" + "".join(f" {size:,} |" for size in sizes) + " growth (≤ 1.2) |")
    print("|---|" + "--:|" * (len(sizes) + 1))
    for work, *row in zip(WORKS, *counts):
        print(f"| {work} |" + "".join(f" {count:,} |" for count in row) + f" {row[-1] / row[0]:.2f} |")


if __name__ == "__main__":
    main()
