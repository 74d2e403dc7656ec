#!/usr/bin/python3
"""What the command line opens while it reads facts, as the kernel sees it: below the disk nothing but
folders and the listed sources, and nothing to be written anywhere.

    facts_trace_test.py PRYVANE-CLI MAKE-DEMO-VOLUME
"""
import os
import re
import sys

from program import run, scratch, traced

KINDS = ["--kind", "permissions", "--kind", "start-up", "--kind", "remote-access"]
OPENS = ("open", "openat", "openat2", "creat")
CHANGES = ("mkdir,mkdirat,rename,renameat,renameat2,unlink,unlinkat,rmdir,link,linkat,symlink,symlinkat,truncate,"
           "ftruncate,chmod,fchmod,fchmodat,chown,fchown,fchownat,lchown,mknod,mknodat,utimensat,setxattr,fsetxattr")
# What the program itself needs of a disk before any fact: which homes and which Mac there are.
ALSO = ["/private/var/db/dslocal/nodes/Default/users/*.plist",
        "/Library/Preferences/SystemConfiguration/preferences.plist",
        "/System/Library/CoreServices/SystemVersion.plist"]


def expression(place):
    """The place for paths below the disk."""
    home = "/(?:Users/[^/]*|private/var/root)" if place.startswith("~") else ""
    return re.compile(home + re.escape(place.removeprefix("~")).replace("\\*", "[^/]*") + "$")


def check(calls, disk, allowed):
    """The files of the disk that were read."""
    read = set()
    for name, arguments, result, path in calls:
        assert name in OPENS, f"something is changed: {name}({arguments})"
        if result.startswith("-"):
            continue
        assert path == "/dev/null" or not re.search("O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_APPEND", arguments), \
            f"something is opened to be written: {arguments}"
        if path.startswith(disk) and not re.search("O_PATH|O_DIRECTORY", arguments) and not os.path.isdir(path):
            read.add(path[len(disk):])
            assert any(source.match(path[len(disk):]) for source in allowed), f"no listed source: {path}"
    return read


with scratch(sys.argv[2]) as work:
    volume = work / "demo"
    (volume / "Users/alice/Documents").mkdir(exist_ok=True)
    (volume / "Users/alice/Documents/letter.txt").write_text("hers alone")
    places = re.findall(r"^\s+([/~].*) \([^()]*\)$", run("inventory", "--help", code=0).stdout, re.MULTILINE)
    assert len(places) > 50, places
    for place in places:  # each of them, and a neighbour
        source = volume / place.replace("~", "Users/alice").replace("*", "x").lstrip("/")
        source.parent.mkdir(parents=True, exist_ok=True)
        for planted in source, source.with_name(source.name + ".other"):
            if not planted.exists():
                planted.write_text("something")
    done, processes = traced(work, ["-s", "4096", "-e", "trace=" + ",".join(OPENS) + "," + CHANGES],
                             "inventory", *KINDS, "--volume", volume)
    assert done.returncode in (0, 3), done.stderr
    files = check([call for calls in processes.values() for call in calls], str(volume),
                  [expression(place) for place in places + ALSO])
    assert len(files) > 20 and any(path.endswith("TCC.db") for path in files), files
    print(f"{len(files)} files read, each a listed source; nothing opened to be written")
