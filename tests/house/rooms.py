"""Reads the list of rooms, src/rooms.txt, for all that follow it besides the build."""

import re
from typing import NamedTuple


class Room(NamedTuple):
    """What the list says of a room: the rooms and the libraries that it names, and the words on what the room holds."""

    uses: list
    libraries: list
    words: str


def read_rooms(text):
    """The rooms of the list by their names, in its order."""
    rooms = {}
    for line in text.splitlines():
        names, _, words = line.partition("#")
        if names.strip():
            name, *allowed = names.split()
            uses = [other for other in allowed if re.fullmatch("[a-z]+", other)]
            rooms[name] = Room(uses, [other for other in allowed if other not in uses], words.strip())
    return rooms


def within_reach(rooms, name):
    """All rooms that a room may use, itself only if it stands in a circle; empty for an unknown one."""
    reached, ahead = set(), [name]
    while ahead:
        room = rooms.get(ahead.pop())
        new = set(room.uses) - reached if room else set()
        reached |= new
        ahead += new
    return reached


def knows_qt(rooms, name):
    """Whether a room may use a library of Qt, by itself or through another."""
    around = [name, *within_reach(rooms, name)]
    return any(library.startswith("Qt6::") for other in around if other in rooms for library in rooms[other].libraries)
