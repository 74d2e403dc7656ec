#!/usr/bin/env python3
"""Stops spread over a deep scan, each stored and not, as text and as JSON: what was found by then is printed in
the form that was asked for, it is what is stored, and nothing calls it clean afterwards. And a second Ctrl+C ends at
once what the first one cannot.

    stops_test.py COMMAND-LINE
"""
import json
import os
import signal
import subprocess
import time

from program import cli, interrupted, run, scratch

STOPS = int(os.environ.get("PRYVANE_TEST_STOPS", "12"))
FOLDERS, FILES = 30, 2000
FINDINGS = ("tmp/.mdworker", "Users/alice/Library/LaunchAgents/com.refog.agent.plist",
            *(f"Users/alice/Documents/{number}/Koobface" for number in range(FOLDERS)))


def made(volume, findings):
    """A disk with so many files that a scan takes a while; hard links are quickly made."""
    for name in (*findings, *(f"Users/alice/Documents/{part}/0" for part in range(FOLDERS))):
        (volume / name).parent.mkdir(parents=True, exist_ok=True)
        (volume / name).write_text("x")
    for first in volume.glob("Users/alice/Documents/*/0"):
        for number in range(1, FILES):
            os.link(first, first.with_name(str(number)))


def paths(document):
    return sorted(row["path"] for row in document["report"]["spyWareList"])


def stopped(volume, after, kept, form):
    """Whether the scan was stopped before all was done; then it must have said so everywhere."""
    done = interrupted(after, "scan", "--deep", "--user", "alice", "--volume", volume, "--format", form,
                       *([] if kept else ["--no-store"]))
    if done.returncode in (0, 1):
        if kept:
            run("report", "delete", "latest", "--yes", "--volume", volume)
        return False
    assert done.returncode == 130, done
    if form == "json":
        shown = json.loads(done.stdout)
        found = paths(shown)
        assert shown["verdict"] == ("found" if found else "stopped"), shown["verdict"]
        assert shown["coverage"]["ended"] == "stopped", shown["coverage"]["ended"]
    else:
        found = sorted(line.split()[-1] for line in done.stdout.splitlines() if "High Risk" in line)
        assert done.stdout.startswith("Found: " if found else "Stopped at "), done
        assert "stopped at" in done.stdout.lower() and "Clean" not in done.stdout, done
    assert set(found) <= {"/" + name for name in FINDINGS}, found
    if kept:
        stored = json.loads(run("report", "export", "latest", "--volume", volume).stdout)
        assert paths(stored) == found, "what is stored is what was printed"
        assert stored["verdict"] in ("found", "stopped")
        first = run("report", "list", "--volume", volume).stdout.splitlines()[0]
        assert first.endswith("Stopped") and " clean " not in first, first
        assert "Clean" not in run("report", "show", "latest", "--volume", volume).stdout
    return True


def stops(volume, findings):
    made(volume, findings)
    started = time.monotonic()
    run("scan", "--deep", "--no-store", "--user", "alice", "--volume", volume, code=1 if findings else 0)
    lasts = time.monotonic() - started
    for kept in (True, False):
        for form in ("text", "json"):
            for number in range(STOPS):
                after = 0.03 + lasts * number / STOPS
                while not stopped(volume, after, kept, form):
                    after *= 0.7  # it came too late and is tried again, earlier
    print(f"{len(findings)} to be found: {4 * STOPS} stops within {lasts:.2f} s")


def second_stop():
    """Nobody reads what is printed, so an orderly end does not come."""
    read, write = os.pipe()
    process = subprocess.Popen([cli, "catalog", "--format", "json"], stdout=write)
    for ended in (None, 130):
        time.sleep(0.5)
        assert process.poll() is None, "the pipe is full, and the first stop only asks"
        process.send_signal(signal.SIGINT)
    assert process.wait(10) == ended
    os.close(read)
    os.close(write)


second_stop()
for looked_for in (FINDINGS, ()):
    with scratch() as work:
        stops(work / "volume", looked_for)
