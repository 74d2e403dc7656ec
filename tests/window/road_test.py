#!/usr/bin/python3
"""The whole road with the real program: first start, scan, filter, plan, removal, report, export, comparison, tools,
schedule, another disk, and the end in the middle of a scan. Each step's effect is looked for on the disk and in the
stored reports.

    road_test.py keyboard|screen-reader PROGRAM COMMAND-LINE MAKE-DEMO-VOLUME

The keyboard's run uses keys alone: no pointer, no action. The screen reader's uses what the controls offer over AT-SPI
alone: actions, texts and selections; no key, no pointer.
"""
import contextlib
import json
import os
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import Pilot, desktop, stored, wait_for  # noqa: E402

KEPT_BACK = "Users/alice/Library/.A_o_b_o"
REMOVED = ["Users/alice/Library/mdsa1331", "Library/LaunchAgents/com.refog.agent.plist"]
WEAK = "MyCodecPack"
CLEARED = ["Library/Safari/History.db", "Library/Caches/com.apple.Safari/Cache.db"]
BUTTON = "push button"


class Keyboard:
    """Goes to a control by the Tab key and presses it as its kind is pressed."""

    def __init__(self, pilot):
        self.pilot = pilot

    def press(self, name, role=BUTTON):
        self.pilot.find(name, role)
        self.pilot.tab_to(name)
        self.pilot.keys("Return" if role == BUTTON else "space")

    def screen(self, number, _):
        self.pilot.keys(f"ctrl+{number}")

    def write(self, field, text):
        self.pilot.find(field)
        self.pilot.tab_to(field)
        self.pilot.keys("ctrl+a")
        self.pilot.type(text) if text else self.pilot.keys("BackSpace")

    def set_time(self, field, text):
        """The field has its first part selected, and goes on to the next by itself."""
        self.pilot.tab_to(field)
        self.pilot.type(text)

    def go_to(self, name, row):
        self.pilot.tab_to(name)
        self.pilot.keys("ctrl+Home", *["Down"] * row)

    def tick(self, name, row):
        self.go_to(name, row)
        self.pilot.keys("space")

    def choose_two(self, name):
        self.go_to(name, 0)
        self.pilot.keys("shift+Down")

    def tick_in_list(self, name, item):
        self.pilot.tab_to(name)
        self.pilot.keys("Home")
        for _ in range(30):
            current = next(node for node in self.pilot.walk(self.pilot.find(name, "list"))
                           if node.getState().contains(self.pilot.atspi.STATE_FOCUSED))
            if current.name.startswith(item + ", "):
                return self.pilot.keys("space")
            self.pilot.keys("Down")
        raise AssertionError(f"the arrow keys do not reach {item}")

    def unfold(self, button, entry, number):
        self.press(button)
        self.pilot.find(entry, "menu item")
        self.pilot.keys(*["Down"] * number, "Return")

    def answer(self, words, button):
        """A question has the keyboard on its default."""
        self.pilot.read(words)
        self.press(button)

    def name_file(self, title, path, _):
        self.pilot.find(title, "dialog")
        self.pilot.keys("ctrl+a")
        self.pilot.type(str(path))
        self.pilot.keys("Return")

    def quit(self):
        self.pilot.keys("ctrl+q")


