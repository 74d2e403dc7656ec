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
import signal
import subprocess
import sys
import tempfile
import time

import jsonschema

cli, schema_file = sys.argv[1:3]
DISKS = int(os.environ.get("PRYVANE_TEST_DISKS", "200"))
schema = jsonschema.Draft202012Validator(json.loads(pathlib.Path(schema_file).read_text()))


def run(*arguments, **more):
    return subprocess.run([cli, *map(str, arguments)], capture_output=True, text=True, **more)


def small_disk(folder, number):
    (folder / f"Users/u{number}/Library").mkdir(parents=True)
    (folder / "Library/LaunchAgents").mkdir(parents=True)
    if number % 10 == 3:  # one in ten has a finding
        (folder / f"Users/u{number}/Library/mdsa1331").write_text("harmless")


def planted(work):
    """Label, source and the code expected, one in a hundred an image and one a list of names."""
    disks = []
    for number in range(DISKS):
        folder = work / f"disk{number}"
        small_disk(folder, number)
        disks.append((f"Desk {number}", folder, 1 if number % 10 == 3 else 0))
    broken, empty, names = work / "broken.E01", work / "empty", work / "names.txt"
    broken.write_bytes(b"EVF\x09\x0d\x0a\xff\x00" + bytes(100_000))
    empty.mkdir()
    names.write_text("/Users/zoe/Library/mdsa1331\n/Users/zoe/a\n/Library/b\n")
    disks[DISKS // 4] = ("Broken", broken, 2)
    disks[DISKS // 2] = ("Empty \u202e<b>", empty, 2)
    disks[DISKS // 2 + 1] = ("A list", names, 1)
    if shutil.which("xorriso"):
        image = work / "mac.img"
        subprocess.run(["xorriso", "-as", "mkisofs", "-quiet", "-hfsplus", "-o", image, work / "disk3"], check=True,
                       stderr=subprocess.DEVNULL)
        disks[DISKS // 2 + 2] = ("An image", image, 1)
    return disks


def named(work, disks):
    source = work / "disks.tsv"
    source.write_text("# label, disk\n\n" + "".join(f"{label}\t{path}\n" for label, path, _ in disks))
    return source


def check_lines(disks, source):
    began = time.monotonic()
    done = run("scan", "--from", source, "--jobs", "4", "--format", "jsonl", "--case", "2026-17")
    took = time.monotonic() - began
    assert done.returncode == 2, (done.returncode, done.stderr[-500:])
    lines = [json.loads(line) for line in done.stdout.splitlines()]
    for line in lines:
        schema.validate(line)
    last = lines[-1]
    assert (last["type"], last["disks"], last["failed"], last["code"]) == ("disks", len(disks), 2, 2), last
    rows = [line for line in lines if line["type"] == "disk"]
    assert lines[-len(rows) - 2]["type"] == "end" and len(rows) == len(disks)
    shown = lambda text: text.replace("\u202e", "\\u{202e}")
    assert [row["label"] for row in rows] == [shown(label) for label, _, _ in disks], "the order of the file"
    assert [row["code"] for row in rows] == [code for _, _, code in disks]
    assert {row["kind"] for row in rows} >= {"folder", "image", "listing"}
    for row in rows:
        assert (row["error"] is not None) == (row["code"] == 2) and (row["verdict"] is None) == (row["code"] == 2), row
    by_label = {row["label"]: row for row in rows}
    assert "Mac" in by_label[shown("Empty \u202e<b>")]["error"] and by_label["Broken"]["error"], by_label
    # Each disk's lines stand together, under its own label, and say what a scan of it alone says.
    at, heads = 0, {}
    while lines[at]["type"] == "scan":
        end = next(i for i in range(at, len(lines)) if lines[i]["type"] == "end")
        heads[lines[at]["label"]] = lines[at:end + 1]
        assert {line["type"] for line in lines[at + 1:end]} <= {"finding"} and lines[at]["case"] == "2026-17"
        at = end + 1
    assert at == len(lines) - len(rows) - 1 and len(heads) == len(disks) - 2
    for label, path, _ in disks[::37] + [disk for disk in disks if disk[0] in ("A list", "An image")]:
        if label in heads:
            alone = [json.loads(line) for line in run("scan", path, "--no-store", "--format", "jsonl").stdout.splitlines()]
            fit = lambda told: [{key: line[key] for key in line if key not in (
                "report", "label", "case", "start", "end", "seconds", "coverage")} for line in told]
            assert fit(alone) == fit(heads[label]), (label, alone)
    return took


def check_store(disks):
    reports = run("report", "list").stdout.splitlines()
    assert len(reports) == len(disks) - 2, f"{len(reports)} reports of {len(disks) - 2} are in the store"


def check_text(disks, source):
    done = run("scan", "--from", source, "--no-store")
    assert done.returncode == 2
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
        done = run("scan", *arguments)
        assert done.returncode == 2 and done.stdout == "" and said in done.stderr, (arguments, done)
    plain = run("scan", *two, "--no-store")
    assert plain.returncode == 0 and str(two[0]) in plain.stdout


def check_interrupt(source):
    """Ctrl+C ends those that run in order, lets none begin, and still tells what there is."""
    program = subprocess.Popen([cli, "scan", "--from", source, "--paced", "--no-store", "--jobs", "2"],
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    time.sleep(1)
    program.send_signal(signal.SIGINT)
    out, err = program.communicate(timeout=60)
    assert program.returncode == 130, (program.returncode, err[-300:])
    assert "interrupted" in err and f"{DISKS} disks in " in out
    left = subprocess.run(["pgrep", "-f", f"scan --volume={source.parent}"], capture_output=True, text=True).stdout
    assert left == "", "scans were left running"


def one_process_each(disks):
    began = time.monotonic()
    for _, path, _ in disks:
        run("scan", path, "--format", "jsonl")
    return time.monotonic() - began


def main():
    with tempfile.TemporaryDirectory(prefix="pryvane-disks-") as name:
        work = pathlib.Path(name)
        os.environ["PRYVANE_DATA_DIR"] = str(work / "data")
        disks = planted(work)
        source = named(work, disks)
        together = check_lines(disks, source)
        check_store(disks)
        os.environ["PRYVANE_DATA_DIR"] = str(work / "other")
        each = one_process_each(disks)
        check_text(disks, source)
        check_refusals(work, disks)
        check_interrupt(source)
        print(f"{len(disks)} disks: {together:.2f} s with 4 jobs, {each:.2f} s one process after the other")


main()
