#!/usr/bin/python3
"""The tools screen with the real program: measure, tick, preview, clear; sizes fall, neighbours stay.

    tools_test.py PROGRAM MAKE-DEMO-VOLUME KEPT-TEXT
"""
import os
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import desktop, flown, wait_for  # noqa: E402

CLEARED = ["Library/Safari/History.db", "Library/Caches/com.apple.Safari/Cache.db"]
STAYS = ["Library/Safari/History.db-wal", "Library/Safari/Extensions",
         "Library/Application Support/Google/Chrome/Default/History", ".Trash/old.dmg"]


BROWSERS = ["Microsoft Edge", "BraveSoftware/Brave-Browser", "Chromium", "Vivaldi", "com.operasoftware.Opera",
            "Arc/User Data"]


def plant_browsers(home):
    """More browsers than the demonstration disk has, so that there are twelve groups."""
    for browser in BROWSERS:
        profile = home / "Library/Application Support" / browser / "Default"
        profile.mkdir(parents=True)
        (profile.parent / "Local State").write_text('{"profile":{"info_cache":{"Default":{"name":"Alice"}}}}')
        for name, size in (("History", 90_000), ("Cookies", 40_000), ("Login Data", 20_000), ("Preferences", 9_000)):
            (profile / name).write_bytes(bytes(size))
    index = home / "Library/Mail/V10/MailData/Envelope Index"
    index.parent.mkdir(parents=True)
    index.write_bytes(bytes(300_000))


def choose_group(pilot, name):
    pilot.click_node(wait_for(f"the group {name}", lambda: next(
        (node for node in pilot.walk() if node.getRoleName() == "list item" and node.name.startswith(name + ", ")), None)))


def look_at_dear(pilot, screens):
    """Passwords are set apart, named, and left out with one button."""
    choose_group(pilot, "Edge")
    items = pilot.find("Items", "table")
    passwords = wait_for("Edge's items", lambda: next(
        (cells[1] for cells in pilot.cells(items) if cells[1].startswith("Login Data") and cells[2] != "0 byte"), None))
    pilot.tick(items, passwords)
    pilot.click("Clear…", "push button")
    pilot.read(f"Edge: {passwords} cannot be had back once cleared.")
    screens.note("preview with what is dear")
    pilot.shot("13-dear")
    pilot.click("Leave these out")
    pilot.gone("Leave these out")
    pilot.keys("Escape")
    pilot.gone("Clear for good")
    pilot.tick(items, passwords)
    choose_group(pilot, "Safari")


def sizes(pilot):
    return {cells[1]: cells[2] for cells in pilot.cells(pilot.find("Items", "table"))}


def clear_some(pilot, screens, home):
    pilot.keys("ctrl+3")
    pilot.read(" can be cleared")
    screens.note("tools")
    pilot.shot("12-tools")
    before = sizes(pilot)
    items = pilot.find("Items", "table")
    pilot.tick(items, "History")
    pilot.tick(items, "Browser Caches")
    look_at_dear(pilot, screens)
    wait_for("Safari's items", lambda: any("Favicons" in cells for cells in pilot.cells(items)))
    pilot.click("Preview…", "push button")
    plan = pilot.find("What would be cleared", "table")
    wait_for("the preview", lambda: any(str(CLEARED[0]) in cells[1] for cells in pilot.cells(plan)))
    row = next(i for i, cells in enumerate(pilot.cells(plan)) if STAYS[0] in cells[1])
    pilot.click_node(plan.queryTable().getAccessibleAt(row, 0))  # one location stays after all
    screens.note("preview of clearing")
    pilot.shot("13-clear-preview")
    pilot.click("Clear for good")
    pilot.click("OK", "push button")
    wait_for("the sizes to fall", lambda: sizes(pilot).get("Browser Caches") == "0 byte")
    focused = pilot.focused()
    assert focused and focused.name not in ("Minimise", "Maximise", "Close"), "the keyboard left the content"
    pilot.shot("14-cleared")
    pilot.click("What went…")
    went = pilot.find("What was cleared", "table")
    assert [cells[1] for cells in pilot.cells(went)] == ["Safari: Browser Caches", "Safari: History"], pilot.cells(went)
    screens.note("what was cleared")
    pilot.shot("14-what-went")
    pilot.keys("Escape")
    pilot.gone("What was cleared", "table")
    after = sizes(pilot)
    assert before["History"] != after["History"] != "0 byte", (before, after)
    for path in CLEARED:
        assert not (home / path).exists(), f"{path} is still there"
    for path in STAYS:
        assert (home / path).exists(), f"{path} is gone"


def look_at_inventory(pilot, screens):
    pilot.click("Inventory")
    table = pilot.find("Inventory", "table")
    wait_for("the extension's resolved name",
             lambda: any("Tab Gardener" in " ".join(cells) for cells in pilot.cells(table)))
    wait_for("the end of it", lambda: any("Firefox" in " ".join(cells) for cells in pilot.cells(table)))
    screens.note("inventory")
    pilot.shot("15-inventory")


def look_at_facts(pilot, screens):
    """By mouse: what may watch, what was denied, what starts; by keyboard: a filter and another tab."""
    def rows(name):
        return [" ".join(cells) for cells in pilot.cells(pilot.find(name, "table"))]

    def one(table, *words):
        return wait_for(f"a row with {words}", lambda: next(
            (row for row in rows(table) if all(word in row for word in words)), None))

    pilot.click("Who May Watch")
    one("Who may watch", "recorder", "allowed", "On the disk: still there, in a hidden folder")
    one("Who may watch", "listen", "On the disk: missing, in a hidden folder")
    assert not any("camera" in row for row in rows("Who may watch")), "what was denied is folded away"
    pilot.read("can notice every key you press")
    screens.note("who may watch")
    pilot.shot("16-who-may-watch")
    pilot.click("Show what was denied (1)")
    one("Who may watch", "Google Chrome", "denied", "camera")
    pilot.click("Only what is still there")
    wait_for("the missing program to go", lambda: not any("listen" in row for row in rows("Who may watch")))
    pilot.click("Start-up")
    one("What starts by itself", "LoginHook", "still there, in a hidden folder")
    assert not any("com.example.gone" in row for row in rows("What starts by itself"))
    pilot.click("Only what is still there")
    one("What starts by itself", "com.example.gone", "missing")
    one("What starts by itself", "com.torvell.tidewell.helper", "still there")
    pilot.shot("17-what-starts")
    pilot.keys("ctrl+f")
    pilot.type("gone")
    wait_for("the filter", lambda: not any("LoginHook" in row for row in rows("What starts by itself")))
    pilot.keys("ctrl+a", "BackSpace")
    pilot.tab_to("Start-up", key="shift+Tab")
    pilot.keys("Left" if os.environ.get("PRYVANE_DIRECTION") == "rtl" else "Right")
    one("Remote access and management", "Keys that may log in", "1 key")
    one("Remote access and management", "203.0.113.7")
    screens.note("remote access")
    pilot.shot("18-remote-access")


def main(program, make_volume, kept):
    with desktop() as folder:
        volume = folder / "MacintoshHD"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        plant_browsers(volume / "Users/alice")
        with flown(program, volume, folder, kept) as (pilot, screens):
            clear_some(pilot, screens, volume / "Users/alice")
            look_at_inventory(pilot, screens)
            look_at_facts(pilot, screens)


if __name__ == "__main__":
    main(*sys.argv[1:])
