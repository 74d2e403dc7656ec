#!/usr/bin/python3
"""Each switch does what it says to the desktop's real services, and survives a restart.

    switches_test.py PROGRAM MAKE-DEMO-VOLUME
"""
import json
import os
import pathlib
import shlex
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import Pilot, desktop, need, output, started, wait_for  # noqa: E402

SWITCHES = ("Real-time scan", "Dock icon", "Start at login")
HERE = pathlib.Path(__file__).parent


def windows_of(process):
    return output("xdotool", "search", "--onlyvisible", "--pid", str(process.pid)).split()


def skips_taskbar(pilot):
    return any("SKIP_TASKBAR" in output("xprop", "-id", window, "_NET_WM_STATE")
               for window in windows_of(pilot.process))


def is_on(pilot, switch):
    return pilot.find(switch, "check box").getState().contains(pilot.atspi.STATE_CHECKED)


def autostart(folder):
    entries = list((folder / "home/.config/autostart").glob("*.desktop"))
    return entries[0] if entries else None


def exec_of(entry):
    line = next(line for line in entry.read_text().splitlines() if line.startswith("Exec="))
    return shlex.split(line[len("Exec="):])


def open_first(program, volume):
    pilot = Pilot(program, "--volume", str(volume), "--user", "alice")
    pilot.confirm_access()
    return pilot


def check_switches(pilot, folder):
    assert is_on(pilot, "Dock icon") and not is_on(pilot, "Start at login")
    assert not skips_taskbar(pilot) and not autostart(folder)
    for switch in SWITCHES:
        was = is_on(pilot, switch)
        pilot.click(switch, "check box")
        wait_for(f"{switch} to change", lambda: is_on(pilot, switch) != was)
    wait_for("the taskbar hint", lambda: skips_taskbar(pilot))
    entry = wait_for("the autostart entry", lambda: autostart(folder))
    subprocess.run(["desktop-file-validate", str(entry)], check=True)


def check_after_restart(program, volume, folder):
    pilot = Pilot(program, "--volume", str(volume), "--user", "alice")
    try:
        pilot.find("Quick Scan >")  # the grant is kept: no question
        assert [is_on(pilot, switch) for switch in SWITCHES] == [False, False, True]
        wait_for("the taskbar hint", lambda: skips_taskbar(pilot))
        assert autostart(folder)
        check_second_start(pilot, program)
        check_notification(pilot)
        pilot.click("Dashboard", "list item")  # a key may go to the notification's window
        pilot.click("Start at login", "check box")
        wait_for("the autostart entry to go", lambda: not autostart(folder))
        pilot.click("Dock icon", "check box")
        wait_for("the taskbar hint to go", lambda: not skips_taskbar(pilot))
    finally:
        pilot.close()


def check_second_start(pilot, program):
    pilot.click("Close", "push button")  # the status icon brings it back
    wait_for("the window to hide", lambda: not windows_of(pilot.process))
    second = subprocess.run([program], timeout=60)
    assert second.returncode == 0
    wait_for("the first one's window", lambda: windows_of(pilot.process))
    wait_for("its taskbar hint", lambda: skips_taskbar(pilot))
    assert pilot.process.poll() is None


def check_notification(pilot):
    pilot.click("Deep scan", "check box")
    pilot.click("Deep Scan >")
    pilot.find("Remove…", "push button")
    pilot.read("Found: 13 potential threats.")
    shown = json.loads(output("dunstctl", "history"))["data"][0]
    displayed = int(output("dunstctl", "count", "displayed") or 0)
    assert displayed + len(shown) > 0, "the notification daemon was told nothing"


def check_login(program, folder):
    """As the desktop does at login: the helper starts the program, and goes when told so."""
    pilot = Pilot(program)  # on this computer's own disk, as at login
    try:
        pilot.confirm_access()
        pilot.click("Start at login", "check box")
        entry = wait_for("the autostart entry", lambda: autostart(folder))
        pilot.keys("ctrl+q")
        wait_for("the program to end", lambda: pilot.process.poll() is not None)
    finally:
        pilot.close()
    helper = subprocess.Popen(exec_of(entry))
    window = wait_for("the window", lambda: output("xdotool", "search", "--onlyvisible", "--name", "^Pryvane$"))
    try:
        wait_for("the helper to be told to go", lambda: helper.poll() is not None)
        assert helper.returncode == 0
    finally:
        helper.kill()
        subprocess.run(["kill", output("xdotool", "getwindowpid", window.split()[0]).strip()])
    wait_for("its end", lambda: not output("xdotool", "search", "--name", "^Pryvane$"))
    entry.unlink()


def main(program, make_volume):
    need("dunst", "dunstctl", "desktop-file-validate", "pgrep")
    with desktop() as folder:
        volume = folder / "MacintoshHD"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        hosted = folder / "hosted"
        placed = folder / "dunstrc"  # where nothing is clicked
        placed.write_text("[global]\norigin = bottom-left\nnotification_limit = 1\n")
        with started(["dunst", "-config", str(placed)], stderr=subprocess.DEVNULL), \
                started([str(HERE / "status_host.py")], stdout=open(hosted, "w", encoding="utf-8")):
            wait_for("the status host", lambda: "watching" in hosted.read_text())
            check_login(program, folder)
            os.environ["PRYVANE_DATA_DIR"] = str(folder / "other data")
            pilot = open_first(program, volume)
            try:
                line = wait_for("the status icon", lambda: next(
                    (line for line in hosted.read_text().splitlines() if line.startswith("item")), None))
                assert "Pryvane" in line and "Scan" in line, line
                check_switches(pilot, folder)
                pilot.keys("ctrl+q")
                wait_for("the program to end", lambda: pilot.process.poll() is not None)
            finally:
                pilot.close()
            check_after_restart(program, volume, folder)


if __name__ == "__main__":
    main(*sys.argv[1:])
