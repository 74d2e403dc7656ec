#!/usr/bin/env python3
"""Reads what the linker made of every program and module, in the build tree and installed.

  elf_test.py paths BUILD FILE...          no file of ours lets the loader look through the current
                                           folder, and an installed one not through the build tree
  elf_test.py hardening BUILD FORTIFIED FILE...
                                           position-independent, read-only relocations bound at start,
                                           stack guards, no executable stack; FORTIFIED is 1 where the
                                           build is optimised and has no sanitizer
  elf_test.py marks ARCHIVE...             our own objects carry the mark for checked jumps
  elf_test.py hostile PROGRAM              started in a folder with libraries of the names that it
                                           needs, a program loads none of them
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

OWN_MODULES = ("libpryvane-network.so", "libpryvane-pdf.so", "libpryvane-print.so", "libpryvane-preview.so")
failures = []


def check(condition, file, what):
    if not condition:
        failures.append(f"{file}: {what}")


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True, env=os.environ | {"LC_ALL": "C"}).stdout


def dynamic(file):
    """(tag, value) pairs of the dynamic section."""
    return re.findall(r"\((\w+)\)[ \t]*(.*)", output("readelf", "-dW", file))


def run_paths(file):
    return [element for tag, value in dynamic(file) if tag in ("RPATH", "RUNPATH")
            for element in re.search(r"\[(.*)\]", value).group(1).split(":")]


def installed(build):
    """The ELF files of an installation into a folder of its own."""
    prefix = pathlib.Path(tempfile.mkdtemp(prefix="pryvane-elf-"))
    output("cmake", "--install", build, "--prefix", prefix)
    files = [file for file in prefix.rglob("*") if file.is_file() and file.read_bytes()[:4] == b"\x7fELF"]
    return prefix, files


def paths(build, *files):
    prefix, placed = installed(build)
    check(len(placed) == len(files), prefix, f"{len(placed)} files are installed, {len(files)} are built")
    for file in [*files, *placed]:
        for element in run_paths(file):
            check(element.startswith(("/", "$ORIGIN")), file, f"run path element '{element}' depends on the current folder")
            check(file in files or not element.startswith(build), file, f"run path element '{element}' lies in the build tree")
    # What is installed finds its modules, wherever it was put and from wherever it is started.
    cli = prefix / "bin/pryvane-cli"
    with tempfile.TemporaryDirectory() as folder:
        document = pathlib.Path(folder) / "report.pdf"
        (pathlib.Path(folder) / "Library").mkdir()
        scan = subprocess.run([cli, "scan", "--volume", ".", "--user", "jane", "--pdf", document], cwd=folder,
                              env=os.environ | {"PRYVANE_DATA_DIR": folder + "/data"}, capture_output=True, text=True)
        check(document.exists(), cli, f"cannot load its module: {scan.stderr}")
    subprocess.run(["rm", "-rf", prefix])


def hardening(_, fortified, *files):
    for file in files:
        tags = dynamic(file)
        flags = " ".join(value for tag, value in tags if tag in ("FLAGS", "FLAGS_1"))
        headers = output("readelf", "-hlW", file)
        symbols = output("readelf", "--dyn-syms", "-W", file)
        is_module = ".so" in pathlib.Path(file).name
        check("DYN (" in headers and (is_module or "PIE" in flags), file, "not position-independent")
        check("GNU_RELRO" in headers, file, "relocations stay writable")
        check("NOW" in flags.split(), file, "symbols are bound late")
        check(re.search(r"GNU_STACK .* RW +0x", headers), file, "executable stack")
        check(not re.search(r"LOAD .* RWE ", headers), file, "writable and executable memory")
        check("__stack_chk_fail" in symbols, file, "no stack guards")
        if fortified == "1":
            check(re.search(r"__(mem|str|read|readlink|f?printf|v?s?n?printf)\w*_chk", symbols), file, "no fortified call")


def marks(*archives):
    for archive in archives:
        notes = output("readelf", "-nW", archive)
        for member in re.split(r"^File: ", notes, flags=re.M)[1:]:
            name = member.splitlines()[0]
            check("IBT" in member or "BTI" in member, name, "no mark for checked jumps")


def hostile(program):
    """Each library there holds the names that the program wants, and leaves a file behind when it is loaded."""
    versioned = re.findall(r"File: (\S+)", output("readelf", "-VW", program))
    needed = [re.search(r"\[(.*)\]", value).group(1) for tag, value in dynamic(program) if tag == "NEEDED"]
    libraries = [library for library in needed if library not in versioned] + list(OWN_MODULES)
    wanted = re.findall(r"\bUND (\w+)$", output("readelf", "--dyn-syms", "-W", program), flags=re.M)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        source = folder / "hostile.c"
        source.write_text("#include <stdlib.h>\n__attribute__((constructor)) static void mark(void)"
                          "{ if (system(\"touch LOADED\")) exit(77); }\n"
                          + "".join(f"void {symbol}(void) {{}}\n" for symbol in wanted))
        output("cc", "-w", "-fno-builtin", "-shared", "-fPIC", "-o", folder / "hostile.so", source)
        for library in libraries:
            (folder / library).hardlink_to(folder / "hostile.so")
        environment = {key: value for key, value in os.environ.items() if not key.startswith("LD_")}
        environment |= {"PRYVANE_DATA_DIR": name + "/data", "QT_QPA_PLATFORM": "offscreen"}
        arguments = {"pryvane-cli": ["scan", "--volume", ".", "--user", "jane", "--pdf", "report.pdf"]}
        run = subprocess.run([program, *arguments.get(pathlib.Path(program).name, ["--help"])],
                             cwd=folder, env=environment, capture_output=True, text=True, timeout=60)
        check(not (folder / "LOADED").exists(), program, "loaded a library from the current folder")
        check(run.returncode in (0, 1, 2, 3), program, f"ended with {run.returncode}: {run.stderr[-300:]}")


{"paths": paths, "hardening": hardening, "marks": marks, "hostile": hostile}[sys.argv[1]](*sys.argv[2:])
print("\n".join(failures) or "fine")
sys.exit(1 if failures else 0)
