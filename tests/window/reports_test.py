#!/usr/bin/python3
"""The report browser with the real program: three scans, open each, compare, remove from an old one, print to a
queue, delete one, delete the last.

    reports_test.py PROGRAM COMMAND-LINE MAKE-DEMO-VOLUME KEPT-TEXT
"""
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import desktop, flown, wait_for  # noqa: E402
from print_server import print_server  # noqa: E402

LATER = "Library/LaunchAgents/com.apple.pixel.plist"  # comes between the first scan and the second
REMOVED = "Library/mdsa1331"


def reports(pilot):
    return pilot.find("Reports", "table")


def open_row(pilot, row):
    pilot.click_node(reports(pilot).queryTable().getAccessibleAt(row, 3))
    pilot.keys("Return")
    pilot.find("Back to the reports")


def view_last(pilot):
    """The third scan, in the window, and its report from the scan screen."""
    pilot.keys("ctrl+1")
    pilot.click("Quick Scan >")
    pilot.click("View Report", "push button")
    pilot.find("Back to the reports")


def look_at_each(pilot, screens):
    pilot.click("Back to the reports")
    pilot.find("3 reports")
    screens.note("reports")
    pilot.shot("16-reports")
    for row in range(3):
        open_row(pilot, row)
        pilot.read("potential threats")
        if row == 0:
            screens.note("details")
            pilot.shot("17-details")
        pilot.click("Back to the reports")


def compare(pilot, screens):
    table = reports(pilot).queryTable()
    pilot.click_node(table.getAccessibleAt(1, 3))
    pilot.keys("shift+Down")
    pilot.click("Compare these two")
    changes = pilot.find("What changed", "table")
    new = [cells for cells in pilot.cells(changes) if "new" in cells]
    assert len(new) == 1 and LATER in " ".join(new[0]), pilot.cells(changes)
    screens.note("comparison")
    pilot.shot("18-comparison")
    pilot.keys("Escape")


def remove_from_old(pilot, home):
    open_row(pilot, 2)
    pilot.click("Select all")
    pilot.read("0 of ")
    pilot.tick(pilot.find("Findings", "table"), pathlib.Path(REMOVED).name)
    pilot.read("1 of ")
    pilot.click("Remove…", "push button")
    pilot.click("Remove for good…")
    pilot.click("Yes")
    wait_for("the finding to go", lambda: not (home / REMOVED).exists())
    pilot.shot("19-removed")
    assert (home / LATER).exists()


def print_to_queue(pilot, screens, arrived):
    pilot.keys("ctrl+p")
    pilot.find("Print this report")
    pilot.find("The pages as they will be printed")
    screens.note("preview")
    pilot.shot("20-preview")
    buttons = [node for node in pilot.walk() if node.name == "Print…" and node.getRoleName() == "push button"]
    pilot.click_node(buttons[-1])
    pilot.click("Print", "push button")
    wait_for("the document at the printer", arrived.exists)
    assert arrived.read_bytes().startswith(b"%PDF-")
    if pilot.look("Print this report"):
        pilot.keys("Escape")


def delete_all(pilot):
    pilot.click("Delete…", "push button")
    pilot.click("Yes")
    pilot.find("2 reports")
    for left in ("1 report", "No reports yet: every scan leaves one here."):
        pilot.click_node(reports(pilot).queryTable().getAccessibleAt(0, 3))
        pilot.keys("Delete")
        pilot.click("Yes")
        pilot.find(left)
    pilot.shot("21-no-reports")


def main(program, command_line, make_volume, kept):
    with desktop() as folder, print_server(folder / "printing") as arrived:
        volume = folder / "MacintoshHD"
        home = volume / "Users/alice"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        later = (home / LATER).read_bytes()
        (home / LATER).unlink()
        scan = [command_line, "scan", "--volume", str(volume), "--user", "alice"]
        subprocess.run(scan, stdout=subprocess.DEVNULL)
        (home / LATER).write_bytes(later)
        subprocess.run(scan, stdout=subprocess.DEVNULL)
        with flown(program, volume, folder, kept) as (pilot, screens):
            view_last(pilot)
            look_at_each(pilot, screens)
            compare(pilot, screens)
            remove_from_old(pilot, home)
            print_to_queue(pilot, screens, arrived)
            delete_all(pilot)


if __name__ == "__main__":
    main(*sys.argv[1:])
