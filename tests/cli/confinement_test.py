#!/usr/bin/env python3
"""Watches the system calls of a scan of an image: the program itself reads none of its bytes, and what reads them
opens nothing else, has no network and cannot write.

  confinement_test.py PROGRAM
"""
import pathlib
import re
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from images import expect, hfs_image, need  # noqa: E402

program = sys.argv[1]
need("strace")
CALL = re.compile(r"^(\d+)\s+(?:\d+:\d+:\d+ )?(\w+)\((.*)\)\s+= (-?\d+|\?)")


def watched(folder, image, extra):
    """Exit code, and the calls of each process: name, arguments, result."""
    log = folder / "log"
    done = subprocess.run(["strace", "-f", "-qq", "-y", "-s", "64", "-o", log, *extra, program, "scan", "--no-store",
                           "--image", str(image)], capture_output=True, text=True, timeout=300)
    if "PTRACE" in done.stderr:
        print("skipped: strace may not watch here")
        sys.exit(77)
    calls, pending = {}, {}
    for line in log.read_text(errors="replace").splitlines():
        process = line.split(maxsplit=1)[0]
        if line.endswith("<unfinished ...>"):
            pending[process] = line[:-len("<unfinished ...>")]
            continue
        if "resumed>" in line:
            line = pending.pop(process, process + " ") + line.split("resumed>", 1)[1]
        if match := CALL.match(line):
            calls.setdefault(process, []).append((match[2], match[3], match[4]))
    return done, calls


def reader_of(calls):
    """The process that started as the reader, from the moment at which it confined itself."""
    for process, list_of_calls in calls.items():
        if any(name == "execve" and "pryvane-image-reader" in arguments for name, arguments, _ in list_of_calls):
            at = next((i for i, call in enumerate(list_of_calls) if call[0] == "prctl" and "SECCOMP" in call[1]), None)
            expect(at is not None, "the reader installed no filter")
            return process, list_of_calls[at + 1:]
    expect(False, "no reader was started", calls.keys())


def check(folder, image, hasLandlock):
    extra = [] if hasLandlock else ["-e", "inject=landlock_create_ruleset:error=ENOSYS"]
    done, calls = watched(folder, image, extra)
    expect(done.returncode == 1 and "mdsa1331" in done.stdout, "the scan itself", done)
    told = "no Landlock" in done.stdout
    expect(told != hasLandlock, "confinement is not told as it is", done.stdout)

    reader, confined = reader_of(calls)
    own = [call for process, some in calls.items() if process != reader for call in some]
    ofImage = [call for call in own if f"<{image}>" in call[1]]
    expect(not [call for call in ofImage if call[0] in ("read", "pread64", "readv", "preadv", "mmap", "sendfile")],
           "the program reads the image by itself", ofImage)

    opened = [call for call in confined if call[0] in ("open", "openat", "openat2", "creat") and call[2] != "-1"]
    expect(opened, "the reader opened nothing at all")
    expect(all(f'"{image}"' in arguments for _, arguments, _ in opened), "the reader opened something else", opened)
    expect(all("O_RDONLY" in arguments for _, arguments, _ in opened), "opened for writing", opened)
    # The second filter comes once the image is open; nothing is opened any more then.
    filters = [i for i, call in enumerate(confined) if call[0] == "prctl" and "SECCOMP" in call[1]]
    expect(len(filters) == 1 and confined[filters[0]][2] == "0", "the second filter", filters)
    later = confined[filters[0] + 1:]
    expect(not [call for call in later if call[0].startswith("open")], "opened later", later)
    expect(len([call for call in later if call[0] in ("read", "pread64")]) > 5, "the image was read after that")
    for name, arguments, result in confined:
        expect(name not in ("socket", "connect", "execve", "fork", "clone", "clone3", "ptrace") or result == "-1",
               "not allowed to a reader", name, arguments)
        expect(name not in ("write", "writev", "pwrite64") or arguments.startswith("1<"), "writes elsewhere", arguments)


with tempfile.TemporaryDirectory() as place:
    folder = pathlib.Path(place)
    image = hfs_image(folder / "mac.img", ["Users/alice/Library/mdsa1331", *(f"Users/alice/{n}" for n in range(300))])
    check(folder, image, True)
    check(folder, image, False)
print("passed")