class ScreenReader:
    """Finds a control in the tree and does what it offers."""

    def __init__(self, pilot):
        self.pilot = pilot

    def do(self, node, *wanted):
        wait_for(f'"{node.name}" to be enabled', lambda: node.getState().contains(self.pilot.atspi.STATE_ENABLED))
        actions = node.queryAction()
        names = [actions.getName(i) for i in range(actions.nActions)]
        actions.doAction(next(names.index(name) for name in wanted if name in names))

    def press(self, name, role=BUTTON):
        """In what lies on top: a question, a sheet, else the window."""
        def look():
            for node in self.pilot.walk(self.pilot.sheet()):
                with contextlib.suppress(Exception):  # it may have just gone
                    if node.name == name and node.getRoleName() == role:
                        return node
            return None
        self.do(wait_for(f'"{name}"', look), "Toggle", "Press", "ShowMenu")

    def screen(self, _, name):
        self.press(name, "list item")

    def write(self, field, text):
        node = next(node for node in self.pilot.walk() if node.name == field
                    and node.getRoleName() in ("text", "spin button"))
        node.queryEditableText().setTextContents(text)

    set_time = write

    def tick(self, name, row):
        self.do(self.pilot.find(name, "table").queryTable().getAccessibleAt(row, 0), "Toggle")

    def choose_two(self, name):
        table = self.pilot.find(name, "table").queryTable()
        assert table.addRowSelection(0) and table.addRowSelection(1)

    def tick_in_list(self, name, item):
        self.do(next(node for node in self.pilot.walk(self.pilot.find(name, "list"))
                     if node.name.startswith(item + ", ")), "Toggle")

    def unfold(self, button, entry, _):
        self.press(button)
        self.do(self.pilot.find(entry, "menu item"), "Press")

    def answer(self, words, button):
        self.pilot.read(words)
        self.press(button)

    def name_file(self, title, path, button):
        panel = self.pilot.find(title, "dialog")
        field = next(node for node in self.pilot.walk(panel) if node.getRoleName() == "text")
        field.queryEditableText().setTextContents(str(path))
        self.do(next(node for node in self.pilot.walk(panel) if (node.name, node.getRoleName()) == (button, BUTTON)), "Press")

    def quit(self):
        self.press("Menu")
        self.press("File", "menu item")
        self.press("Quit", "menu item")


