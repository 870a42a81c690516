#!/usr/bin/env python3
"""Checks the structure of the house: includes run one way between the rooms, there is no circle between files,
and nothing below the desktop knows Qt. Call it with the root of the source tree."""

import re
import sys
from pathlib import Path

# A room may include the rooms of its own line's level only if it is the same room, and all of the lines above.
LEVELS = [
    ["runtime"],
    ["store"],
    ["shell"],
    ["reports", "maintenance"],
    ["entry", "browse", "handheld"],
    ["app"],
    ["desktop"],
    ["player"],
]
LEVEL_OF = {room: level for level, rooms in enumerate(LEVELS) for room in rooms}
ROOMS_WITH_QT = {"desktop", "player"}
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def includes(text):
    """The quoted and the bracketed includes of a source text."""
    found = INCLUDE.findall(text)
    return [quoted for quoted, _ in found if quoted], [bracketed for _, bracketed in found if bracketed]


def faults_of_file(name, text):
    """What is wrong with one file's includes; `name` is its path below src."""
    room = name.split("/")[0]
    if room not in LEVEL_OF:
        return [f"{name}: the room {room} is not known"]
    faults = []
    quoted, bracketed = includes(text)
    for target in quoted:
        other = target.split("/")[0]
        if other not in LEVEL_OF:
            if room not in ROOMS_WITH_QT:
                faults.append(f"{name}: includes {target}, which is in no room")
        elif other != room and LEVEL_OF[other] >= LEVEL_OF[room]:
            faults.append(f"{name}: includes {target}, an arrow the wrong way")
    if room not in ROOMS_WITH_QT:
        faults += [f"{name}: includes Qt's {target}" for target in bracketed if re.match(r"Q[A-Z]|Qt", target)]
    return faults


def circle(graph):
    """A circle of files in the graph of includes, as a list of names; empty if there is none."""
    done, path = set(), []

    def visit(name):
        if name in path:
            return path[path.index(name):] + [name]
        if name in done:
            return []
        path.append(name)
        for target in graph.get(name, []):
            found = visit(target)
            if found:
                return found
        path.pop()
        done.add(name)
        return []

    for name in sorted(graph):
        found = visit(name)
        if found:
            return found
    return []


def faults_of_tree(files):
    """What is wrong with a tree, given as a dictionary of paths below src and their texts."""
    faults = [fault for name, text in sorted(files.items()) for fault in faults_of_file(name, text)]
    graph = {name: [target for target in includes(text)[0] if target in files] for name, text in files.items()}
    found = circle(graph)
    if found:
        faults.append("a circle of includes: " + " -> ".join(found))
    return faults


def main(root):
    source = Path(root) / "src"
    files = {
        str(path.relative_to(source)): path.read_text(encoding="utf-8")
        for path in source.rglob("*")
        if path.suffix in (".h", ".cpp")
    }
    faults = faults_of_tree(files)
    print("\n".join(faults) or f"{len(files)} files, every include the right way")
    return 1 if faults or not files else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
