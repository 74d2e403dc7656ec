#!/usr/bin/python3
"""Welcome, grant, dashboard, quick scan, findings, removal of some, summary: with the real program.

    flow_test.py PROGRAM MAKE-DEMO-VOLUME KEPT-TEXT

What a screen reader finds on each screen is compared with the kept text; PRYVANE_KEEP=1 writes it anew. PRYVANE_SCREENSHOTS=DIR keeps pictures.
"""
import os
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import Pilot, Screens, desktop, started, wait_for  # noqa: E402

KEPT_BACK = "Library/.A_o_b_o"  # the finding that is not to be removed
REMOVED = ["Users/alice/Library/mdsa1331", "Library/LaunchAgents/com.refog.agent.plist"]
WEAK = "MyCodecPack"


def by_mouse(pilot, screens):
    pilot.find("Confirm Access")
    screens.note("welcome")
    pilot.shot("1-welcome")
    pilot.click("Other…")
    pilot.find("Confirm Access", "dialog")
    pilot.shot("2-grant")
    pilot.keys("Escape")
    pilot.gone("Confirm Access", "dialog")
    pilot.confirm_access()
    screens.note("dashboard")
    pilot.shot("3-dashboard")
    pilot.click("Quick Scan >")
    pilot.read("found")
    pilot.shot("4-scanning")
    pilot.find("Remove…", "push button")
    pilot.read("Found: 11 potential threats.")
    screens.note("findings")
    pilot.shot("5-findings")
    table = pilot.find("Findings", "table")
    row = next(i for i, cells in enumerate(pilot.cells(table)) if KEPT_BACK in cells[4])
    pilot.click_node(table.queryTable().getAccessibleAt(row, 0))
    pilot.find("9 of 10 selected")
    pilot.click("Remove…", "push button")
    pilot.read("8 selected:")  # what rests on weak evidence starts unticked
    screens.note("plan")
    pilot.shot("6-plan")
    pilot.click("Remove for good…")
    pilot.find("Are you sure you want to delete selected threats?")
    screens.note("question")
    pilot.shot("7-question")
    pilot.click("Yes")


def check_summary(pilot, volume):
    pilot.find("All threats are Removed")
    pilot.find("0 of 2 selected")  # what is gone can no longer be
    for path in REMOVED:
        assert not (volume / path).exists(), f"{path} is still there"
    assert (volume / "Users/alice" / KEPT_BACK).exists(), "what was not selected is gone"
    assert list(volume.rglob(WEAK)), "what was left out of the plan is gone"
    rows = {cells[1]: cells[3] for cells in pilot.cells(pilot.find("Findings", "table"))}
    assert rows["mdsa1331"] == "removed", rows
    assert rows[".A_o_b_o"] == "exact path", rows


def other_screens(pilot, screens):
    screens.note("summary")
    pilot.keys("ctrl+o")
    pilot.find("Choose Folder…")
    screens.note("open volume")
    pilot.shot("9-open-volume")
    pilot.keys("Escape")
    pilot.keys("ctrl+1")
    pilot.click("Schedule…")
    pilot.find("Scan on a schedule")
    screens.note("schedule")
    pilot.shot("10-schedule")
    pilot.keys("Escape")
    pilot.keys("F1")
    pilot.find("How Pryvane works")
    screens.note("help")
    pilot.shot("11-help")


def main(program, make_volume, kept):
    with desktop() as folder:
        volume = folder / "MacintoshHD"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        heard = open(folder / "heard", "w+", encoding="utf-8")
        listener = pathlib.Path(__file__).with_name("listener.py")
        with started([str(listener)], stdout=heard):
            wait_for("the listener", lambda: "listening" in (folder / "heard").read_text())
            pilot = Pilot(program, "--volume", str(volume), "--user", "alice",
                          screenshots=os.environ.get("PRYVANE_SCREENSHOTS"))
            screens = Screens(pilot, folder)
            try:
                by_mouse(pilot, screens)
                check_summary(pilot, volume)
                pilot.shot("8-summary")
                other_screens(pilot, screens)
            except Exception:
                pilot.shot("failure")
                raise
            finally:
                pilot.close()
        told = (folder / "heard").read_text(encoding="utf-8")
        for words in ("Potential Threats Detected", "Found: 11 potential threats.", "All threats are Removed",
                      "Alert"):
            assert words in told, f'a screen reader was not told "{words}":\n{told}'
        screens.compare(pathlib.Path(kept))


if __name__ == "__main__":
    main(*sys.argv[1:])
