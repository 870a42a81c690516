#!/usr/bin/env python3
"""Tells what each layer costs, from callgrind's records of the program and of its limit.

usage: layers.py FRAMES PROGRAM LIMIT

Prints a table with the instructions that each layer itself takes for each of FRAMES frames. What the compiler has
taken into a function counts as that function's.
"""

import re
import sys
from collections import Counter

ROOMS = {"store", "runtime", "reports"}
LAYERS = ["SQLite", "store", "runtime", "reports", "C and C++ libraries", "the rest"]


def layer_of(library, file):
    if "sqlite3" in library:
        return "SQLite"
    room = re.search(r"(?:src|rooms)/(\w+)/", file)
    if room and room[1] in ROOMS:
        return room[1]
    return "C and C++ libraries" if ".so" in library or "/usr/include" in file else "the rest"


def costs(path):
    """The instructions of each layer. In the file a name stands once, then its number alone."""
    names = {}
    now = {}
    layers = Counter()
    is_call = False
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            if name := re.match(r"c?(ob|f[lien])=\((\d+)\)(?: (.*))?", line):
                kind = name[1] if name[1] in ("ob", "fn") else "fl"
                if name[3]:
                    names[kind, name[2]] = name[3]
                now[line.partition("=")[0]] = names[kind, name[2]]
            elif line.startswith("calls="):
                is_call = True  # the cost that follows is the callee's
            elif re.match(r"[+\-*\d]", line):
                if not is_call:
                    layers[layer_of(now["ob"], now["fl"])] += int(line.split()[1])
                is_call = False
    return layers


def main():
    frames = int(sys.argv[1])
    program, limit = costs(sys.argv[2]), costs(sys.argv[3])
    print("| layer | program | limit |\n|---|--:|--:|")
    for layer in LAYERS:
        print(f"| {layer} | {program[layer] / frames:,.0f} | {limit[layer] / frames:,.0f} |")
    print(f"| **all** | {program.total() / frames:,.0f} | {limit.total() / frames:,.0f} |")


if __name__ == "__main__":
    main()
