"""A print server of its own with one queue, "pile", whose printing machine is a file."""
import contextlib
import os
import pathlib
import socket

from pilot import need, started, wait_for

BACKEND = """#!/bin/sh
[ $# = 0 ] && exit 0
out=${DEVICE_URI#pile:}
cat "$6" >"$out.part" && mv "$out.part" "$out"
"""


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
    for part in ("root", "spool", "cache", "state", "logs", "bin/backend"):
        (folder / part).mkdir(parents=True)
    for part in ("daemon", "filter"):
        (folder / "bin" / part).symlink_to(f"/usr/lib/cups/{part}")
    folder.chmod(0o755)  # run by root, the server drops its rights
    backend = folder / "bin/backend/pile"
    backend.write_text(BACKEND)
    backend.chmod(0o700)
    (folder / "cupsd.conf").write_text(f"""Listen {folder}/socket
Browsing No
WebInterface No
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order deny,allow
</Limit>
</Policy>
""")
    places = {"ServerRoot": "root", "RequestRoot": "spool", "CacheDir": "cache", "StateDir": "state", "ServerBin": "bin",
              "ErrorLog": "logs/error", "AccessLog": "logs/access", "PageLog": "logs/page"}
    (folder / "cups-files.conf").write_text("".join(f"{key} {folder}/{place}\n" for key, place in places.items()))
    (folder / "root/printers.conf").write_text(
        f"<DefaultPrinter pile>\nDeviceURI pile:{folder}/arrived\nState Idle\nAccepting Yes\n</DefaultPrinter>\n")
    with started(["/usr/sbin/cupsd", "-f", "-c", str(folder / "cupsd.conf"), "-s", str(folder / "cups-files.conf")]):
        wait_for("the print server", lambda: answers(folder / "socket"))
        os.environ["CUPS_SERVER"] = str(folder / "socket")
        yield pathlib.Path(folder / "arrived")
