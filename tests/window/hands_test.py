#!/usr/bin/python3
"""Controls obey a screen reader's press as they obey a click, Return presses, and a sheet keeps all keys.

    hands_test.py PROGRAM MAKE-DEMO-VOLUME
"""
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import Pilot, desktop, stored, wait_for  # noqa: E402


def press(pilot, name, role):
    """As a screen reader or a voice does it: by the control's own action."""
    actions = pilot.find(name, role).queryAction()
    wanted = next(i for i in range(actions.nActions) if actions.getName(i).lower() in ("toggle", "press", "check"))
    actions.doAction(wanted)


def check_presses(pilot, folder):
    for switch, key in (("Real-time scan", "RealTimeScanONOFF"), ("Dock icon", "IsDockIcon"),
                        ("Start at login", "IsRunOnStart")):
        before = stored(folder, key)
        press(pilot, switch, "check box")
        wait_for(f"{switch} to be stored", lambda: stored(folder, key) != before)
    assert list((folder / "home/.config/autostart").glob("*.desktop")), "nothing starts at login"
    press(pilot, "Deep scan", "check box")
    pilot.find("Deep Scan >", "push button")
    press(pilot, "Deep scan", "check box")


def check_keys(pilot):
    pilot.keys("ctrl+1")
    pilot.tab_to("Schedule…")
    pilot.keys("Return")
    pilot.find("Scan on a schedule", "check box")
    pilot.keys("ctrl+2", "ctrl+o", "ctrl+f")
    behind = [name for name in ("Quick Scan >", "Dashboard", "Menu", "Choose Folder…") if pilot.look(name)]
    assert not behind, f"beside the sheet there are {behind}"
    assert pilot.focused().name == "Scan on a schedule", pilot.focused().name
    press(pilot, "Scan on a schedule", "check box")
    pilot.read("Every day at ")
    pilot.tab_to("Time of day")
    pilot.keys("Return")  # the sheet's default
    pilot.find("Spyware scan scheduled successfully")
    pilot.keys("Return")
    pilot.gone("Scan on a schedule", "check box")
    pilot.read("next: ")
    pilot.tab_to("Schedule…")
    pilot.keys("Return")
    pilot.read("Every day at ")
    pilot.keys("Escape")
    pilot.gone("Scan on a schedule", "check box")
    pilot.find("Quick Scan >")
    pilot.keys("ctrl+2")
    pilot.gone("Quick Scan >")


def main(program, make_volume):
    with desktop() as folder:
        volume = folder / "MacintoshHD"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        pilot = Pilot(program, "--volume", str(volume), "--user", "alice")
        try:
            pilot.confirm_access()
            check_presses(pilot, folder)
            check_keys(pilot)
        finally:
            pilot.close()


if __name__ == "__main__":
    main(*sys.argv[1:])
