#!/usr/bin/python3
"""Whatever the Tab key reaches shows that it has the keyboard: judged by pixels, in one palette.

    focus_test.py light|dark|light-contrast|dark-contrast PROGRAM COMMAND-LINE MAKE-DEMO-VOLUME SHIM
"""
import contextlib
import fcntl
import os
import pathlib
import shutil
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import Picture, Pilot, desktop, started, wait_for  # noqa: E402

OUTWARDS, THICKNESS, CONTRAST = 40, 2, 3.0  # how far a ring is looked for; ring to ground
SEGMENTS = ("Privacy", "Inventory", "Who May Watch", "Permissions", "Start-up", "Remote access")  # by arrow keys
LISTS = ("list", "table", "tree", "tree table")  # ring their current row, inside
MENUS = ("File", "Window", "Appearance", "Export")  # within others
CONTROLS = LISTS + ("push button", "toggle button", "check box", "radio button", "combo box", "text", "spin button",
                    "page tab list")
PATIENCE = 1.5  # until a ring is seen


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
        if not (0 <= x < having.width and 0 <= y < having.height):
            return False
        run = run + 1 if contrast(having.at(x, y), without.at(x, y)) >= CONTRAST else 0
        if run == THICKNESS:
            return True
    return False


def ring_fault(role, box, having, without):
    """What is wrong with the ring around the control; none: nothing."""
    if role in LISTS:
        changed = sum(having.row(box.x, y, box.width) != without.row(box.x, y, box.width)
                      for y in range(max(0, box.y), min(having.height, box.y + box.height)))
        return None if changed >= 20 else f"only {changed} lines of pixels change"
    seen = sum(ring_at(box, way, having, without) for way in ((-1, 0), (1, 0), (0, -1), (0, 1)))
    return None if seen >= 3 else f"the ring is seen at {seen} of 4 sides"


def entry_fault(box, having, without):
    changed = sum(having.row(box.x, y, box.width) != without.row(box.x, y, box.width)
                  for y in range(box.y, box.y + box.height))
    return None if changed >= box.height // 2 else f"only {changed} lines of pixels change"


class Watcher(Pilot):
    """Keeps which controls showed at any time that could have the keyboard."""

    LISTENS = True

    def __init__(self, *arguments, **more):
        self.seen = {}
        self.screen = "start"
        super().__init__(*arguments, **more)

    def notice(self, node, role, states):
        if role in CONTROLS and states.contains(self.atspi.STATE_FOCUSABLE) and states.contains(self.atspi.STATE_ENABLED) \
                and node.name and self.box(node).width > 0:
            self.seen.setdefault((role, node.name), self.screen)


