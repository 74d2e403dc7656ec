#!/usr/bin/python3
"""Whatever the Tab key reaches shows that it has the keyboard: judged by pixels, in one palette.

    focus_test.py light|dark|light-contrast|dark-contrast PROGRAM COMMAND-LINE MAKE-DEMO-VOLUME
"""
import os
import pathlib
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import Pilot, desktop, wait_for  # noqa: E402

OUTWARDS, THICKNESS, CONTRAST = 40, 2, 3.0  # how far a ring is looked for; ring to ground
SEGMENTS = ("Privacy", "Inventory", "Who May Watch", "Permissions", "Start-up", "Remote access")  # by arrow keys
LISTS = ("list", "table", "tree", "tree table")  # ring their current row, inside
CONTROLS = LISTS + ("push button", "toggle button", "check box", "radio button", "combo box", "text", "spin button",
                    "page tab list")
WIDTH, HEIGHT = 1280, 900


class Picture:
    def __init__(self):
        self.pixels = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], check=True,
                                     capture_output=True).stdout
        assert len(self.pixels) == 3 * WIDTH * HEIGHT

    def at(self, x, y):
        start = 3 * (y * WIDTH + x)
        return tuple(self.pixels[start:start + 3])

    def row(self, x, y, width):
        return self.pixels[3 * (y * WIDTH + x):3 * (y * WIDTH + x + width)]


def contrast(one, other):
    def luminance(colour):
        parts = [part / 255 for part in colour]
        parts = [part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4 for part in parts]
        return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2]
    low, high = sorted((luminance(one), luminance(other)))
    return (high + 0.05) / (low + 0.05)


