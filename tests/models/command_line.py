"""The command line that the comparisons have in common: the program that is asked, and the seeds of the logbooks."""

import argparse
import os
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def executable(path):
    if not os.access(path, os.X_OK):
        raise argparse.ArgumentTypeError(f"{path} is not there")
    return Path(path).resolve()


def parser_of(about, option, program):
    """A parser that knows the seeds, and a program by this option; without it, that of the tests' build."""
    parser = argparse.ArgumentParser(description=about, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument(option, type=executable, default=str(ROOT / "build/test" / program), metavar="PROGRAM")
    parser.add_argument("--seeds", type=int, default=100, metavar="N", help="how many seeds (100)")
    parser.add_argument("--first", type=int, default=0, metavar="SEED", help="the first seed (0)")
    return parser


def seeds_of(asked):
    return range(asked.first, asked.first + asked.seeds)
