#!/usr/bin/env python3
"""Watches the system calls of a scan of an image: the program itself reads none of its bytes, and what reads them
opens nothing else, has no network and cannot write.

  confinement_test.py PROGRAM
"""
from program import expect, hfs_image, scratch, traced


def reader_of(calls):
    """The process that started as the reader, from the moment at which it confined itself."""
    for process, list_of_calls in calls.items():
        if any(name == "execve" and "pryvane-image-reader" in arguments for name, arguments, *_ in list_of_calls):
            at = next((i for i, call in enumerate(list_of_calls) if call[0] == "prctl" and "SECCOMP" in call[1]), None)
            expect(at is not None, "the reader installed no filter")
            return process, list_of_calls[at + 1:]
    expect(False, "no reader was started", calls.keys())


def check(folder, image, hasLandlock):
    extra = [] if hasLandlock else ["-e", "inject=landlock_create_ruleset:error=ENOSYS"]
    done, calls = traced(folder, ["-s", "64", *extra], "scan", "--no-store", "--image", image)
    expect(done.returncode == 1 and "mdsa1331" in done.stdout, "the scan itself", done)
    expect(("no Landlock" in done.stdout) != hasLandlock, "confinement is not told as it is", done.stdout)

    reader, confined = reader_of(calls)
    ofImage = [call for process, some in calls.items() if process != reader for call in some if f"<{image}>" in call[1]]
    expect(not [call for call in ofImage if call[0] in ("read", "pread64", "readv", "preadv", "mmap", "sendfile")],
           "the program reads the image by itself", ofImage)

    opened = [call for call in confined if call[0] in ("open", "openat", "openat2", "creat") and call[2] != "-1"]
    expect(opened, "the reader opened nothing at all")
    expect(all(f'"{image}"' in call[1] and "O_RDONLY" in call[1] for call in opened),
           "the reader opened something else, or for writing", opened)
    # The second filter comes once the image is open; nothing is opened any more then.
    filters = [i for i, call in enumerate(confined) if call[0] == "prctl" and "SECCOMP" in call[1]]
    expect(len(filters) == 1 and confined[filters[0]][2] == "0", "the second filter", filters)
    later = confined[filters[0] + 1:]
    expect(not [call for call in later if call[0].startswith("open")], "opened later", later)
    expect(len([call for call in later if call[0] in ("read", "pread64")]) > 5, "the image was read after that")
    for name, arguments, result, _ in confined:
        expect(name not in ("socket", "connect", "execve", "fork", "clone", "clone3", "ptrace") or result == "-1",
               "not allowed to a reader", name, arguments)
        expect(name not in ("write", "writev", "pwrite64") or arguments.startswith("1<"), "writes elsewhere", arguments)


with scratch() as work:
    mac = hfs_image(work / "mac.img", ["Users/alice/Library/mdsa1331", *(f"Users/alice/{n}" for n in range(300))])
    check(work, mac, True)
    check(work, mac, False)
