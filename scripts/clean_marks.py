"""Remembers which sources a check found clean, so that it looks only at what has changed since.

A mark is an empty file named by a hash of all that the answer depends on: the check's rules, the compiler's arguments
without the place of this clone, and the content of the source and of the files of ours that it includes.
"""
import hashlib
import pathlib

ROOT = pathlib.Path(__file__).resolve().parent.parent


class CleanMarks:
    def __init__(self, folder, *rules):
        """folder: where the marks are kept; rules: the files that say how the check is done."""
        self.folder, self.wanted = pathlib.Path(folder), set()
        self.rules = b"\0".join(pathlib.Path(rule).read_bytes() for rule in rules)
        self.folder.mkdir(parents=True, exist_ok=True)

    def of(self, command, files):
        """The mark of a source that is compiled by the command and made from the files."""
        digest = hashlib.sha256(self.rules + b"\0" + command.replace(str(ROOT), "").encode())
        for path in sorted(files):
            digest.update(b"\0" + str(path.relative_to(ROOT)).encode() + b"\0" + path.read_bytes())
        mark = self.folder / digest.hexdigest()
        self.wanted.add(mark)
        return mark

    def forget_others(self):
        """Deletes the marks that no source asked for."""
        for mark in self.folder.iterdir():
            if mark not in self.wanted:
                mark.unlink()
