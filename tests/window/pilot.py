"""Drives the real program on a display and a bus of their own, as a person would.

Widgets are found by name through the accessibility tree (AT-SPI), so whatever a screen reader cannot
find, a test cannot either; keys and mouse clicks are real X events.
"""
import contextlib
import ctypes
import difflib
import mmap
import os
import pathlib
import re
import shutil
import signal
import sqlite3
import struct
import subprocess
import sys
import tempfile
import time

PATIENCE = float(os.environ.get("PRYVANE_TEST_PATIENCE", "120"))
SKIPPED = 77


def wait_for(what, condition, patience=PATIENCE):
    """The first true value of the condition."""
    end = time.monotonic() + patience
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.02)


def need(*tools):
    for tool in tools:
        if not shutil.which(tool):
            print(f"skipped: {tool} is not installed")
            sys.exit(SKIPPED)


@contextlib.contextmanager
def started(command, **more):
    process = subprocess.Popen(command, stdout=more.pop("stdout", subprocess.DEVNULL), **more)
    try:
        yield process
    finally:
        if process.poll() is None:
            process.send_signal(signal.SIGTERM)
            with contextlib.suppress(subprocess.TimeoutExpired):
                process.wait(5)
        if process.poll() is None:
            process.kill()
            process.wait()


def bus_configuration(folder):
    """A bus that starts nothing by itself but what makes widgets findable."""
    services = folder / "services"
    services.mkdir()
    for service in pathlib.Path("/usr/share/dbus-1/services").glob("org.a11y.*.service"):
        shutil.copy(service, services)
    file = folder / "bus.conf"
    file.write_text(f"""<busconfig><type>session</type><listen>unix:dir={folder}</listen>
<servicedir>{services}</servicedir><policy context="default"><allow send_destination="*" eavesdrop="true"/>
<allow eavesdrop="true"/><allow own="*"/></policy></busconfig>""", encoding="utf-8")
    return str(file)


