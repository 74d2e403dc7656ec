#!/usr/bin/env python3
"""Stops spread over a deep scan, each stored and not, as text and as JSON: what was found by then is printed in
the form that was asked for, it is what is stored, and nothing calls it clean afterwards. And a second Ctrl+C ends at
once what the first one cannot.

    stops_test.py COMMAND-LINE
"""
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
from interrupts import handles_interrupts  # noqa: E402

STOPS = int(os.environ.get("PRYVANE_TEST_STOPS", "12"))
FILES = 60_000
FOLDERS = FILES // 2000
FINDINGS = ("tmp/.mdworker", "Users/alice/Library/LaunchAgents/com.refog.agent.plist",
            *(f"Users/alice/Documents/{number}/Koobface" for number in range(FOLDERS)))


def made(folder, findings):
    """A disk with so many files that a scan takes a while; hard links are quickly made."""
    for name in findings:
        (folder / name).parent.mkdir(parents=True, exist_ok=True)
        (folder / name).write_text("x")
    documents = folder / "Users/alice/Documents"
    for part in range(FOLDERS):
        (documents / str(part)).mkdir(parents=True, exist_ok=True)
        first = documents / str(part) / "0"
        first.write_text("x")
        for number in range(1, 2000):
            os.link(first, documents / str(part) / str(number))
    return folder


def paths(document):
    return sorted(row["path"] for row in document["report"]["spyWareList"])


class Runs:
    def __init__(self, program, volume):
        self.program, self.volume = program, volume
        self.told = {}

    def run(self, *arguments):
        return subprocess.run([self.program, *arguments, "--volume", self.volume], capture_output=True, text=True)

    def stopped(self, after, *arguments):
        """What a scan that is stopped after so many seconds prints, and its exit code."""
        with subprocess.Popen([self.program, "scan", "--deep", "--user", "alice", "--volume", self.volume, *arguments],
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as process:
            while not handles_interrupts(process):
                time.sleep(0.001)
            time.sleep(after)
            process.send_signal(signal.SIGINT)
            out, err = process.communicate(timeout=60)
        return process.returncode, out, err

    def check(self, after, kept, form):
        arguments = ["--format", form] + ([] if kept else ["--no-store"])
        code, out, err = self.stopped(after, *arguments)
        if code in (0, 1):  # the stop came when all was done
            if kept:
                self.run("report", "delete", "latest", "--yes")
            return False
        assert code == 130, (code, err)
        if form == "json":
            shown = json.loads(out)
            found = paths(shown)
            assert shown["verdict"] == ("found" if found else "stopped"), shown["verdict"]
            assert shown["coverage"]["ended"] == "stopped", shown["coverage"]["ended"]
        else:
            found = sorted(line.split()[-1] for line in out.splitlines() if "High Risk" in line)
            assert out.startswith("Found: " if found else "Stopped at "), out
            assert "stopped at" in out.lower()
            assert "Clean" not in out
        assert set(found) <= {"/" + name for name in FINDINGS}, found
        if kept:
            stored = json.loads(self.run("report", "export", "latest").stdout)
            assert paths(stored) == found, "what is stored is what was printed"
            assert stored["verdict"] in ("found", "stopped")
            first = self.run("report", "list").stdout.splitlines()[0]
            assert first.endswith("Stopped") and " clean " not in first, first
            assert "Clean" not in self.run("report", "show", "latest").stdout
        self.told[(kept, form)] = self.told.get((kept, form), 0) + 1
        return True


def stops(program, folder, findings):
    runs = Runs(program, str(made(folder, findings)))
    started = time.monotonic()
    whole = runs.run("scan", "--deep", "--no-store", "--user", "alice")
    assert whole.returncode == (1 if findings else 0), whole
    lasts = time.monotonic() - started
    for kept in (True, False):
        for form in ("text", "json"):
            for number in range(STOPS):
                # One that comes too late is tried again, earlier.
                after = 0.03 + lasts * number / STOPS
                while not runs.check(after, kept, form):
                    after *= 0.7
    assert runs.told == {(kept, form): STOPS for kept in (True, False) for form in ("text", "json")}, runs.told
    assert " clean " not in runs.run("report", "list").stdout
    print(f"{len(findings)} to be found: {sum(runs.told.values())} stops within {lasts:.2f} s")


def second_stop(program):
    """Nobody reads what is printed, so an orderly end does not come."""
    read, write = os.pipe()
    process = subprocess.Popen([program, "catalog", "--format", "json"], stdout=write)
    os.close(write)
    time.sleep(0.5)
    process.send_signal(signal.SIGINT)
    time.sleep(0.5)
    assert process.poll() is None, "the pipe is full, and the first stop only asks"
    started = time.monotonic()
    process.send_signal(signal.SIGINT)
    assert process.wait(10) == 130
    print(f"the second stop: {1000 * (time.monotonic() - started):.0f} ms")
    os.close(read)


def main(program):
    second_stop(program)
    for findings in (FINDINGS, ()):
        with tempfile.TemporaryDirectory(prefix="pryvane-stops-") as work:
            os.environ["PRYVANE_DATA_DIR"] = work + "/data"
            stops(program, pathlib.Path(work) / "volume", findings)


if __name__ == "__main__":
    main(str(pathlib.Path(sys.argv[1]).resolve()))
