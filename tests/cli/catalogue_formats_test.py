#!/usr/bin/env python3
"""What the catalogue says in the form of other engines, beside what a quick scan says of the same disk.

  catalogue_formats_test.py PROGRAM MAKE_DEMO_VOLUME

The query packs run on SQLite over a table of files that offers what osquery's offers: a "%" of LIKE
stands for one name. The artifact is read by a YAML parser and its globs are applied name by name.
Differences allowed: an application that the scan holds back or finds by its maker's name, and remote
desktop, of whose places the scan lists the first.
"""
import collections
import csv
import fnmatch
import io
import json
import os
import random
import re
import sqlite3
import sys

import yaml

import program

DISKS = int(os.environ.get("PRYVANE_TEST_DISKS", "12"))


def run(*arguments):
    return program.run(*arguments, code=0).stdout


def queries(*more):
    pack = json.loads(run("catalog", "--format", "osquery", *more))
    assert set(pack) == {"platform", "queries"} and pack["platform"] == "darwin"
    for name, query in pack["queries"].items():
        assert re.fullmatch(r"[a-z0-9_]+", name) and query["interval"] > 0
        # A table of files asks for where to look, and a doubled wildcard would walk the whole disk.
        assert "path IN (" in query["query"] or "path LIKE" in query["query"] or "path = " in query["query"]
        assert "%%" not in query["query"].replace("ESCAPE", "")
    return [query["query"] for query in pack["queries"].values()]


def like(pattern, text, escape=None):
    expression, at = "", 0
    while at < len(pattern):
        c = pattern[at]
        if escape is not None and c == escape:
            at += 1
            expression += re.escape(pattern[at])
        elif c == "%":
            expression += "[^/]*"
        elif c == "_":
            expression += "."
        else:
            expression += re.escape(c)
        at += 1
    return re.fullmatch(expression, text, re.IGNORECASE | re.DOTALL) is not None


def entries(root):
    for folder, folders, files in os.walk(root):
        for name in folders + files:
            path = os.path.join(folder, name)
            place, kind = "/" + os.path.relpath(path, root), "directory" if os.path.isdir(path) else "regular"
            yield place, kind
            # A Mac has these folders under their short names too.
            if re.match(r"/private/(etc|tmp|var)/", place):
                yield place.removeprefix("/private"), kind


def found_by_packs(root, packs):
    base = sqlite3.connect(":memory:")
    base.create_function("like", 2, like)
    base.create_function("like", 3, like)
    # On a Mac the table answers for a path as the disk compares it.
    base.execute("CREATE TABLE file(path TEXT COLLATE NOCASE, type TEXT, size, btime, mtime, ctime)")
    base.executemany("INSERT INTO file VALUES(?, ?, 0, 0, 0, 0)", entries(root))
    return {(row[0], row[1].lower()) for query in packs for row in base.execute(query)}


def found_by_artifact(root, artifact):
    parameters = {parameter["name"]: parameter for parameter in artifact["parameters"]}

    def table(name):
        return list(csv.DictReader(io.StringIO(parameters[name]["default"])))

    def parts(path):
        return path.lower().strip("/").split("/")

    def fits(path, glob):
        names, patterns = parts(path), parts(glob)
        return len(names) == len(patterns) and all(map(fnmatch.fnmatchcase, names, patterns))

    disk = list(entries(root))
    by_depth = collections.defaultdict(list)
    for row in table("Locations"):
        by_depth[len(parts(row["Glob"]))].append(row)
    found = set()
    for path, kind in disk:
        for row in by_depth[len(parts(path))]:
            if fits(path, row["Glob"]) and (row["FolderOnly"] == "N" or kind == "directory"):
                found.add((row["Family"], path.lower()))
        if any(fits(path, row["Glob"]) for row in table("Folders")) and \
                not re.search(parameters["KnownGood"]["default"], path, re.IGNORECASE):
            for row in table("Names"):
                if re.search(row["Expression"], path):
                    found.add((row["Family"], path.lower()))
    return found


def found_by_scan(root):
    report = json.loads(program.run("scan", "--volume", root, "--no-store", "--format", "json").stdout)
    return {(entry["infections"], "/" + entry["path"].strip("/").lower()) for entry in report["report"]["spyWareList"]}


def is_told(family, path):
    return family == "Apple Remote Desktop" or path.endswith(".app")


def plant(root, places, fragments, chance):
    """Some of the catalogue's places, some near misses, names with fragments."""
    folders = ["Library/Caches", "Library/LaunchAgents", "System/Library/LaunchDaemons", "Library/Preferences",
               "Users/alice/Library/Caches", "Users/bob/Library/LaunchAgents", "Users/bob/Library/Containers"]
    wanted = [place.replace("*", chance.choice(["alice", "bob"])) for place in chance.sample(places, 12)]
    wanted += [place[:-1] + "x" for place in wanted[:4]] + ["/Library/LaunchDaemons/com.apple.logind.plist"]
    for fragment in chance.sample(fragments, 6):
        wanted.append("/" + chance.choice(folders) + "/" + chance.choice(["com", "", "my "]) + fragment.upper() + "x")
    for user in "alice", "bob":
        (root / "Users" / user / "Library").mkdir(parents=True)
    (root / "System/Library").mkdir(parents=True)
    for path in wanted:
        target = root / path.strip("/")
        try:
            target.parent.mkdir(parents=True, exist_ok=True)
            if path.endswith("/") or chance.random() < 0.2:
                target.mkdir(exist_ok=True)
            elif not target.exists():
                target.touch()
        except (FileExistsError, NotADirectoryError):
            pass  # another place wants a file there


def main():
    packs = queries() + queries("--names")
    artifact = yaml.safe_load(run("catalog", "--format", "velociraptor"))
    assert set(artifact) == {"name", "author", "description", "type", "precondition", "parameters", "sources"}
    assert artifact["type"] == "CLIENT" and len(artifact["sources"]) == 2
    assert all(set(parameter) <= {"name", "description", "type", "default"} for parameter in artifact["parameters"])
    program.run("catalog", "--format", "json", "--names", code=2)
    places = run("catalog", "--format", "paths").splitlines()
    assert len(places) == len(set(places)) and all(place.startswith("/") for place in places)
    names = next(p for p in artifact["parameters"] if p["name"] == "Names")["default"]
    fragments = [re.sub(r"\\(.)", r"\1", row["Expression"].removeprefix("(?i)"))
                 for row in csv.DictReader(io.StringIO(names))]

    seen = told = 0
    with program.scratch(sys.argv[2]) as work:
        disks = [work / "demo"]
        for number in range(DISKS):
            disks.append(work / str(number))
            plant(disks[-1], places, fragments, random.Random(number))
        for disk in disks:
            scan = found_by_scan(disk)
            for name, other in ("osquery", found_by_packs(disk, packs)), ("velociraptor", found_by_artifact(disk, artifact)):
                # A scan lists a place once, under the first family that names it.
                more = {row for row in other if row[1] not in {path for _, path in scan}}
                difference = {row for row in (scan - other) | more if not is_told(*row)}
                assert not difference, (name, disk.name, {row: row in scan for row in difference})
                told += len((scan - other) | more)
            seen += len(scan)
    assert seen > 5 * DISKS
    print(f"{len(packs)} queries, {sum(map(len, packs))} characters, longest {max(map(len, packs))}; "
          f"{len(places)} places, {len(fragments)} words; {len(disks)} disks with {seen} findings: "
          f"no difference, {told} applications and remote-desktop places apart")


main()