@contextlib.contextmanager
def desktop(size=os.environ.get("PRYVANE_TEST_SCREEN", "1280x900")):
    """An X display with a window manager and a session bus; gives the folder of the session."""
    need("Xvfb", "openbox", "dbus-daemon", "xdotool", "xprop")
    with contextlib.ExitStack() as stack:
        folder = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="pryvane-window-")))
        read, write = os.pipe()
        stack.enter_context(started(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24", "-fbdir", str(folder), "-noreset", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL))
        os.close(write)
        for name in ("WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "QT_QPA_PLATFORMTHEME", "GTK_MODULES"):
            os.environ.pop(name, None)
        os.environ.update(DISPLAY=":" + os.fdopen(read).readline().strip(), QT_QPA_PLATFORM="xcb",
                          XDG_RUNTIME_DIR=str(folder / "run"), HOME=str(folder / "home"), LC_ALL="C.UTF-8", LANGUAGE="en",
                          XDG_CONFIG_HOME=str(folder / "home/.config"), XDG_CACHE_HOME=str(folder / "home/.cache"),
                          PRYVANE_DATA_DIR=str(folder / "data"), QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        (folder / "run").mkdir(mode=0o700)
        (folder / "home").mkdir()
        bus = stack.enter_context(started(["dbus-daemon", "--config-file=" + bus_configuration(folder), "--nofork", "--print-address"],
                                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL))
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip()
        stack.enter_context(started(["openbox", "--sm-disable"], stderr=subprocess.DEVNULL))
        wait_for("the window manager", lambda: "window id" in output(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))
        yield folder


def output(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout


def stored(folder, key):
    """What the store holds of that key now, whatever its table looks like."""
    for file in (folder / "data").iterdir():
        if file.open("rb").read(6) == b"SQLite":
            lines = sqlite3.connect(f"file:{file}?mode=ro", uri=True).iterdump()
            return [line for line in lines if f"'{key}'" in line]
    return []


class Picture:
    """What the display shows at this moment, from the memory that it is kept in."""

    def __init__(self, folder):
        with open(folder / "Xvfb_screen0", "rb") as file, mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ) as screen:
            head = struct.unpack(">25I", screen[:100])  # of an XWD file
            self.width, self.height, self.line = head[4], head[5], head[12]
            self.pixels = screen[head[0] + 12 * head[19]:]

    def at(self, x, y):
        start = y * self.line + 4 * x
        return self.pixels[start:start + 3][::-1]

    def row(self, x, y, width):
        return self.pixels[y * self.line + 4 * x:y * self.line + 4 * (x + width)]


class Hand:
    """Keys and mouse of the display."""

    def __init__(self):
        self.library = ctypes.CDLL("libxdo.so.3")
        self.library.xdo_new.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.library.xdo_new(None))

    def key(self, name):
        self.library.xdo_send_keysequence_window(self.display, ctypes.c_ulong(0), name.encode(), 12000)

    def click(self, x, y, button):
        """No faster than a hand: the window manager looks at each press before the program does."""
        self.library.xdo_move_mouse(self.display, x, y, 0)
        for pause, press in ((0.1, self.library.xdo_mouse_down), (0.05, self.library.xdo_mouse_up)):
            time.sleep(pause)
            press(self.display, ctypes.c_ulong(0), button)


class Pilot:
    """One running program."""

    LISTENS = False  # to what gets the keyboard, as follow() asks
    WITHIN = ("list item", "panel", "table cell")  # of what has the keyboard

    def __init__(self, program, *arguments, screenshots=None):
        import pyatspi  # connects to the bus of the desktop
        from gi.repository import Atspi, GLib

        Atspi.set_timeout(int(PATIENCE * 500), 15_000)  # a busy machine answers later than after its 800 ms
        self.atspi = pyatspi
        self.gone_away = GLib.GError  # is raised for a node that is there no more
        self.hand = Hand()
        self.loop = GLib.MainContext.default()
        self.came = []  # what has got the keyboard, the latest last
        self.listener = Atspi.EventListener.new(lambda event: event.detail1 and self.came.append(event.source))
        if self.LISTENS:
            self.listener.register("object:state-changed:focused")
        self.shots = pathlib.Path(screenshots) if screenshots else None
        self.process = subprocess.Popen([program, *arguments])

    def close(self):
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()

    # What there is

    def application(self):
        for application in self.atspi.Registry.getDesktop(0):
            with contextlib.suppress(Exception):
                if application and application.get_process_id() == self.process.pid:
                    return application
        return None

    def walk(self, node=None, depth=0, deepest=40):
        """Everything that shows, from the top."""
        node = node or self.application()
        if node is None or depth > deepest:
            return
        try:
            children = list(node)
        except Exception:  # it has just gone
            return
        for child in children:
            if child is None:
                continue
            with contextlib.suppress(Exception):
                states = child.getState()
                if depth > 0 and not states.contains(self.atspi.STATE_SHOWING):
                    continue
                role = child.getRoleName()
                self.notice(child, role, states)
                yield child
                if role != "table":
                    yield from self.walk(child, depth + 1, deepest)

    def notice(self, node, role, states):
        """Is told of whatever shows."""

    def look(self, name, role=None):
        for node in self.walk():
            with contextlib.suppress(Exception):
                if node.name == name and role in (None, node.getRoleName()):
                    return node
        return None

    def find(self, name, role=None):
        return wait_for(f'"{name}" ({role or "any role"})', lambda: self.look(name, role))

    def gone(self, name, role=None):
        wait_for(f'"{name}" to go', lambda: not self.look(name, role))

    def texts(self):
        return [node.name for node in self.walk() if node.name]

    def read(self, fragment):
        """The first text on the screen that holds the fragment."""
        return wait_for(f'a text with "{fragment}"',
                        lambda: next((text for text in self.texts() if fragment in text), None))

    def focused(self):
        """What has the keyboard. A list's current item says so even when the list has it not."""
        for node in self.walk():
            with contextlib.suppress(Exception):
                if node.getState().contains(self.atspi.STATE_FOCUSED) and node.getRoleName() not in self.WITHIN:
                    return node
        return None

    def cells(self, table):
        """Rows of a table, as lists of texts."""
        view = table.queryTable()
        return [[view.getAccessibleAt(row, column).name for column in range(view.nColumns)]
                for row in range(view.nRows)]

    def box(self, node):
        return node.queryComponent().getExtents(self.atspi.DESKTOP_COORDS)

    # What a person does

    def click(self, name, role=None, button=1):
        for tries_left in (2, 1, 0):
            try:
                node = self.find(name, role)
                wait_for(f'"{name}" to be enabled', lambda: node.getState().contains(self.atspi.STATE_ENABLED))
                return self.click_node(node, button)
            except self.gone_away:  # what was found has been made anew meanwhile
                if tries_left == 0:
                    raise

    def click_node(self, node, button=1):
        before, box = None, self.box(node)
        while before is None or (before.x, before.y) != (box.x, box.y):  # a window may just be placed
            time.sleep(0.06)
            before, box = box, self.box(node)
        # A box is ticked at the end where it is drawn.
        scale = float(os.environ.get("QT_SCALE_FACTOR", "1"))  # the tree tells places without it
        start = box.width - 12 if os.environ.get("PRYVANE_DIRECTION") == "rtl" else 12
        x = int(scale * (box.x + (start if node.getRoleName() == "check box" else box.width // 2)))
        y = int(scale * (box.y + box.height // 2))
        self.hand.click(x, y, button)

    def keys(self, *names):
        for name in names:
            subprocess.run(["xdotool", "key", "--clearmodifiers", name], check=True)
            time.sleep(0.05)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "15", text], check=True)
        time.sleep(0.3)  # a field may offer completions

    def follow(self, patience):
        """What has got the keyboard since this was asked last; nothing: none was heard of."""
        end = time.monotonic() + patience
        while True:
            while self.loop.iteration(False):
                pass
            while self.came:
                node = self.came.pop()
                with contextlib.suppress(Exception):
                    if node.getState().contains(self.atspi.STATE_FOCUSED) and node.getRoleName() not in self.WITHIN:
                        self.came.clear()
                        return node
            if time.monotonic() > end:
                return None
            time.sleep(0.005)

    def tab_to(self, name, limit=60, key="Tab"):
        """Goes there by keyboard alone."""
        for _ in range(limit):
            node = self.focused()
            if node and node.name == name:
                return node
            self.keys(key)
            time.sleep(0.05)
        raise AssertionError(f'the {key} key does not reach "{name}"; it is on {self.focused()}')

    def shot(self, name):
        if self.shots:
            time.sleep(0.4)  # fades end
            self.shots.mkdir(parents=True, exist_ok=True)
            subprocess.run(["import", "-window", "root", str(self.shots / f"{name}.png")], check=True)

    def sheet(self):
        """The sheet or the question that lies on top, which is all that can be reached; none: nothing does."""
        top = None
        for node in self.walk(deepest=1):
            with contextlib.suppress(Exception):
                top = node if node.getRoleName() in ("dialog", "alert") else top
        return top

    def window(self):
        """The window that has the keyboard."""
        for node in self.application() or ():
            with contextlib.suppress(Exception):
                if node.getState().contains(self.atspi.STATE_ACTIVE):
                    return node
        return None

    def confirm_access(self):
        self.click("Confirm Access")
        self.find("Quick Scan >")

    grant = confirm_access

    def tick(self, table, cell):
        """Clicks the tick box of the first row that holds the text."""
        row = next(i for i, cells in enumerate(self.cells(table)) if cell in cells)
        self.click_node(table.queryTable().getAccessibleAt(row, 0))


class Screens:
    """What can be done on each screen: its controls and tables by name, and what is on or cannot be used.
    Words that are only read are left to the tests of those who say them."""

    KEPT = ("push button", "toggle button", "check box", "radio button", "combo box", "text", "list item", "page tab",
            "table", "tree", "progress bar", "menu item")

    def __init__(self, pilot, folder):
        self.pilot = pilot
        self.folder = str(folder)
        self.text = ""

    def note(self, title):
        found = {}
        for node in self.pilot.walk():
            role, name = node.getRoleName(), node.name
            if role not in self.KEPT:
                continue
            assert name, f"a {role} on \"{title}\" has no name"
            states = node.getState()
            name = re.sub(r"\d+", "#", name.replace(self.folder, "DIR"))
            name += " (on)" if states.contains(self.pilot.atspi.STATE_CHECKED) else ""
            name += "" if states.contains(self.pilot.atspi.STATE_ENABLED) else " (off)"
            if name not in ("Minimise", "Maximise", "Close"):
                found.setdefault(role, []).append(name)
        self.text += f"== {title}\n" + "".join(f"{role} | {' | '.join(names)}\n" for role, names in found.items())

    def compare(self, kept):
        if os.environ.get("PRYVANE_KEEP"):
            kept.write_text(self.text, encoding="utf-8")
            return
        difference = list(difflib.unified_diff(
            kept.read_text(encoding="utf-8").splitlines(), self.text.splitlines(), "kept", "found", lineterm=""))
        assert not difference, "what a screen reader finds has changed; PRYVANE_KEEP=1 keeps it\n" + \
            "\n".join(difference)


@contextlib.contextmanager
def flown(program, volume, folder, kept):
    """A pilot on the volume and its screens, which are compared with the kept text at the end."""
    pilot = Pilot(program, "--volume", str(volume), "--user", "alice", screenshots=os.environ.get("PRYVANE_SCREENSHOTS"))
    screens = Screens(pilot, folder)
    try:
        pilot.confirm_access()
        yield pilot, screens
    except Exception:
        pilot.shot("failure")
        raise
    finally:
        pilot.close()
    screens.compare(pathlib.Path(kept))
