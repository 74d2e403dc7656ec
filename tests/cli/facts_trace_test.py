#!/usr/bin/python3
"""What the command line opens while it reads facts, as the kernel sees it: below the disk nothing but
folders and the listed sources, and nothing to be written anywhere.

    facts_trace_test.py PRYVANE-CLI MAKE-DEMO-VOLUME
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
KINDS = ["--kind", "permissions", "--kind", "start-up", "--kind", "remote-access"]
CALL = re.compile(r"(?:open|openat|openat2|creat)\((.*)\) = (-?\d+)(?:<(.*)>)?")
CHANGES = "mkdir,mkdirat,rename,renameat,renameat2,unlink,unlinkat,rmdir,link,linkat,symlink,symlinkat,truncate," \
          "ftruncate,chmod,fchmod,fchmodat,chown,fchown,fchownat,lchown,mknod,mknodat,utimensat,setxattr,fsetxattr"


def places_told(cli):
    text = subprocess.run([cli, "inventory", "--help"], check=True, capture_output=True, text=True).stdout
    places = re.findall(r"^\s+([/~].*) \([^()]*\)$", text, re.MULTILINE)
    assert len(places) > 50, places
    return places


def sources(places):
    """The places as expressions for paths below the disk."""
    homes = "/(?:Users/[^/]*|private/var/root)"
    return [re.compile((homes if place.startswith("~") else "") +
                       re.escape(place.removeprefix("~")).replace("\\*", "[^/]*") + "$") for place in places]


# What the program itself needs of a disk before any fact: which homes and which Mac there are.
ALSO = [re.compile(pattern) for pattern in (
    r"/private/var/db/dslocal/nodes/Default/users/[^/]*\.plist$",
    r"/Library/Preferences/SystemConfiguration/preferences\.plist$",
    r"/System/Library/CoreServices/SystemVersion\.plist$")]


def traced(command, folder):
    log = folder / "trace"
    run = subprocess.run(["strace", "-f", "-y", "-o", log, "-s", "4096", "-e",
                          "trace=open,openat,openat2,creat," + CHANGES, *command],
                         stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    if not log.exists() or "ptrace" in run.stderr and "Operation not permitted" in run.stderr:
        print("skipped: strace may not trace here")
        sys.exit(SKIPPED)
    assert run.returncode in (0, 3), run.stderr
    return log.read_text(errors="surrogateescape").splitlines()


def check(lines, below, allowed):
    read = set()
    for line in lines:
        name = line.split("(", 1)[0].split()[-1] if "(" in line else ""
        if name in CHANGES.split(","):
            sys.exit(f"something is changed: {line}")
        found = CALL.search(line)
        if not found or int(found.group(2)) < 0:
            continue
        arguments, path = found.group(1), found.group(3) or ""
        if re.search(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_APPEND", arguments) and path != "/dev/null":
            sys.exit(f"something is opened to be written: {line}")
        if not path.startswith(below) or "O_PATH" in arguments or "O_DIRECTORY" in arguments:
            continue
        inside = path[len(below):] or "/"
        if os.path.isdir(path):
            continue
        read.add(inside)
        if not any(pattern.match(inside) for pattern in allowed):
            sys.exit(f"no listed source: {inside}\n{line}")
    return read


def main(cli, make_volume):
    if not shutil.which("strace"):
        print("skipped: strace is not installed")
        sys.exit(SKIPPED)
    with tempfile.TemporaryDirectory(prefix="pryvane-trace-") as temporary:
        folder = pathlib.Path(temporary)
        volume = folder / "disk"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        (volume / "Users/alice/Documents").mkdir(exist_ok=True)
        (volume / "Users/alice/Documents/letter.txt").write_text("hers alone")
        places = places_told(cli)
        for place in places:  # each of them, and a neighbour
            path = volume / place.replace("~", "Users/alice").replace("*", "x").lstrip("/")
            path.parent.mkdir(parents=True, exist_ok=True)
            for planted in path, path.with_name(path.name + ".other"):
                if not planted.exists():
                    planted.write_text("something")
        read = check(traced([cli, "inventory", *KINDS, "--volume", str(volume)], folder), str(volume),
                     sources(places) + ALSO)
        assert any(path.endswith("TCC.db") for path in read), read
        assert len(read) > 20, read
        print(f"{len(read)} files read, each a listed source; nothing opened to be written")


if __name__ == "__main__":
    main(*sys.argv[1:])
