#!/usr/bin/python3
"""Many disks in one go: 200 of them by a file, with a broken image and an empty folder among them.

    many_disks_test.py PRYVANE-CLI SCHEMA

Each must be told under its label as a scan of it alone tells it, the two that fail with their reason, and
the exit code must be the worst. Prints the wall time beside that of one process a disk.
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import time

import jsonschema

from program import hfs_image, interrupted, run, scratch

DISKS = int(os.environ.get("PRYVANE_TEST_DISKS", "200"))
schema = jsonschema.Draft202012Validator(json.loads(pathlib.Path(sys.argv[2]).read_text()))


def lines_of(done):
    return [json.loads(line) for line in done.stdout.splitlines()]


def planted(work):
    """Label, source and the code expected; one in ten folders has a finding."""
    disks = []
    for number in range(DISKS):
        folder = work / f"disk{number}"
        (folder / f"Users/u{number}/Library").mkdir(parents=True)
        (folder / "Library/LaunchAgents").mkdir(parents=True)
        if number % 10 == 3:
            (folder / f"Users/u{number}/Library/mdsa1331").write_text("harmless")
        disks.append((f"Desk {number}", folder, 1 if number % 10 == 3 else 0))
    broken, empty, names = work / "broken.E01", work / "empty", work / "names.txt"
    broken.write_bytes(b"EVF\x09\x0d\x0a\xff\x00" + bytes(100_000))
    empty.mkdir()
    names.write_text("/Users/zoe/Library/mdsa1331\n/Users/zoe/a\n/Library/b\n")
    disks[DISKS // 4] = ("Broken", broken, 2)
    disks[DISKS // 2] = ("Empty \u202e<b>", empty, 2)
    disks[DISKS // 2 + 1] = ("A list", names, 1)
    if shutil.which("xorriso"):
        disks[DISKS // 2 + 2] = ("An image", hfs_image(work / "mac.img", ["Users/zoe/Library/mdsa1331"]), 1)
    source = work / "disks.tsv"
    source.write_text("# label, disk\n\n" + "".join(f"{label}\t{path}\n" for label, path, _ in disks))
    return disks, source


def check_lines(disks, source):
    lines = lines_of(run("scan", "--from", source, "--jobs", "4", "--format", "jsonl", "--case", "2026-17", code=2))
    for line in lines:
        schema.validate(line)
    last = lines[-1]
    assert (last["type"], last["disks"], last["failed"], last["code"]) == ("disks", len(disks), 2, 2), last
    rows = [line for line in lines if line["type"] == "disk"]
    assert lines[-len(rows) - 2]["type"] == "end" and len(rows) == len(disks)
    told = [(row["label"], row["code"]) for row in rows]
    assert told == [(label.replace("\u202e", "\\u{202e}"), code) for label, _, code in disks], "the order of the file"
    assert {row["kind"] for row in rows} >= {"folder", "image", "listing"}
    for row in rows:
        assert (row["error"] is not None) == (row["code"] == 2) == (row["verdict"] is None), row
    assert "Mac" in rows[DISKS // 2]["error"], rows[DISKS // 2]
    # Each disk's lines stand together, under its own label, and say what a scan of it alone says.
    at, heads = 0, {}
    while lines[at]["type"] == "scan":
        end = next(i for i in range(at, len(lines)) if lines[i]["type"] == "end")
        heads[lines[at]["label"]] = lines[at:end + 1]
        assert {line["type"] for line in lines[at + 1:end]} <= {"finding"} and lines[at]["case"] == "2026-17"
        at = end + 1
    assert at == len(lines) - len(rows) - 1 and len(heads) == len(disks) - 2
    own = ("report", "label", "case", "start", "end", "seconds", "coverage")
    for label, path, _ in disks[::37] + [disk for disk in disks if disk[0] in ("A list", "An image")]:
        if label in heads:
            alone, among = ([{key: line[key] for key in line if key not in own} for line in told] for told in (
                lines_of(run("scan", path, "--no-store", "--format", "jsonl")), heads[label]))
            assert alone == among, (label, alone)


def check_text(disks, source):
    done = run("scan", "--from", source, "--no-store", code=2)
    tail = done.stdout.splitlines()[-len(disks) - 1:]
    assert tail[-1].startswith(f"{len(disks)} disks in ") and tail[-1].endswith("; 2 failed"), tail[-1]
    assert "Broken" in tail[len(disks) // 4] and "failed: " in tail[len(disks) // 4], tail[len(disks) // 4]
    assert sum("Found: 1 potential threat" in line for line in tail) >= len(disks) // 10
    assert "\u202e" not in done.stdout + done.stderr
    assert "Broken: " in done.stderr and "Empty" in done.stderr


def check_refusals(work, disks):
    (work / "bad.tsv").write_text("a\t/\nno tab\n")
    (work / "none.tsv").write_text("# nothing\n")
    two = [disks[0][1], disks[1][1]]
    for arguments, said in [(["--from", work / "bad.tsv"], "line 2"), (["--from", work / "none.tsv"], "names no disk"),
                            (["--from", work / "missing"], "missing"), ([*two, "--label", "x"], "--label"),
                            ([*two, "--format", "json"], "jsonl"), ([*two, "--pdf", work / "x.pdf"], "documents"),
                            ([*two, "--volume", "/"], "--volume")]:
        done = run("scan", *arguments, code=2)
        assert done.stdout == "" and said in done.stderr, (arguments, done)
    assert str(two[0]) in run("scan", *two, "--no-store", code=0).stdout


def check_interrupt(source):
    """Ctrl+C ends those that run in order, lets none begin, and still tells what there is."""
    done = interrupted(0.5, "scan", "--from", source, "--paced", "--no-store", "--jobs", "2")
    assert done.returncode == 130 and "interrupted" in done.stderr and f"{DISKS} disks in " in done.stdout, done
    left = subprocess.run(["pgrep", "-f", f"scan --volume={source.parent}"], capture_output=True, text=True).stdout
    assert left == "", "scans were left running"


def seconds(work):
    began = time.monotonic()
    work()
    return time.monotonic() - began


with scratch() as place:
    all_disks, by_file = planted(place)
    together = seconds(lambda: check_lines(all_disks, by_file))
    assert len(run("report", "list").stdout.splitlines()) == DISKS - 2, "a report of each that could be scanned"
    os.environ["PRYVANE_DATA_DIR"] = str(place / "other")
    each = seconds(lambda: [run("scan", path, "--format", "jsonl") for _, path, _ in all_disks])
    check_text(all_disks, by_file)
    check_refusals(place, all_disks)
    check_interrupt(by_file)
    print(f"{DISKS} disks: {together:.2f} s with 4 jobs, {each:.2f} s one process after the other")
