"""Reads src/rooms.txt, the table of the rooms under src/."""
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROW = re.compile(r"([a-z/]+):([a-z/ ]*)(?:\|([A-Za-z ]+))?")


class Room:
    def __init__(self, name, uses, modules, line):
        self.name, self.uses, self.modules, self.line = name, uses, modules, line


def read(table):
    """The rooms in the table's order, by name, and what is wrong with the table.

    A room may use only rooms above its own line, so no circle can be written down.
    """
    rooms, wrong = {}, []
    for number, text in enumerate(table.read_text(encoding="utf-8").splitlines(), 1):
        if not text or text.startswith("#"):
            continue
        row = ROW.fullmatch(text)
        if not row:
            wrong.append(f'{table.name}:{number}: this line is not "room: rooms | Qt modules"')
            continue
        name, uses, modules = row[1], row[2].split(), (row[3] or "").split()
        if name in rooms:
            wrong.append(f"{table.name}:{number}: {name} stands there twice")
        for used in uses:
            if used not in rooms:
                wrong.append(f"{table.name}:{number}: {name} may only use rooms that stand above it, and {used} does not")
        rooms[name] = Room(name, uses, modules, number)
    return rooms, wrong
