#!/usr/bin/env python3
"""Lets each request for memory of pryvane-cli's commands fail in turn, and limits files and threads.

  exhaustion_test.py PROGRAM FAILING_MALLOC MAKE_DEMO_VOLUME

Each run must end with its usual code and its usual words, or with 2 and a sentence; the store must be
sound and hold the reports it held, and the next command must work at once. PRYVANE_TEST_ALLOCATIONS
says how many requests of each command fail, spread over all of them; "all" leaves none out.
"""
import collections
import concurrent.futures
import json
import os
import resource
import shutil
import signal
import sqlite3
import subprocess
import sys

from program import cli, expect, scratch

library, make_volume = sys.argv[2:4]
wanted = os.environ.get("PRYVANE_TEST_ALLOCATIONS", "40")
COMMANDS = {
    "quick scan": ["scan", "--format", "json"],
    "deep scan": ["scan", "--deep", "--format", "json"],
    "list": ["report", "list"],
    "remove": ["remove", "latest", "--all", "--yes"],
    "inventory": ["inventory", "--format", "json"],
}


class Scene:
    """A store with one report, and its volume."""

    def __init__(self, folder):
        self.folder = folder
        self.environment = {**os.environ, "PRYVANE_DATA_DIR": str(folder / "data")}

    def copy(self, name):
        shutil.copytree(self.folder, self.folder.with_name(name), symlinks=True)
        return Scene(self.folder.with_name(name))

    def run(self, command, extra=None, prepare=None):
        arguments = list(COMMANDS[command])
        if arguments[0] != "report":
            arguments += ["--volume", str(self.folder / "demo"), "--user", "alice"]
        return subprocess.run([cli, *arguments], env=self.environment | (extra or {}), capture_output=True,
                              timeout=60, preexec_fn=prepare)

    def reports(self):
        return self.run("list")


def identities(run):
    """Of the reports, newest first, with what each found; not how long ago that was."""
    return [(line[:36], line.split("found ")[1].split()[0]) for line in run.stdout.decode().splitlines() if "found " in line]


def told(command, run):
    """What of the output must not depend on the moment."""
    if command == "list":
        return identities(run)
    if "scan" not in command:
        return run.stdout
    report = json.loads(run.stdout)
    return (sorted(row["path"] for row in report["report"]["spyWareList"]), report["coverage"]["refused"])


def agree(command, run, usual):
    """A scan may also say which folders it had no memory to read; what lies there is then not told."""
    mine, other = told(command, run), told(command, usual)
    if mine == other or "scan" not in command:
        return mine == other
    (found, refused), (all_found, always_refused) = mine, other
    return set(found) <= set(all_found) and len(refused) > len(always_refused) and all(row in refused for row in always_refused)


def faults(command, scene, run, usual, before):
    words = run.stderr.decode(errors="replace")
    if run.returncode == 2:
        if not words.startswith("pryvane") or "terminate" in words or not words.endswith("\n"):
            yield f"no sentence: {words!r}"
    elif command == "inventory" and "out of memory" in words:  # said of the file that could not be read for it
        pass
    elif run.returncode != usual.returncode:
        yield f"code {run.returncode}: {words!r}"
    elif not agree(command, run, usual):
        yield f"says success and something else: {run.stdout[:300]!r} {words!r}"
    store = scene.folder / "data/Pryvane.sqlite"
    def beside():
        return sorted(file.name for file in store.parent.iterdir() if "sqlite" in file.name and file != store)
    # Without memory SQLite cannot undo a save that it could not end. It leaves its journal then, as after a crash, and
    # says that it failed; whoever opens the store next undoes it.
    allowed = [[], [store.name + "-journal"]] if run.returncode == 2 else [[]]
    if beside() not in allowed:
        yield f"beside the store: {beside()}"
    after = scene.reports()
    held = identities(before)
    if after.returncode != 0 or identities(after)[-len(held):] != held:
        yield f"reports afterwards: {after.stdout!r} {after.stderr!r}"
    # A journal that was never begun in earnest, its head still zeros, undoes nothing: a reader leaves it to the next
    # writer, which takes it away.
    journal = store.with_name(store.name + "-journal")
    if journal.exists() and any(journal.read_bytes()[:8]):
        yield "the next command did not undo what was begun"
    if beside():
        scene.run("quick scan")
    if beside():
        yield f"beside the store after the next writer: {beside()}"
    with sqlite3.connect(store) as connection:
        if connection.execute("pragma integrity_check").fetchall() != [("ok",)]:
            yield "the store is damaged"


def attempt(base, command, usual, before, name, **how):
    scene = base.copy(name)
    try:
        run = scene.run(command, **how)
        return run.returncode, [f"{name}: {fault}" for fault in faults(command, scene, run, usual, before)]
    except (subprocess.TimeoutExpired, ValueError, sqlite3.Error) as error:
        return None, [f"{name}: {error}"]
    finally:
        shutil.rmtree(scene.folder)


def no_threads():
    # Root is not held to a number of processes, but anyone to an address space.
    resource.setrlimit(resource.RLIMIT_NPROC, (1, 1))


def small_files():
    resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))
    signal.signal(signal.SIGXFSZ, signal.SIG_DFL)  # Python ignores it


def runs_of(command, requests):
    """What is to fail in each run of the command, by its name."""
    for at in range(1, requests + 1, 1 if wanted == "all" else max(1, requests // int(wanted))):
        failing = {"LD_PRELOAD": library, "PRYVANE_FAIL_AT": str(at)}
        yield f"{command}, request {at}", {"extra": failing}
        yield f"{command}, request {at} and on", {"extra": failing | {"PRYVANE_FAIL_ON": "1"}}
    yield f"{command}, small files", {"prepare": small_files}
    yield f"{command}, no threads", {"prepare": no_threads}


with scratch(make_volume) as work:
    (work / "base").mkdir()
    (work / "demo").rename(work / "base/demo")
    base = Scene(work / "base")
    base.run("quick scan")
    before = base.reports()
    failures, tries = [], 0
    with concurrent.futures.ThreadPoolExecutor(max(2, os.cpu_count() // 2)) as pool:
        for command in COMMANDS:
            scene = base.copy("usual")
            usual = scene.run(command, {"LD_PRELOAD": library, "PRYVANE_FAIL_COUNT": str(work / "count")})
            shutil.rmtree(scene.folder)
            runs = [pool.submit(attempt, base, command, usual, before, name, **how)
                    for name, how in runs_of(command, int((work / "count").read_text()))]
            codes = collections.Counter(run.result()[0] for run in runs)
            failures += [fault for run in runs for fault in run.result()[1]]
            tries += len(runs)
            print(f"{command}: {len(runs)} runs, codes {dict(codes)}")
    print(f"{tries} runs, {len(failures)} faults")
    expect(not failures, "\n".join(failures[:40]))
