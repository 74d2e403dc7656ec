#!/usr/bin/env python3
"""Reads an APFS container that a Mac made, and a Mac made of it, as a user without any rights.

  apfs_test.py PROGRAM

PRYVANE_SAMPLES names the folder with apfs.raw.xz; without it the test is skipped.
"""
import hashlib
import json
import os

import program
from apfs_container import BLOCK, MAC, sample, tree_blocks, with_tree, with_volume
from program import expect, scratch, skip

container = sample()
if not container:
    skip("PRYVANE_SAMPLES does not name a folder with apfs.raw.xz")
NOBODY = 65534


def as_nobody():
    if os.getuid() == 0:
        os.setgroups([])
        os.setgid(NOBODY)
        os.setuid(NOBODY)


def run(*arguments):
    done = program.run(*arguments, timeout=120, env={"PATH": os.environ["PATH"], "HOME": "/nonexistent"},
                       preexec_fn=as_nobody)
    return done.returncode, done.stdout, done.stderr


def kept(folder, name, data):
    path = folder / name
    path.write_bytes(data)
    path.chmod(0o444)
    return path


def main(folder):
    folder.chmod(0o755)
    plain = kept(folder, "plain.raw", container)
    code, out, err = run("listing", "--list", "--image", plain)
    expect(code == 0 and "APFS" in out and "apfs_test" in out, "the volume is not shown", out, err)
    code, out, err = run("listing", "--image", plain)
    for path in ("/passwords.txt", "/a_directory/a_file", "/a_directory/another_file", "/.fseventsd/fseventsd-uuid"):
        expect(f"|{path}|" in out, path, "is not listed", out, err)
    expect("|/a_link -> a_directory/another_file|" in out, "the link's target", out)
    for kind in ([], ["--deep"]):
        code, out, err = run("scan", "--no-store", "--image", plain, *kind)
        expect(code == 2 and "no Mac" in err and not out, "what is no Mac's disk", code, out, err)

    mac = kept(folder, "mac.raw", with_tree(container, MAC))
    before = hashlib.sha256(mac.read_bytes()).hexdigest()
    code, out, err = run("scan", "--no-store", "--hash", "--format", "json", "--image", mac)
    expect(code == 1, "the Mac's scan", code, out, err)
    report = json.loads(out)
    found = {item["path"]: item["user"] for item in report["report"]["spyWareList"]}
    expect(found == {"/Library/LaunchAgents/com.refog.agent.plist": "", "/Users/alice/Library/mdsa1331": "alice"},
           "findings", found)
    expect(report["coverage"]["source"]["sha256"] == report["subject"]["sha256"] == before, "the hash told")
    expect(report["coverage"]["source"]["remark"] is None, "confinement", report["coverage"]["source"])
    code, out, err = run("scan", "--no-store", "--deep", "--user", "alice", "--image", mac)
    expect("/Users/alice/Aobo Keylogger Pro.pdf" in out, "the deep scan", out, err)
    expect(hashlib.sha256(mac.read_bytes()).hexdigest() == before, "the image was changed")

    names = kept(folder, "names", run("listing", "--image", mac)[1].encode())
    again = json.loads(run("scan", "--no-store", "--format", "json", "--listing", names)[1])
    expect({item["path"] for item in again["report"]["spyWareList"]} == set(found), "by way of a list", again)

    data = kept(folder, "data.raw", with_volume(mac.read_bytes(), lambda block: block.__setitem__(0x3C4, 0x40)))
    expect("Data" in run("listing", "--list", "--image", data)[1], "the role is not shown")
    exact = kept(folder, "exact.raw", with_volume(mac.read_bytes(), lambda block: block.__setitem__(56, 8)))
    code, out, err = run("scan", "--no-store", "--image", exact)
    expect("mdsa1331" not in out and "com.refog.agent.plist" in out, "a volume that tells case apart", out, err)

    # Of an encrypted volume the tree of files is noise without the key.
    number, _ = tree_blocks(container)
    noise = container[:number * BLOCK] + os.urandom(BLOCK) + container[(number + 1) * BLOCK:]
    locked = kept(folder, "locked.raw", with_volume(noise, lambda block: block.__setitem__(264, 0)))
    expect("encrypted" in run("listing", "--list", "--image", locked)[1], "the lock is not shown")
    password = kept(folder, "password", b"not this one\n")
    for more, words in ([], "--password-file"), (["--password-file", password], "does not open it"):
        code, out, err = run("scan", "--no-store", "--image", locked, *more)
        expect(code == 2 and not out and "encrypted" in err, "an encrypted volume", code, out, err)
        expect(words in err or "built without decryption" in err, "what to do about it", err)


with scratch() as place:
    main(place)
