#!/usr/bin/env python3
"""Becomes a print server with all its files in one folder.

    print_server.py FOLDER [none]

It listens at FOLDER/cups.sock. Its queue "pile", the default one, puts what arrives into FOLDER/arrived, and what it
was told of the job (number, user, title, copies, options) beside it; its queue "shut" takes no jobs. Or it has none.
"""
import os
import pathlib
import sys

BACKEND = """#!/bin/sh
[ $# = 0 ] && exit 0
out=${DEVICE_URI#pile:}
printf '%s\\n' "$@" >"$out.told"
cat "$6" >"$out.part" && mv "$out.part" "$out"
"""
SERVER = """LogLevel warn
Listen {folder}/cups.sock
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
"""
PLACES = {"ServerRoot": "root", "RequestRoot": "spool", "CacheDir": "cache", "StateDir": "state", "ServerBin": "bin",
          "ErrorLog": "logs/error", "AccessLog": "logs/access", "PageLog": "logs/page"}
QUEUE = "<{kind} {name}>\nDeviceURI pile:{folder}/arrived\nState Idle\nAccepting {accepting}\n</{kind}>\n"


def main(name, queues="pile"):
    folder = pathlib.Path(name)
    for part in ("root", "spool", "cache", "state", "logs", "bin/backend"):
        (folder / part).mkdir(parents=True)
    for part in ("daemon", "filter"):
        (folder / "bin" / part).symlink_to(f"/usr/lib/cups/{part}")
    folder.chmod(0o755)  # run by root, the server drops its rights before it touches these
    backend = folder / "bin/backend/pile"
    backend.write_text(BACKEND)
    backend.chmod(0o700)  # so that root's runs as root
    server, files = folder / "cupsd.conf", folder / "cups-files.conf"
    server.write_text(SERVER.format(folder=folder))
    files.write_text("".join(f"{key} {folder}/{place}\n" for key, place in PLACES.items()))
    if queues != "none":
        (folder / "root/printers.conf").write_text(
            QUEUE.format(kind="DefaultPrinter", name="pile", folder=folder, accepting="Yes")
            + QUEUE.format(kind="Printer", name="shut", folder=folder, accepting="No"))
    os.execv("/usr/sbin/cupsd", ["/usr/sbin/cupsd", "-f", "-c", server, "-s", files])


main(*sys.argv[1:])
