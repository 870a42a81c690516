#!/usr/bin/env python3
"""Checks the structure of the house: src/rooms.txt says what the rooms use and no more, every include is one that it
allows, there is no circle between files or folders, rooms of one program give no name to two types, only rooms that may
use a library of Qt know it, no file holds a path of one machine, and the README opens with the two commands. Call it
with the root of the source tree."""

import re
import sys
from pathlib import Path

from rooms import knows_qt, read_rooms, within_reach

MACHINE_PATH = re.compile(r"(?<![\w.$}/])/(?:home|root|work|Users|media|mnt)/[\w.]|\b[A-Z]:\\{1,2}Users\b")
CHECKED_FOLDERS = ["src", "tests", "cmake", "scripts", ".ci", "docs", "help", "packaging", "bench"]
CHECKED_FILES = ["CMakeLists.txt", "CMakePresets.json", "README.md", "CHANGELOG.md"]
TEXTS = {".h", ".cpp", ".txt", ".transcript", ".py", ".cmake", ".md", ".html", ".svg", ".qrc", ".json", ".sh", ""}
FIRST_COMMANDS = ["scripts/run", "scripts/test"]
TYPE = re.compile(r"^(?:namespace ([\w:]+) \{|(?:struct|class|enum class) (\w+)\b[^;\n]*\{)", re.MULTILINE)
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def includes(text):
    """The quoted and the bracketed includes of a source text."""
    found = INCLUDE.findall(text)
    return [quoted for quoted, _ in found if quoted], [bracketed for _, bracketed in found if bracketed]


def room_of(name):
    """The room of a file or of an include: the first folder of its path."""
    return name.partition("/")[0]


def faults_of_line(rooms, name):
    """What is wrong with what the list says of one room, whatever its files hold."""
    faults = []
    for other in rooms[name].uses:
        through = [third for third in rooms[name].uses if third != other and other in within_reach(rooms, third)]
        if other not in rooms:
            faults.append(f"rooms.txt: {name} may use {other}, which is no room")
        elif through:
            faults.append(f"rooms.txt: {name} need not name {other}, which it may use through {through[0]}")
    return faults


def faults_of_list(rooms, files):
    """What is wrong with the list of rooms: its lines are the folders, and what they allow is what the files use."""
    found = circle({name: room.uses for name, room in rooms.items()})
    if found:
        return ["rooms.txt: a circle of rooms: " + " -> ".join(found)]
    folders = {room_of(name) for name in files}
    used = {(room_of(name), room_of(target)) for name, text in files.items() for target in includes(text)[0]}
    faults = [f"rooms.txt: has no line for the folder {folder}" for folder in sorted(folders - set(rooms))]
    faults += [f"rooms.txt: there is no folder {name}" for name in rooms if name not in folders]
    for name in rooms:
        faults += faults_of_line(rooms, name)
    faults += [
        f"rooms.txt: {name} may use {other}, and does not"
        for name in rooms
        for other in rooms[name].uses
        if name in folders and other in rooms and (name, other) not in used
    ]
    return faults


def faults_of_file(rooms, name, text):
    """What is wrong with one file's includes; `name` is its path below src, in one of the rooms."""
    room = room_of(name)
    faults = []
    quoted, bracketed = includes(text)
    for target in quoted:
        other = room_of(target)
        if other not in rooms:
            if not knows_qt(rooms, room):
                faults.append(f"{name}: includes {target}, which is in no room")
        elif other != room and other not in within_reach(rooms, room):
            faults.append(f"{name}: includes {target}, but {room} may not use {other}")
    if not knows_qt(rooms, room):
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


def types_in(text):
    """The types that a header defines, by their full names."""
    found, namespace = set(), ""
    for opened, name in TYPE.findall(text):
        namespace = opened or namespace
        if name:
            found.add(f"{namespace}::{name}")
    return found


def faults_of_types(rooms, files):
    """The names that two rooms give to types of their own, and that meet in one room or program: the compiler sees only
    one of them at a time, and the linker takes either."""
    makers = {}
    for name, text in files.items():
        for kind in types_in(text) if name.endswith(".h") else ():
            makers.setdefault(kind, set()).add(room_of(name))
    meeting = [{name} | within_reach(rooms, name) for name in rooms]
    return [
        f"{kind} is a type of its own in each of {', '.join(sorted(made))}"
        for kind, made in sorted(makers.items())
        if any(len(made & room) > 1 for room in meeting)
    ]


def faults_of_tree(rooms, files):
    """What is wrong with a tree, given as its list of rooms and a dictionary of paths below src and their texts."""
    faults = faults_of_list(rooms, files) + faults_of_types(rooms, files)
    for name, text in sorted(files.items()):
        if room_of(name) in rooms:
            faults += faults_of_file(rooms, name, text)
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
    rooms = read_rooms((root / "src" / "rooms.txt").read_text(encoding="utf-8"))
    readme = root / "README.md"
    faults = faults_of_tree(rooms, files) + faults_of_paths(texts(root))
    faults += faults_of_readme(readme.read_text(encoding="utf-8") if readme.is_file() else "")
    print("\n".join(faults) or f"{len(files)} files, every include as src/rooms.txt allows")
    return 1 if faults or not files else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
