#!/usr/bin/env python3
"""Every line of every command that writes JSON Lines, against the schema; and the guide's one-liners.

    lines_test.py PRYVANE-CLI MAKE-DEMO-VOLUME SCHEMA GUIDE

The schema lets further keys pass, as readers must; here it is also applied without them, so that none is
written that it does not name, and each of its kinds of line must have been seen.
"""
import copy
import hashlib
import html
import json
import os
import pathlib
import re
import subprocess
import sys
import time

import jsonschema

import program
from program import cli, interrupted, scratch

make_volume, schema_file, guides = sys.argv[2:5]
schema = json.loads(pathlib.Path(schema_file).read_text())
jsonschema.Draft202012Validator.check_schema(schema)


def closed(node):
    if isinstance(node, dict):
        node = {key: closed(value) for key, value in node.items()}
        if "properties" in node:
            node["additionalProperties"] = False
        return node
    return [closed(value) for value in node] if isinstance(node, list) else node


kinds = [row["$ref"].split("/")[-1] for row in schema["anyOf"]]
strict = {kind: jsonschema.Draft202012Validator({**closed(schema["$defs"][kind]), "$defs": closed(schema["$defs"])})
          for kind in kinds}
whole = jsonschema.Draft202012Validator(schema)
seen = {}


def check(text, ends=True):
    assert text.endswith("\n"), text[-100:]
    lines = [json.loads(line) for line in text.splitlines()]
    for line in lines:
        whole.validate(line)
        fitting = [kind for kind in kinds if strict[kind].is_valid(line)]
        assert len(fitting) == 1, (fitting, line)
        seen.setdefault(fitting[0], []).append(line)
    assert all((line["type"] in ("scan", "inventory", "privacy", "remove")) == ("schema" in line) for line in lines)
    assert lines[0]["schema"] == 1
    assert not ends or [line["type"] for line in lines].index("end") == len(lines) - 1
    return lines


def run(*arguments, code=0, ends=True):
    return check(program.run(*arguments, code=code).stdout, ends)


def document_of(*arguments):
    return json.loads(program.run(*arguments).stdout)


def rows(lines, kind):
    return [line for line in lines if line["type"] == kind]


def scans(work, demo, on):
    lines = run("scan", *on, "--format", "jsonl", code=1)
    document = document_of("report", "export", "latest", "--volume", demo)
    same = {"infections": "family", "isWeak": "weak"}
    for row, line in zip(document["report"]["spyWareList"], rows(lines, "finding"), strict=True):
        for key in ("infections", "isWeak", "path", "url", "size", "evidence", "rule", "presence"):
            assert row[key] == line[same.get(key, key)], (key, row, line)
    assert lines[-1]["verdict"] == document["verdict"] == "found" and lines[-1]["findings"] == len(lines) - 2
    assert lines[0]["report"] == document["report"]["reportId"]
    exported = run("report", "export", "latest", "--volume", demo, "--format", "jsonl")
    assert rows(exported, "finding") == rows(lines, "finding"), "a stored report says something else"

    run("scan", *on, "--deep", "--facts", "--format", "jsonl", code=1)
    image = work / "mac.body"
    image.write_text(program.run("listing", "--volume", demo, code=0).stdout)
    listed = run("scan", "--listing", image, "--no-store", "--hash", "--format", "jsonl", code=1)
    assert listed[0]["subject"]["sha256"] == hashlib.sha256(image.read_bytes()).hexdigest()
    assert {line["presence"] for line in rows(listed, "finding")} <= {"there", "unknown"}

    several = run("scan", demo, image, "--no-store", "--format", "jsonl", code=1, ends=False)
    assert [line["code"] for line in rows(several, "disk")] == [1, 1] and several[-1]["type"] == "disks"

    stopped = interrupted(0.5, "scan", *on, "--paced", "--format", "jsonl")
    assert stopped.returncode == 130 and check(stopped.stdout)[-1]["coverage"]["ended"] == "stopped"


