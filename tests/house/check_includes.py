#!/usr/bin/env python3
"""Checks the structure of the house: includes run one way between the rooms, there is no circle between files
or folders, nothing below the desktop knows Qt, no file holds a path of one machine, and the README opens with the
two commands. Call it with the root of the source tree."""

import re
import sys
from pathlib import Path

# A room may include the rooms of its own line's level only if it is the same room, and all of the lines above.
LEVELS = [
    ["runtime"],
    ["store"],
    ["backup"],
    ["shell"],
    ["reports", "maintenance"],
    ["entry", "browse", "handheld"],
    ["app", "sample"],
    ["style"],
    ["desktop", "viewer"],
    ["player"],
]
LEVEL_OF = {room: level for level, rooms in enumerate(LEVELS) for room in rooms}
ROOMS_WITH_QT = {"style", "desktop", "viewer", "player"}
MACHINE_PATH = re.compile(r"(?<![\w.$}/])/(?:home|root|work|Users|media|mnt)/[\w.]|\b[A-Z]:\\{1,2}Users\b")
CHECKED_FOLDERS = ["src", "tests", "cmake", "scripts", ".ci", "docs", "help", "packaging", "bench"]
CHECKED_FILES = ["CMakeLists.txt", "CMakePresets.json", "README.md", "CHANGELOG.md"]
TEXTS = {".h", ".cpp", ".txt", ".transcript", ".py", ".cmake", ".md", ".html", ".svg", ".qrc", ".json", ".sh", ""}
FIRST_COMMANDS = ["scripts/run", "scripts/test"]
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


def folder(name):
    """The folder that a file stands in."""
    return name.rpartition("/")[0]


def folders_of(graph):
    """The graph of includes between the folders of the files."""
    folders = {}
    for name, targets in graph.items():
        others = {folder(target) for target in targets} - {folder(name)}
        folders.setdefault(folder(name), set()).update(others)
    return {name: sorted(targets) for name, targets in folders.items()}


def faults_of_tree(files):
    """What is wrong with a tree, given as a dictionary of paths below src and their texts."""
    faults = [fault for name, text in sorted(files.items()) for fault in faults_of_file(name, text)]
    graph = {name: [target for target in includes(text)[0] if target in files] for name, text in files.items()}
    for kind, arrows in (("files", graph), ("folders", folders_of(graph))):
        found = circle(arrows)
        if found:
            faults.append(f"a circle of {kind}: " + " -> ".join(found))
    return faults


def faults_of_paths(files):
    """The lines of files, given as a dictionary of paths and texts, that hold a path of one machine."""
    return [
        f"{name}:{number}: a path of one machine: {line.strip()}"
        for name, text in sorted(files.items())
        for number, line in enumerate(text.splitlines(), 1)
        if MACHINE_PATH.search(line)
    ]


def faults_of_readme(text):
    """What is wrong with the beginning of the README: its first commands are the two that everybody needs."""
    commands = [line.split()[0] for line in text.splitlines() if line.startswith("    ") and line.strip()]
    if commands[: len(FIRST_COMMANDS)] != FIRST_COMMANDS:
        return ["README.md does not open with " + " and ".join(FIRST_COMMANDS)]
    if "##" in text.partition(FIRST_COMMANDS[-1])[0]:
        return ["README.md has a heading before its two commands"]
    return []


def sources(root):
    """The program's own sources by their paths below src."""
    return {
        str(path.relative_to(root / "src")): path.read_text(encoding="utf-8")
        for path in (root / "src").rglob("*")
        if path.suffix in (".h", ".cpp")
    }


def invents_paths(path, root):
    """Whether a file has paths of its own making: the tests' sources, and this check."""
    place = path.relative_to(root).parts
    return place[0] == "tests" and (path.suffix in (".h", ".cpp") or place[1] == "house")


def texts(root):
    """All texts of the tree by their paths, but for those that invent paths of machines."""
    paths = [root / name for name in CHECKED_FILES]
    for name in CHECKED_FOLDERS:
        paths += (root / name).rglob("*")
    return {
        str(path.relative_to(root)): path.read_text(encoding="utf-8")
        for path in paths
        if path.is_file() and path.suffix in TEXTS and not invents_paths(path, root)
    }


def main(root):
    files = sources(root)
    readme = root / "README.md"
    faults = faults_of_tree(files) + faults_of_paths(texts(root))
    faults += faults_of_readme(readme.read_text(encoding="utf-8") if readme.is_file() else "")
    print("\n".join(faults) or f"{len(files)} files, every include the right way")
    return 1 if faults or not files else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
