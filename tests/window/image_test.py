#!/usr/bin/python3
"""Opens an HFS+ image of the demonstration disk in the window, scans it, and is refused a removal in words.

    image_test.py mouse|keyboard PROGRAM MAKE-DEMO-VOLUME
    image_test.py start PROGRAM     is started with a long list, whose reading a window shows

PRYVANE_SCREENSHOTS=DIR keeps pictures.
"""
import hashlib
import os
import pathlib
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import Pilot, desktop, need, wait_for  # noqa: E402

REFUSAL = "This is an image or a list of names, which is only read and never changed."


def choose_file(pilot, path):
    """In the host's own panel, which has the keyboard on the file's name."""
    for _ in range(5):  # a list of completions may take the key that ends the name
        pilot.find("Choose", "push button")
        pilot.keys("ctrl+a")
        pilot.type(str(path))
        pilot.keys("Return")
        end = time.monotonic() + 3
        while time.monotonic() < end:
            if not pilot.look("Choose", "push button"):
                return
    raise AssertionError(f"{path} cannot be chosen")


def user_box(pilot):
    def look():
        return next((node for node in pilot.walk() if node.getRoleName() == "combo box"
                     and node.name in ("alice", "Everyone", "User")), None)
    return wait_for("the choice of user", look)


def by_mouse(pilot, image, text):
    pilot.confirm_access()
    pilot.click("Looking at MacintoshHD, user alice")
    pilot.click("Choose File…")
    choose_file(pilot, text)  # a file that is neither
    pilot.read("no volume on it is one of a Mac")
    pilot.shot("1-neither")
    pilot.click("Choose File…")
    choose_file(pilot, image)
    open_button = pilot.find("Open", "push button")
    wait_for("the names to be read", lambda: open_button.getState().contains(pilot.atspi.STATE_ENABLED))
    box = user_box(pilot)
    extents = box.queryComponent().getExtents(pilot.atspi.DESKTOP_COORDS)
    subprocess.run(["xdotool", "mousemove", str(extents.x + extents.width - 8), str(extents.y + extents.height // 2),
                    "click", "1"], check=True)
    rows = wait_for("the users", lambda: [node.name for node in pilot.walk() if node.getRoleName() == "list item"
                                          and node.name in ("Everyone", "alice")])
    assert rows[0] == "Everyone", rows
    pilot.shot("2-whose")
    pilot.click("Everyone", "list item")
    pilot.click("Open", "push button")
    pilot.find("Looking at mac.img, every user")
    pilot.shot("3-dashboard")
    pilot.click("Quick Scan >")
    pilot.read("Found: 11 potential threats.")
    pilot.shot("4-findings")
    pilot.click("Remove…", "push button")
    pilot.read(REFUSAL)
    pilot.shot("5-refused")
    pilot.click("OK")
    pilot.gone("OK")
    assert not pilot.look("Remove for good…"), "a plan was shown"
    pilot.click("Tools")
    pilot.find("Preview…", "push button")
    pilot.shot("6-tools")


def by_keyboard(pilot, image, _):
    pilot.confirm_access()
    pilot.keys("ctrl+o")
    pilot.tab_to("Choose File…")
    pilot.keys("space")
    choose_file(pilot, image)
    pilot.find("Choose File…")
    open_button = pilot.find("Open", "push button")
    wait_for("the names to be read", lambda: open_button.getState().contains(pilot.atspi.STATE_ENABLED))
    pilot.keys("Up")  # the choice of user has the keyboard once a file was chosen
    wait_for("everyone to be chosen", lambda: user_box(pilot).name == "Everyone")
    pilot.tab_to("Open")
    pilot.keys("space")
    pilot.find("Looking at mac.img, every user")
    pilot.find("Quick Scan >")
    pilot.tab_to("Quick Scan >")
    pilot.keys("space")
    pilot.read("Found: 11 potential threats.")
    pilot.tab_to("Remove…")
    pilot.keys("space")
    pilot.read(REFUSAL)
    pilot.keys("Return")
    pilot.gone("OK")
    assert not pilot.look("Remove for good…"), "a plan was shown"


def at_start(program):
    with desktop() as folder:
        names = folder / "names.txt"
        with names.open("w", encoding="utf-8") as out:
            out.write("/Library\n/Users\n")
            out.writelines(f"/Users/alice/{i // 50:06d}/{i:08d}-item.data\n" for i in range(600_000))
        for goes_on in (False, True):
            pilot = Pilot(program, "--volume", str(names), screenshots=os.environ.get("PRYVANE_SCREENSHOTS"))
            try:
                pilot.find("Reading names", "progress bar")
                pilot.read("Reading names: ")
                assert not pilot.look("Quick Scan >"), "the disk is there before its names"
                if goes_on:
                    pilot.shot("7-reading")
                    pilot.find("Looking at names.txt, every user")
                    assert not pilot.look("Cancel"), "the window that showed the reading stays"
                else:
                    pilot.click("Cancel")
                    assert pilot.process.wait(30) == 0
            finally:
                pilot.close()


def main(way, program, make_volume=None):
    if way == "start":
        return at_start(program)
    need("xorriso")
    with desktop() as folder:
        volume, image, text = folder / "MacintoshHD", folder / "mac.img", folder / "notes.txt"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["xorriso", "-as", "mkisofs", "-quiet", "-hfsplus", "-o", str(image), str(volume)], check=True,
                       stderr=subprocess.DEVNULL)
        text.write_text("no disk at all\n" * 100)
        before = hashlib.sha256(image.read_bytes()).hexdigest()
        pilot = Pilot(program, "--volume", str(volume), "--user", "alice",
                      screenshots=os.environ.get("PRYVANE_SCREENSHOTS"))
        try:
            (by_mouse if way == "mouse" else by_keyboard)(pilot, image, text)
        except Exception:
            pilot.shot("failure")
            raise
        finally:
            pilot.close()
        assert hashlib.sha256(image.read_bytes()).hexdigest() == before, "the image was changed"


if __name__ == "__main__":
    main(*sys.argv[1:])