class Rounds:
    def __init__(self, pilot, folder):
        self.pilot = pilot
        self.folder = folder
        self.hold = folder / "hold"
        self.faults = []
        self.judged = set()
        self.count = 0

    def still(self):
        """The picture once nothing moves any more."""
        before = Picture(self.folder)
        for _ in range(20):
            time.sleep(0.06)
            now = Picture(self.folder)
            if now.pixels == before.pixels:
                break
            before = now
        return before

    def focusable(self):
        """All controls that show, and that the keyboard is to reach."""
        states = self.pilot.atspi
        top = self.pilot.sheet() or self.pilot.window()
        return {(node.getRoleName(), node.name): node for node in self.pilot.walk(top)
                if node.getRoleName() in CONTROLS and node.getState().contains(states.STATE_FOCUSABLE)
                and node.getState().contains(states.STATE_ENABLED) and node.name and self.pilot.box(node).width > 0}

    def judge(self, screen, key, box, without, patience=PATIENCE):
        """Waits for the ring to be seen; gives the last picture, and what is wrong with the ring."""
        end = time.monotonic() + patience
        while True:
            having = Picture(self.folder)
            fault = ring_fault(key[0], box, having, without)
            if not fault or time.monotonic() > end:
                return having, fault
            time.sleep(0.02)

    def count_ring(self, screen, key, fault):
        self.count += 1
        self.judged.add(key)
        if fault:
            self.faults.append(f"{screen}: {key[1]} ({key[0]}): {fault}")

    def press(self, key):
        """What has the keyboard after that key, and where it is."""
        self.pilot.follow(0)
        self.pilot.hand.key(key)
        node = self.pilot.follow(0.3) or wait_for("the keyboard to be somewhere", self.pilot.focused)
        return (node.getRoleName(), node.name), self.pilot.box(node)

    def go_round(self, screen):
        self.pilot.screen = screen
        wanted = self.focusable()
        without, reached, late, before = self.still(), [], None, None
        if len(wanted) == 1:  # the keyboard is to be elsewhere first
            self.click_a_text()
            without = self.still()
        for _ in range(80):
            key, box = self.press("Tab")
            if len(wanted) > 1 and reached and key == reached[-1]:
                continue  # from one part of a field to the next
            if key in reached[:2] or len(reached) > len(wanted) + 20:
                if late:
                    self.count_ring(screen, late[0], ring_fault(late[0][0], late[1], late[2], Picture(self.folder)))
                break
            having, fault = self.judge(screen, key, box, without)
            if late:  # what went before lay otherwise: what comes after tells as well
                self.count_ring(screen, late[0], ring_fault(late[0][0], late[1], late[2], having))
            late = (key, box, having) if fault else None
            if not fault:
                self.count_ring(screen, key, None)
            reached.append(key)
            without = having
            if key[0] == "radio button" and before != "radio button":
                without = self.go_through(screen, [other for other in wanted if other[0] == "radio button"], having)
            before = key[0]
        segments = {key for key in wanted if key[1] in SEGMENTS} if any(
            name in SEGMENTS for _, name in reached) else set()
        radios = {key for key in wanted if key[0] == "radio button"} & self.judged
        parts = {key for key, node in wanted.items() if node.parent.getRoleName() == "combo box"}
        for key in parts:
            self.go_inside(screen, key, wanted[key])
        for role, name in sorted(set(wanted) - set(reached) - segments - radios - parts):
            self.faults.append(f"{screen}: the Tab key does not reach {name} ({role}); it reaches {sorted(reached)}")
        print(f"{screen}: {len(reached)} controls")

    def go_through(self, screen, choices, without):
        """The arrow keys go from one choice to the next, and back."""
        for _ in choices[1:]:
            key, box = self.press("Down")
            without, fault = self.judge(screen, key, box, without)
            self.count_ring(screen, key, fault)
        self.pilot.keys(*["Up"] * (len(choices) - 1))
        return self.still()

    def go_inside(self, screen, key, part):
        """Whatever is to go to the part of a box goes to the box, which has the ring around it."""
        without = self.still()
        self.pilot.follow(0)
        part.queryComponent().grabFocus()
        node = self.pilot.follow(PATIENCE)
        fault = f"the keyboard goes to {node}" if node != part.parent else \
            self.judge(screen, key, self.pilot.box(node), without)[1]
        self.count_ring(screen, key, fault)

    def go_to(self, screen, button):
        self.pilot.find(button, "push button")
        self.pilot.screen = screen
        for _ in range(30):
            without = Picture(self.folder)
            key, box = self.press("Tab")
            if key[1] == button:
                return self.count_ring(screen, key, self.judge(screen, key, box, without)[1])
        raise AssertionError(f"{screen}: the Tab key does not reach {button}")

    @contextlib.contextmanager
    def held(self, screen, button):
        """What is begun meanwhile goes no further until the button that stops it was judged."""
        self.hold.touch()
        yield
        self.go_to(screen, button)
        self.hold.unlink()

    def click_a_text(self):
        text = next(node for node in self.pilot.walk(self.pilot.sheet()) if node.getRoleName() == "label"
                    and node.getState().contains(self.pilot.atspi.STATE_FOCUSABLE))
        self.pilot.click_node(text)

    def go_down(self, menu, key="Down"):
        """The arrow keys show which entry of the menu is current: it looks otherwise once the next one is. Goes
        into the menus within, which open with their first entry current."""
        names, last = [], None
        while True:
            self.pilot.follow(0)
            self.pilot.hand.key(key)
            entry, key = self.pilot.follow(PATIENCE), "Down"
            assert entry and entry.getRoleName() == "menu item", f"{menu}: the keyboard is on {entry}, not on an entry"
            if last:
                name, box, having = last
                end = time.monotonic() + PATIENCE
                while (fault := entry_fault(box, having, Picture(self.folder))) and time.monotonic() < end:
                    time.sleep(0.02)
                self.count_ring(menu, ("menu item", name), fault)
            if entry.name in names:
                break
            names.append(entry.name)
            if entry.childCount:
                self.go_down(entry.name, "Right")
            last = entry.name, self.pilot.box(entry), self.still()
        self.pilot.keys("Left" if menu in MENUS else "Escape")
        print(f"{menu}: {len(names)} entries")

    def go_round_sheet(self, name):
        self.go_round(name)
        self.pilot.keys("Escape")
        wait_for(f"{name} to go", lambda: not self.pilot.sheet())

    def menu_of_row(self, table):
        self.pilot.tab_to(table)
        self.pilot.keys("ctrl+Home", "Down", "Menu")  # the first may be a heading
        self.go_down(f"menu of a row of {table}")


