"""What the tests with images of disks share."""
import pathlib
import shutil
import subprocess
import sys


def need(*tools):
    for tool in tools:
        if not shutil.which(tool):
            print(f"skipped: {tool} is missing")
            sys.exit(77)


def expect(condition, *what):
    if not condition:
        print("FAILED:", *what)
        sys.exit(1)


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