class Road:
    def __init__(self, hand, pilot, folder, command_line):
        self.hand, self.pilot, self.folder, self.command_line = hand, pilot, folder, command_line
        self.volume = folder / "MacintoshHD"

    def reports(self, volume=None):
        """What the store holds, newest first."""
        listed = subprocess.run([self.command_line, "report", "list", "--volume", str(volume or self.volume)],
                                capture_output=True, text=True).stdout
        return [line for line in listed.splitlines() if line[:1].isalnum() and "-" in line.split()[0]]

    def scan(self):
        self.hand.screen(1, "Dashboard")
        self.hand.press("Quick Scan >")
        self.pilot.find("Remove…", BUTTON)

    def filter_and_plan(self):
        table = self.pilot.find("Findings", "table")
        self.pilot.find("10 of 10 selected")
        self.hand.write("Filter", "A_o_b_o")
        wait_for("the filter", lambda: len(self.pilot.cells(table)) == 1)
        self.hand.tick("Findings", 0)
        self.pilot.find("9 of 10 selected")
        self.hand.write("Filter", "")
        wait_for("the filter to go", lambda: len(self.pilot.cells(table)) == 10)
        self.hand.press("Remove…")
        self.pilot.read("8 selected: ")
        self.pilot.read("1 of these rests")
        assert self.pilot.focused().name == "Cancel", "the plan's default is not to remove"

    def remove(self):
        self.hand.press("Remove for good…")
        self.hand.answer("Are you sure you want to delete selected threats?", "Yes")
        self.pilot.find("All threats are Removed")
        for path in REMOVED:
            assert not (self.volume / path).exists(), f"{path} is still there"
        assert (self.volume / KEPT_BACK).exists(), "what was not selected is gone"
        assert list(self.volume.rglob(WEAK)), "what was left out of the plan is gone"
        rows = {cells[1]: cells[3] for cells in self.pilot.cells(self.pilot.find("Findings", "table"))}
        assert rows["mdsa1331"] == "removed" and rows[".A_o_b_o"] == "exact path", rows

    def report_and_export(self):
        self.hand.press("View Report")
        self.pilot.find("Back to the reports")
        file = self.folder / "exported.json"
        self.hand.unfold("Export", "As JSON…", 2)
        self.hand.name_file("Export this report", file, "Save")
        wait_for("the exported file", file.exists)
        self.pilot.read("The report was exported to ")
        listed = json.loads(file.read_text())["report"]["spyWareList"]
        assert len(listed) == 11, listed
        self.hand.press("Back to the reports")

    def compare(self):
        self.pilot.find("2 reports")
        self.hand.choose_two("Reports")
        self.hand.press("Compare these two")
        changes = self.pilot.find("What changed", "table")
        new = [cells for cells in self.pilot.cells(changes) if "new" in cells]
        assert len(new) == 1 and "mdsa1331" in " ".join(new[0]), self.pilot.cells(changes)
        self.hand.press("Close")
        self.pilot.gone("What changed", "table")

    def clear(self):
        self.hand.screen(3, "Tools")
        self.pilot.read(" can be cleared")
        home = self.volume / "Users/alice"
        self.hand.tick_in_list("Groups", "Safari")
        self.hand.press("Preview…")
        plan = self.pilot.find("What would be cleared", "table")
        wait_for("the preview", lambda: any(CLEARED[0] in cells[1] for cells in self.pilot.cells(plan)))
        self.hand.press("Clear for good")
        self.hand.answer("", "OK")
        wait_for("the files to go", lambda: not any((home / path).exists() for path in CLEARED))
        self.pilot.find("What went…")

    def schedule(self):
        self.hand.screen(1, "Dashboard")
        self.hand.press("Schedule…")
        self.hand.press("Scan on a schedule", "check box")
        self.pilot.read("Every day at ")
        self.hand.set_time("Time of day", "23:44")
        self.pilot.read("Every day at 23:44")
        self.hand.press("Save")
        self.hand.answer("Spyware scan scheduled successfully", "OK")
        self.pilot.read("next: ")
        wait_for("the schedule in the store", lambda: "Yes" in "".join(stored(self.folder, "ScheduleOn")))

    def another_disk(self, other):
        self.hand.press("Looking at MacintoshHD, user alice")
        self.hand.press("Choose Folder…")
        self.hand.name_file("Choose", other, "Choose")
        self.pilot.gone("Choose", BUTTON)
        self.hand.press("Open")
        self.hand.press("Confirm Access")
        self.pilot.find("Looking at OtherMac, user alice")

    def quit_in_mid_scan(self, other):
        self.hand.press("Quick Scan >")
        self.pilot.find("Scan progress", "progress bar")
        self.hand.quit()
        wait_for("the program to end", lambda: self.pilot.process.poll() is not None, 15)
        assert self.pilot.process.returncode == 0
        assert not self.reports(other), "a scan that was given up left a report"
        assert len(self.reports()) == 2, self.reports()


def main(way, program, command_line, make_volume):
    with desktop() as folder:
        volume, other = folder / "MacintoshHD", folder / "OtherMac"
        for place in (volume, other):
            subprocess.run([make_volume, str(place)], check=True, stdout=subprocess.DEVNULL)
        later = volume / REMOVED[0]  # comes between the first scan and the second
        later.rename(folder / "later")
        subprocess.run([command_line, "scan", "--volume", str(volume), "--user", "alice"], stdout=subprocess.DEVNULL)
        (folder / "later").rename(later)
        pilot = Pilot(program, "--volume", str(volume), "--user", "alice",
                      screenshots=os.environ.get("PRYVANE_SCREENSHOTS"))
        hand = (Keyboard if way == "keyboard" else ScreenReader)(pilot)
        road = Road(hand, pilot, folder, command_line)
        try:
            hand.press("Confirm Access")
            road.scan()
            road.filter_and_plan()
            road.remove()
            road.report_and_export()
            road.compare()
            road.clear()
            road.schedule()
            road.another_disk(other)
            road.quit_in_mid_scan(other)
        except Exception:
            pilot.shot("failure")
            raise
        finally:
            pilot.close()


if __name__ == "__main__":
    main(*sys.argv[1:])
