#!/usr/bin/env python3
"""Scans damaged copies of small HFS+ and APFS images: each must end within 30 s, in findings or in a sentence, never
in a crash and never as clean.

  mutated_images_test.py PROGRAM

PRYVANE_TEST_MUTATIONS says how many copies of each; PRYVANE_SAMPLES names a folder with apfs.raw.xz, without which
there is HFS+ alone.
"""
import collections
import concurrent.futures
import os
import random
import subprocess
import time

from apfs_container import BLOCK, MAC, checksum, sample, with_tree
from program import expect, hfs_image, run, scratch

wanted = int(os.environ.get("PRYVANE_TEST_MUTATIONS", "2000"))
FINDINGS = ["Users/alice/Library/mdsa1331", "Library/LaunchAgents/com.refog.agent.plist", "private/tmp/.mdworker",
            "Users/alice/Documents/Aobo Keylogger Pro.pdf"]


def hfs(folder):
    others = (f"Users/alice/Documents/Folder {i}/{j}.txt" for i in range(8) for j in range(8))
    return hfs_image(folder / "hfs.img", [*FINDINGS, *others], "x" * 5000).read_bytes()


def mutated(image, dice, used):
    """A copy that is cut off, or has other bytes where something was written; of APFS blocks mostly with the
    checksum set anew, so that what they hold is believed."""
    copy = bytearray(image)
    way = dice.randrange(6)
    if way == 0:
        return copy[:dice.randrange(len(copy))]
    for _ in range(dice.choice((1, 1, 2, 4, 16))):
        block = dice.choice(used)
        start = block * BLOCK
        at = start + dice.randrange(min(BLOCK, len(copy) - start))
        if way == 1:
            copy[at] ^= 1 << dice.randrange(8)
        elif way == 2:
            copy[at:at + 4] = dice.choice((b"\0\0\0\0", b"\xff\xff\xff\xff", b"\x7f\xff\xff\xff", b"\xff\xff\xff\x7f"))
        elif way == 3:
            other = dice.choice(used) * BLOCK
            copy[start:start + BLOCK] = copy[other:other + BLOCK]
        else:
            for _ in range(dice.choice((1, 8, 64))):
                copy[start + dice.randrange(min(BLOCK, len(copy) - start))] = dice.randrange(256)
        if way != 5 and start + BLOCK <= len(copy):
            copy[start:start + 8] = checksum(bytes(copy[start:start + BLOCK])) if image[32:36] == b"NXSB" else copy[
                start:start + 8]
    return copy


def scanned(folder, name, image, used, number):
    """What the scan of that copy came to, and how long it took."""
    path = folder / f"{name}-{number}.img"
    path.write_bytes(mutated(image, random.Random(number), used))
    began = time.monotonic()
    try:
        done = run("scan", "--deep", "--no-store", "--image", path, timeout=30)
    except subprocess.TimeoutExpired:
        return "FAILED: hangs", number, 30.0
    path.unlink()
    outcome = {1: "findings", 2: "refused", 3: "incomplete"}.get(done.returncode, f"FAILED: {done}")
    if outcome == "refused" and (done.stdout or not done.stderr.strip()):
        outcome = f"FAILED: says nothing: {done}"
    return outcome, number, time.monotonic() - began


def main(folder):
    container = sample()
    if not container:
        print("apfs: no sample, left out")
    for name, image in [("hfs", hfs(folder))] + ([("apfs", with_tree(container, MAC))] if container else []):
        used = [i for i in range(len(image) // BLOCK) if any(image[i * BLOCK:(i + 1) * BLOCK])]
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            outcomes = list(pool.map(lambda number: scanned(folder, name, image, used, number), range(wanted)))
        print(f"{name}: {wanted} copies: {dict(collections.Counter(outcome for outcome, *_ in outcomes))}; "
              f"the slowest took {max(took for *_, took in outcomes):.2f} s")
        expect(not any(outcome.startswith("FAILED") for outcome, *_ in outcomes),
               *(row for row in outcomes if row[0].startswith("FAILED")))


with scratch() as place:
    main(place)