def press(pilot, button):
    pilot.tab_to(button)
    pilot.keys("Return")


def screens_of_scan(pilot, rounds, volume):
    pilot.find("Remove…", "push button")
    rounds.go_round("findings")
    pilot.tab_to("Filter")
    pilot.type("a")
    rounds.go_round("filtered findings")
    pilot.tab_to("Filter")
    pilot.keys("BackSpace")
    press(pilot, "What was looked at")
    rounds.go_round_sheet("what was looked at")
    rounds.menu_of_row("Findings")
    pilot.keys("Return")
    pilot.find("Why was this found?")
    rounds.go_round_sheet("why it was found")
    press(pilot, "Remove…")
    pilot.read(" selected: ")
    rounds.go_round("plan")
    press(pilot, "Remove for good…")
    pilot.find("Are you sure you want to delete selected threats?")
    rounds.go_round("question")
    exchange(volume / "Library/LaunchAgents")
    with alone():
        with running(rounds.folder, "firefox"):
            press(pilot, "Yes")
            pilot.read("While a browser runs")
            rounds.go_round("browsers")
        with rounds.held("removal", "Stop the removal"):
            press(pilot, "Retry")
    pilot.find("What stayed…")
    rounds.go_round("what was removed")
    press(pilot, "What stayed…")
    pilot.find("What could not be removed", "table")
    rounds.go_round_sheet("what stayed")


@contextlib.contextmanager
def alone():
    """No other run of this test on this machine starts a browser, which the program would see here."""
    machine = os.open("/tmp", os.O_RDONLY)
    try:
        fcntl.flock(machine, fcntl.LOCK_EX)
        yield
    finally:
        os.close(machine)


def running(folder, name):
    """A program of that name."""
    return started([shutil.copy(shutil.which("sleep"), folder / name), "600"])


def exchange(place):
    """Nothing is removed behind a link to another folder than the one that was scanned."""
    shutil.copytree(place, place.with_name("other"))
    place.rename(place.with_name("moved"))
    place.symlink_to("other")


def screens_of_reports(pilot, rounds):
    pilot.keys("ctrl+4")
    pilot.read("2 reports")
    rounds.go_round("reports")
    rounds.menu_of_row("Reports")
    pilot.keys("Return")
    pilot.find("Back to the reports")
    rounds.go_round("report")
    pilot.keys("ctrl+p")
    pilot.find("The pages as they will be printed")
    rounds.go_round_sheet("preview")
    press(pilot, "Export")
    pilot.find("As JSON…", "menu item")
    rounds.go_down("export menu")
    press(pilot, "Delete…")
    wait_for("the question", pilot.sheet)
    rounds.go_round_sheet("question about a report")
    press(pilot, "Back to the reports")
    pilot.tab_to("Reports")
    pilot.keys("ctrl+Home", "shift+Down")
    rounds.go_round("two reports chosen")
    press(pilot, "Compare these two")
    pilot.find("What changed", "table")
    rounds.go_round_sheet("comparison")


