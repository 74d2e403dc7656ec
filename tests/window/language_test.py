#!/usr/bin/python3
"""The window in another language: every control of its main screens is named in it, or is kept as it is.

    language_test.py de|fr PROGRAM MAKE-DEMO-VOLUME

PRYVANE_SCREENSHOTS=DIR keeps pictures.
"""
import os
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as xml

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from pilot import Pilot, Screens, desktop, wait_for  # noqa: E402

# Names of this disk and its users, the given texts of an alert, and what is the same everywhere.
KEPT = {"Pryvane", "alice", "Yes", "No", "OK", "PDF", "JSON", "CSV", "HTML", "Safari", "Chrome", "Firefox", "Mail"}
SENTENCES = {"de": "Gefunden: 11 mögliche Bedrohungen", "fr": "Trouvé : 11 menaces possibles"}


class Translations:
    def __init__(self, language):
        file = pathlib.Path(__file__).parents[2] / f"translations/pryvane_{language}.ts"
        self.of = {}
        for message in xml.parse(file).getroot().iter("message"):
            forms = [form.text for form in message.iter("numerusform")] or [message.findtext("translation")]
            self.of.setdefault(message.findtext("source"), forms)
        marks = re.compile(r"%L?[\dn]")
        self.names = re.compile("|".join(
            ".+".join(re.escape(part) for part in marks.split(form)) for forms in self.of.values() for form in forms
            if len(marks.sub("", form)) > 2))

    def said(self, english):
        return self.of[english][0]

    def check(self, pilot, screen):
        for node in pilot.walk():
            name = node.name
            if node.getRoleName() in Screens.KEPT and name and name not in KEPT and not name.startswith("MacintoshHD"):
                assert self.names.fullmatch(name.split("\n")[0]), f"{screen}: the {node.getRoleName()} \"{name}\" is " \
                    "not translated"


def go_through(pilot, words):
    def screen(name, shows):
        pilot.read(shows)
        words.check(pilot, name)
        pilot.shot(name)

    def press(english, role=None):
        pilot.click(words.said(english), role)

    screen("1-welcome", words.said("What may it look at?"))
    press("Confirm Access")
    screen("2-dashboard", words.said("Real-time scan"))
    press("Quick Scan >")
    pilot.find(words.said("Remove…"), "push button")
    screen("3-findings", SENTENCES[os.environ["LANGUAGE"]])
    press("Remove…", "push button")
    screen("4-plan", words.said("Keep a Record First…"))
    pilot.keys("Escape")
    pilot.keys("ctrl+1")
    press("Schedule…")
    screen("5-schedule", words.said("Scan on a schedule"))
    pilot.keys("Escape", "ctrl+3")
    screen("6-tools", words.said("Measure again"))
    press("Inventory")
    screen("7-inventory", words.said("Gather again"))
    press("Who May Watch")
    wait_for("the facts", lambda: pilot.cells(pilot.find(words.said("Who may watch"), "table")))
    screen("8-facts", words.said("Permissions"))
    pilot.keys("ctrl+4")
    screen("9-reports", words.said("1 report"))
    table = pilot.find(words.said("Reports"), "table")
    pilot.click_node(table.queryTable().getAccessibleAt(0, 3))
    pilot.keys("Return")
    screen("10-report", words.said("Back to the reports"))
    pilot.keys("ctrl+o")
    screen("11-open", words.said("Choose Folder…"))
    pilot.keys("Escape", "F1")
    screen("12-help", words.said("How Pryvane works"))


def main(language, program, make_volume):
    with desktop() as folder:
        volume = folder / "MacintoshHD"
        subprocess.run([make_volume, str(volume)], check=True, stdout=subprocess.DEVNULL)
        os.environ.update(LANGUAGE=language, LC_ALL=f"{language}_{language.upper()}.UTF-8")
        pilot = Pilot(program, "--volume", str(volume), "--user", "alice",
                      screenshots=os.environ.get("PRYVANE_SCREENSHOTS"))
        try:
            go_through(pilot, Translations(language))
        except Exception:
            pilot.shot("failure")
            raise
        finally:
            pilot.close()
    print("ok")


main(*sys.argv[1:])
