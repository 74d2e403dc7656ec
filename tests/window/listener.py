#!/usr/bin/python3
"""Prints what a screen reader is told: a line for each name that changes and each alert that opens."""
import sys

import pyatspi


def heard(event):
    try:
        role, name = event.source.getRoleName(), event.source.name
    except Exception:  # it has gone by now
        return
    if name:
        print(f"{event.type} | {role} | {name}", flush=True)


pyatspi.Registry.registerEventListener(
    heard, "object:property-change:accessible-name", "window:activate", "object:state-changed:focused")
print("listening", flush=True)
try:
    pyatspi.Registry.start()
except KeyboardInterrupt:
    sys.exit(0)
