"""What the tests share that run pryvane-cli, which is the first of their arguments."""
import contextlib
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

cli = str(pathlib.Path(sys.argv[1]).resolve())
CALL = re.compile(r"^(\d+)\s+(?:\d+:\d+:\d+ )?(\w+)\((.*)\)\s+= (-?\d+|\?)(?:<(.*)>)?")


def skip(why):
    print("skipped:", why)
    sys.exit(77)


def need(*tools):
    for tool in tools:
        if not shutil.which(tool):
            skip(f"{tool} is missing")


def expect(condition, *what):
    if not condition:
        print("FAILED:", *what)
        sys.exit(1)


def run(*arguments, code=None, **more):
    """The command with its output as text; it must end with that code, if one is given."""
    done = subprocess.run([cli, *map(str, arguments)], capture_output=True, encoding="utf-8", stdin=subprocess.DEVNULL,
                          **more)
    assert code is None or done.returncode == code, (arguments, done)
    return done


@contextlib.contextmanager
def scratch(make_volume=None):
    """A folder with the program's data and, if asked for, the demonstration volume as "demo"."""
    with tempfile.TemporaryDirectory(prefix="pryvane-") as name:
        os.environ["PRYVANE_DATA_DIR"] = name + "/data"
        if make_volume:
            subprocess.run([make_volume, name + "/demo"], check=True, stdout=subprocess.DEVNULL)
        yield pathlib.Path(name)


def handles_interrupts(process):
    """Whether the program has come so far that it obeys SIGINT, or has ended."""
    try:
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
    except FileNotFoundError:
        return True
    caught = int(next(line for line in status.splitlines() if line.startswith("SigCgt")).split()[1], 16)
    return process.poll() is not None or bool(caught & 1 << (signal.SIGINT - 1))


def interrupted(after, *arguments):
    """The command, stopped so many seconds after it began to listen."""
    with subprocess.Popen([cli, *map(str, arguments)], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          encoding="utf-8") as process:
        while not handles_interrupts(process):
            time.sleep(0.001)
        time.sleep(after)
        process.send_signal(signal.SIGINT)
        out, err = process.communicate(timeout=60)
    return subprocess.CompletedProcess(process.args, process.returncode, out, err)


def traced(folder, options, *arguments):
    """The command under strace, and each process's calls: name, arguments, result, and the path of what it opened."""
    need("strace")
    log = folder / "trace"
    done = subprocess.run(["strace", "-f", "-qq", "-y", "-o", log, *options, cli, *map(str, arguments)],
                          capture_output=True, text=True, timeout=300)
    if not log.exists() or re.search("ptrace.*not permitted", done.stderr, re.IGNORECASE):
        skip("strace may not trace here")
    calls, pending = {}, {}
    for line in log.read_text(errors="surrogateescape").splitlines():
        process = line.split(maxsplit=1)[0]
        if line.endswith("<unfinished ...>"):
            pending[process] = line[:-len("<unfinished ...>")]
            continue
        if "resumed>" in line:
            line = pending.pop(process, process + " ") + line.split("resumed>", 1)[1]
        if match := CALL.match(line):
            calls.setdefault(process, []).append((match[2], match[3], match[4], match[5] or ""))
    return done, calls


def hfs_image(image, files, content="x"):
    """Makes an image of a disk with these files on an HFS+ volume, below an Apple partition map."""
    need("xorriso")
    disk = pathlib.Path(f"{image}.disk")
    for path in files:
        (disk / path).parent.mkdir(parents=True, exist_ok=True)
        (disk / path).write_text(content)
    subprocess.run(["xorriso", "-as", "mkisofs", "-quiet", "-hfsplus", "-o", str(image), str(disk)], check=True,
                   capture_output=True)
    return image
