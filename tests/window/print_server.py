"""A print server of its own with the queue "pile", whose printing machine is a file."""
import contextlib
import os
import pathlib
import socket

from pilot import need, started, wait_for

SERVER = pathlib.Path(__file__).parent.parent / "support/print_server.py"


def answers(place):
    with socket.socket(socket.AF_UNIX) as end, contextlib.suppress(OSError):
        end.connect(str(place))
        return True
    return False


@contextlib.contextmanager
def print_server(folder):
    """Gives the file in which printed documents arrive."""
    need("/usr/sbin/cupsd")
    folder.mkdir()
    with started([SERVER, folder]):
        wait_for("the print server", lambda: answers(folder / "cups.sock"))
        os.environ["CUPS_SERVER"] = str(folder / "cups.sock")
        yield folder / "arrived"