def screens_of_tools(pilot, rounds):
    with rounds.held("measuring", "Stop measuring"):
        pilot.keys("ctrl+3")
    pilot.find("Measure again")
    pilot.read(" can be cleared")
    pilot.tab_to("Groups")
    pilot.keys("Home", "space")
    rounds.go_round("tools")
    for button in ("Preview…", "Clear…"):
        press(pilot, button)
        pilot.find("Clear for good")
        rounds.go_round_sheet(button)
    press(pilot, "Clear…")
    clear = pilot.find("Clear for good")
    wait_for("what is there to be looked at", lambda: clear.getState().contains(pilot.atspi.STATE_ENABLED))
    with rounds.held("clearing", "Stop clearing"):
        press(pilot, "Clear for good")
    pilot.find("OK", "push button")
    rounds.go_round("told what was cleared")
    pilot.keys("Return")
    pilot.find("What went…")
    rounds.go_round("tools once cleared")
    press(pilot, "What went…")
    pilot.find("What was cleared", "table")
    rounds.go_round_sheet("what was cleared")
    for tab, table in (("Inventory", "Inventory"), ("Who May Watch", "Who may watch"),
                       ("Start-up", "What starts by itself"), ("Remote access", "Remote access and management")):
        with rounds.held("gathering", "Stop") if tab == "Inventory" else contextlib.nullcontext():
            pilot.click(tab)
        wait_for(f"rows in {table}", lambda: pilot.cells(pilot.find(table, "table")))
        rounds.go_round(tab)
        rounds.menu_of_row(table)


def all_screens(pilot, rounds, volume):
    pilot.find("Confirm Access")
    rounds.go_round("welcome")
    pilot.confirm_access()
    rounds.go_round("dashboard")
    press(pilot, "Menu")
    pilot.find("Appearance", "menu item")
    rounds.go_down("menu")
    pilot.click("Schedule…")
    pilot.find("Scan on a schedule")
    pilot.keys("space")
    rounds.go_round_sheet("schedule")
    pilot.keys("ctrl+o")
    pilot.find("Choose Folder…")
    rounds.go_round_sheet("open")
    pilot.keys("F1")
    pilot.find("How Pryvane works")
    rounds.go_round("help")
    pilot.keys("Escape")
    pilot.gone("How Pryvane works")
    pilot.keys("ctrl+1")
    pilot.tab_to("Deep scan")
    pilot.keys("space")
    rounds.go_to("deep scan chosen", "Deep Scan >")
    with rounds.held("running scan", "Stop the scan"):
        pilot.keys("Return")
    screens_of_scan(pilot, rounds, volume)
    screens_of_reports(pilot, rounds)
    screens_of_tools(pilot, rounds)


def main(palette, program, command_line, make_volume, shim):
    os.environ["PRYVANE_APPEARANCE"] = palette
    with desktop() as folder:
        volume = folder / "MacintoshHD"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        subprocess.run([command_line, "scan", "--volume", str(volume), "--user", "alice"], stdout=subprocess.DEVNULL)
        (volume / "Users/alice/Library/Application Support/Firefox/Profiles/profiled").touch()  # found among its files
        # The browsers of this system are in the way on its own disk only.
        os.environ.update(PRYVANE_TEST_HOLD=str(folder / "hold"), PRYVANE_TEST_ROOT=str(volume), LD_PRELOAD=shim)
        pilot = Watcher(program, "--volume", str(volume), "--user", "alice",
                        screenshots=os.environ.get("PRYVANE_SCREENSHOTS"))
        del os.environ["LD_PRELOAD"]
        rounds = Rounds(pilot, folder)
        try:
            all_screens(pilot, rounds, volume)
        except Exception:
            pilot.shot("failure")
            raise
        finally:
            pilot.close()
        print(f"{rounds.count} rings judged in {palette}")
        rounds.faults += [f"{screen}: no ring was looked for around {name} ({role})"
                          for (role, name), screen in sorted(pilot.seen.items()) if (role, name) not in rounds.judged]
        assert not rounds.faults, "\n".join(rounds.faults)


if __name__ == "__main__":
    main(*sys.argv[1:])