def findings_are_told_whole(demo, on):
    """Times and hash are the disk's own; a name that is no text comes back by its URL."""
    foul = os.fsencode(demo) + b"/Users/alice/Aobo Keylogger Pro\xff\n\x1b[31m.txt"
    with open(foul, "wb") as out:
        out.write(b"harmless")
    os.utime(foul, (1_500_000_000, 1_500_000_000))
    lines = run("scan", *on, "--deep", "--hash", "--no-store", "--format", "jsonl",
                "--label", "Bench 4 \u202e", "--case", "2026-17", "--examiner", "A. Lee", code=1)
    assert [lines[0][key] for key in ("label", "case", "examiner")] == ["Bench 4 \\u{202e}", "2026-17", "A. Lee"]
    line, = [line for line in rows(lines, "finding") if "x1b[31m" in line["path"]]
    assert line["url"].endswith("Aobo%20Keylogger%20Pro%FF%0A%1B%5B31m.txt"), line
    assert line["modified"] == "2017-07-14T02:40:00.000Z" and line["kind"] == "file"
    changed = os.stat(foul).st_ctime_ns // 1_000_000
    assert abs(time.strptime(line["changed"][:19], "%Y-%m-%dT%H:%M:%S").tm_sec - changed // 1000 % 60) == 0
    assert line["sha256"] == hashlib.sha256(b"harmless").hexdigest()
    files = [line for line in rows(lines, "finding") if line["kind"] == "file"]
    assert lines[-1]["coverage"]["contentsRead"] == len(files) > 1
    assert all(line["sha256"] is None for line in rows(lines, "finding") if line["kind"] != "file")
    os.remove(foul)


def exports(work, demo, on):
    """What was said of a disk stands in every form; a bundle is whole, and never written over."""
    said = ["Bench <4>", "2026-17", "A. Lee"]
    done = program.run("scan", *on, "--label", said[0], "--case", said[1], "--examiner", said[2])
    assert all(text in done.stdout for text in said), done.stdout
    bundle = work / "bundle"
    command = [cli, "report", "export", "latest", "--volume", demo, "--bundle", bundle]
    subprocess.run(command, check=True)
    names = {"report.pdf", "report.html", "report.json", "report.jsonl", "findings.csv", "timeline.csv"}
    assert {path.name for path in bundle.iterdir()} == names | {"SHA256SUMS"}
    subprocess.run(["sha256sum", "-c", "--strict", "--quiet", "SHA256SUMS"], cwd=bundle, check=True)
    assert len((bundle / "SHA256SUMS").read_text().splitlines()) == len(names)
    (bundle / "report.pdf").rename(work / "report.pdf")
    paper = subprocess.run(["pdftotext", "-layout", work / "report.pdf", "-"], capture_output=True, text=True).stdout
    faces = {path.name: html.unescape(path.read_text()) for path in bundle.iterdir() if path.name != "SHA256SUMS"}
    assert said[0] in program.run("report", "list").stdout
    faces |= {"paper": paper, "shown": program.run("report", "show", "latest", "--volume", demo).stdout}
    for name, face in faces.items():
        assert all(text in face for text in said), (name, face[-2000:])
    check(faces["report.jsonl"])
    before = {path.name: path.read_bytes() for path in bundle.iterdir()}
    for taken in (bundle, work / "file", work / "dangling"):
        if taken.name == "file":
            taken.write_text("mine")
        elif taken.name == "dangling":
            taken.symlink_to(work / "nowhere")
        again = subprocess.run([*command[:-1], taken], capture_output=True)
        assert again.returncode == 2 and b"never written over" in again.stderr, again
    assert before == {path.name: path.read_bytes() for path in bundle.iterdir()} and not (work / "nowhere").exists()
    full = subprocess.run(["bash", "-c", 'ulimit -f 8; exec "$@"', "-", *command[:-1], work / "full"], capture_output=True)
    assert full.returncode == 2 and not (work / "full").exists(), (full, "half a bundle must not stay")


def removals(on):
    program.run("scan", *on)
    planned = run("remove", "latest", "--all", "--dry-run", *on, "--format", "jsonl")
    assert planned[0]["dryRun"] and rows(planned, "planned") and not rows(planned, "outcome")
    assert planned[-1]["removed"] == 0 and planned[-1]["left"] > 0
    done = run("remove", "latest", "--item", "1", "--item", "3", "--yes", *on, "--format", "jsonl")
    assert [line["outcome"] for line in rows(done, "outcome")] == ["removed", "removed"], done
    assert done[-1]["removed"] == 2 and done[-1]["left"] == planned[-1]["left"] - 2
    again = run("remove", "latest", "--item", "1", "--yes", *on, "--format", "jsonl")
    assert again[-1]["gone"] == 1
    refused = program.run("remove", "latest", "--item", "99", *on, "--format", "jsonl", code=2)
    assert refused.stdout == "", "an error must leave no half of an answer"


def lists(work, demo, on):
    for user in ("alice", "bob"):
        caches = demo / "Users" / user / "Library/Caches"
        caches.mkdir(parents=True, exist_ok=True)
        (caches / "a").write_text("b")
    everything = run("inventory", "--volume", demo, "--format", "jsonl", code=0)
    document = document_of("inventory", "--volume", demo, "--format", "json")
    for key in ("permissions", "startUp", "remoteAccess"):
        assert len([line for line in rows(everything, "fact") if line["list"] == key]) == len(document[key]) > 0
    users = document["users"] + [document["shared"]]
    for key in ("chrome", "launchAgents", "applications"):
        told = [line for line in rows(everything, "item") if line["list"] == key]
        assert len(told) == sum(len(user.get(key, [])) for user in users), key
    private = run("privacy", "list", "--volume", demo, "--format", "jsonl")
    assert {line["user"] for line in rows(private, "data")} == {"alice", "bob"}


def one_liners(work, demo, on):
    """What the guides show to be typed works, and tells something; what others collected is judged as a disk is."""
    text = "".join((pathlib.Path(guides) / name).read_text() for name in ("formats.md", "many-macs.md"))
    commands = re.findall(r"^jq .*$", text, re.MULTILINE)
    assert len(commands) >= 12, commands
    for name, command in (("scan", ["scan", "--deep", *on]), ("inventory", ["inventory", "--volume", str(demo)]),
                          ("month", ["scan", "--jobs", "2", str(demo), str(work)])):
        (work / f"{name}.jsonl").write_text(program.run(*command, "--format", "jsonl").stdout)
    found = [line["path"] for line in map(json.loads, (work / "scan.jsonl").open()) if line["type"] == "finding"]
    (work / "osquery-results.log").write_text("".join(json.dumps({"columns": {"path": path}}) + "\n" for path in found))
    (work / "collection").mkdir()
    for at, path in enumerate(found):
        (work / "collection" / f"{at}.json").write_text(json.dumps({"OSPath": path}))
    path = {**os.environ, "PATH": f"{pathlib.Path(cli).resolve().parent}:{os.environ['PATH']}"}
    for command in commands:
        done = subprocess.run(command, shell=True, cwd=work, env=path, capture_output=True, text=True)
        judged = "pryvane-cli" in command
        assert done.returncode == judged and done.stdout.strip(), (command, done.returncode, done.stderr)
        assert not judged or str(len(found)) in done.stdout, (command, done.stdout)


with scratch(make_volume) as work:
    demo = work / "demo"
    on = ["--volume", str(demo), "--user", "alice"]
    scans(work, demo, on)
    findings_are_told_whole(demo, on)
    exports(work, demo, on)
    one_liners(work, demo, on)
    removals(on)
    lists(work, demo, on)
assert seen.keys() == set(kinds), f"never written: {set(kinds) - seen.keys()}"
for kind, lines in seen.items():  # the schema can say no
    for key in schema["$defs"][kind].get("required", []):
        spoilt = copy.deepcopy(lines[0])
        del spoilt[key]
        assert not strict[kind].is_valid(spoilt), (kind, key)
print(f"{sum(map(len, seen.values()))} lines of {len(kinds)} kinds")