def ring_at(box, way, having, without):
    """Whether a ring is seen from the middle of that side outwards: two pixels in a row that stand out. The
    tree tells of a tick box where it is drawn, which may be less than it takes."""
    middle = (box.x + box.width // 2, box.y + box.height // 2)
    x, y = {(-1, 0): (box.x, middle[1]), (1, 0): (box.x + box.width - 1, middle[1]),
            (0, -1): (middle[0], box.y), (0, 1): (middle[0], box.y + box.height - 1)}[way]
    run = 0
    for _ in range(OUTWARDS):
        x, y = x + way[0], y + way[1]
        if not (0 <= x < WIDTH and 0 <= y < HEIGHT):
            return False
        run = run + 1 if contrast(having.at(x, y), without.at(x, y)) >= CONTRAST else 0
        if run == THICKNESS:
            return True
    return False


def ring_fault(role, box, having, without):
    """What is wrong with the ring around the control; none: nothing."""
    if role in LISTS:
        changed = sum(having.row(box.x, y, box.width) != without.row(box.x, y, box.width)
                      for y in range(max(0, box.y), min(HEIGHT, box.y + box.height)))
        return None if changed >= 20 else f"only {changed} lines of pixels change"
    seen = sum(ring_at(box, way, having, without) for way in ((-1, 0), (1, 0), (0, -1), (0, 1)))
    return None if seen >= 3 else f"the ring is seen at {seen} of 4 sides"


class Rounds:
    def __init__(self, pilot):
        self.pilot = pilot
        self.faults = []
        self.count = 0

    def focusable(self):
        """Names of all controls that show, and that the keyboard is to reach."""
        states = self.pilot.atspi
        top = self.pilot.sheet() or self.pilot.window()
        return {(node.getRoleName(), node.name) for node in self.pilot.walk(top)
                if node.getRoleName() in CONTROLS and node.getState().contains(states.STATE_FOCUSABLE)
                and node.getState().contains(states.STATE_ENABLED) and node.name
                and node.queryComponent().getExtents(states.DESKTOP_COORDS).width > 0}

    def go_round(self, screen, only_reach=False):
        wanted = self.focusable()
        reached, order = set(), []
        self.pilot.keys("Tab")
        for _ in range(80):
            time.sleep(0.12)
            node = wait_for("the keyboard to be somewhere", self.pilot.focused)
            key = (node.getRoleName(), node.name)
            extents = node.queryComponent().getExtents(self.pilot.atspi.DESKTOP_COORDS)
            order.append((key, extents, Picture()))
            if len(order) > 2 and key in reached and (order[0][0] == key or len(order) > len(wanted) + 20):
                break
            reached.add(key)
            self.pilot.keys("Tab")
        for (key, box, having), (other, _, without) in zip(order, order[1:]):
            if key == other:
                continue
            self.count += 1
            if fault := ring_fault(key[0], box, having, without):
                self.faults.append(f"{screen}: {key[1]} ({key[0]}): {fault}")
        segments = {key for key in wanted if key[1] in SEGMENTS} if any(
            name in SEGMENTS for _, name in reached) else set()
        if any(role == "radio button" for role, _ in reached):
            segments |= {key for key in wanted if key[0] == "radio button"}
        inside = {(role, name) for role, name in wanted if role == "text" and name == "User"}  # of its combo box
        for role, name in sorted(wanted - reached - segments - inside):
            self.faults.append(f"{screen}: the Tab key does not reach {name} ({role}); it reaches {sorted(reached)}")
        print(f"{screen}: {len(reached)} controls")


    def go_down(self, menu):
        """The arrow keys show which entry of the menu is next: it is drawn otherwise than before."""
        entries = [node for node in self.pilot.walk() if node.getRoleName() == "menu item"
                   and node.name and node.getState().contains(self.pilot.atspi.STATE_ENABLED)]
        assert entries, f"{menu} is empty"
        without = Picture()
        for entry in entries:
            self.pilot.keys("Down")
            time.sleep(0.12)
            having, box = Picture(), entry.queryComponent().getExtents(self.pilot.atspi.DESKTOP_COORDS)
            self.count += 1
            changed = sum(having.row(box.x, y, box.width) != without.row(box.x, y, box.width)
                          for y in range(box.y, box.y + box.height))
            if changed < box.height // 2:
                self.faults.append(f"{menu}: {entry.name}: only {changed} lines of pixels change")
            without = having
        self.pilot.keys("Escape")
        print(f"{menu}: {len(entries)} entries")


def sheets_of_reports(pilot, rounds):
    pilot.keys("ctrl+p")
    pilot.find("The pages as they will be printed")
    rounds.go_round("preview")
    pilot.keys("Escape")
    pilot.tab_to("Export")
    pilot.keys("Return")
    pilot.find("As JSON…", "menu item")
    rounds.go_down("export menu")
    pilot.tab_to("Back to the reports")
    pilot.keys("Return")
    pilot.tab_to("Reports")
    pilot.keys("ctrl+Home", "shift+Down")
    pilot.tab_to("Compare these two")
    pilot.keys("Return")
    pilot.find("What changed", "table")
    rounds.go_round("comparison")
    pilot.keys("Escape")


def sheets_of_tools(pilot, rounds):
    pilot.read(" can be cleared")
    pilot.tab_to("Groups")
    pilot.keys("Home", "space")
    for button in ("Preview…", "Clear…"):
        pilot.tab_to(button)
        pilot.keys("Return")
        pilot.find("Clear for good")
        rounds.go_round(button)
        pilot.keys("Escape")
        pilot.gone("Clear for good")


def all_screens(pilot, rounds):
    pilot.find("Confirm Access")
    rounds.go_round("welcome")
    pilot.grant()
    rounds.go_round("dashboard")
    pilot.tab_to("Menu")
    pilot.keys("Return")
    pilot.find("Appearance", "menu item")
    rounds.go_down("menu")
    pilot.click("Schedule…")
    pilot.find("Scan on a schedule")
    pilot.keys("space")
    rounds.go_round("schedule")
    pilot.keys("Escape")
    pilot.keys("ctrl+o")
    pilot.find("Choose Folder…")
    rounds.go_round("open")
    pilot.keys("Escape")
    pilot.keys("F1")
    pilot.find("How Pryvane works")
    rounds.go_round("help")
    pilot.keys("Escape")
    pilot.gone("How Pryvane works")
    pilot.keys("ctrl+1")
    pilot.click("Quick Scan >")
    pilot.find("Remove…", "push button")
    rounds.go_round("findings")
    pilot.tab_to("Findings")
    pilot.keys("ctrl+Home", "Return")
    pilot.find("Why was this found?")
    rounds.go_round("why it was found")
    pilot.keys("Escape")
    pilot.click("Remove…", "push button")
    pilot.read(" selected: ")
    rounds.go_round("plan")
    pilot.tab_to("Remove for good…")
    pilot.keys("Return")
    pilot.find("Are you sure you want to delete selected threats?")
    rounds.go_round("question")
    pilot.keys("Escape")
    pilot.gone("Are you sure you want to delete selected threats?")
    pilot.keys("ctrl+4")
    pilot.read("2 reports")
    rounds.go_round("reports")
    pilot.tab_to("Reports", key="shift+Tab")
    table = pilot.find("Reports", "table")
    pilot.click_node(table.queryTable().getAccessibleAt(0, 2))
    pilot.keys("Return")
    pilot.find("Back to the reports")
    rounds.go_round("report")
    sheets_of_reports(pilot, rounds)
    pilot.keys("ctrl+3")
    pilot.find("Measure again")
    rounds.go_round("tools")
    sheets_of_tools(pilot, rounds)
    for tab in ("Inventory", "Who May Watch", "Start-up", "Remote access"):
        pilot.click(tab)
        time.sleep(1)
        rounds.go_round(tab)


def main(palette, program, command_line, make_volume):
    os.environ["PRYVANE_APPEARANCE"] = palette
    with desktop(f"{WIDTH}x{HEIGHT}") as folder:
        volume = folder / "MacintoshHD"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        subprocess.run([command_line, "scan", "--volume", str(volume), "--user", "alice"], stdout=subprocess.DEVNULL)
        pilot = Pilot(program, "--volume", str(volume), "--user", "alice",
                      screenshots=os.environ.get("PRYVANE_SCREENSHOTS"))
        rounds = Rounds(pilot)
        try:
            all_screens(pilot, rounds)
        except Exception:
            pilot.shot("failure")
            raise
        finally:
            pilot.close()
        print(f"{rounds.count} rings judged in {palette}")
        assert not rounds.faults, "\n".join(rounds.faults)


if __name__ == "__main__":
    main(*sys.argv[1:])
