#!/usr/bin/python3
"""A StatusNotifier watcher and host: prints each item that registers, and the titles of its menu."""
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

WATCHER = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg direction="in" type="s"/></method>
<method name="RegisterStatusNotifierHost"><arg direction="in" type="s"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
<signal name="StatusNotifierHostRegistered"/>
</interface></node>"""
items = []


def property_of(service, path, interface, name):
    reply = bus.call_sync(service, path, "org.freedesktop.DBus.Properties", "Get",
                          GLib.Variant("(ss)", (interface, name)), None, 0, 2000, None)
    return reply.unpack()[0]


def tell(service):
    try:
        describe(service)
    except GLib.Error:  # the program has ended meanwhile
        pass
    return False


def describe(service):
    title = property_of(service, "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Title")
    menu = property_of(service, "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Menu")
    layout = bus.call_sync(service, menu, "com.canonical.dbusmenu", "GetLayout",
                           GLib.Variant("(iias)", (0, -1, [])), None, 0, 2000, None).unpack()
    labels = [child[1].get("label", "-") for child in layout[1][2]]
    print(f"item {title} | {' | '.join(labels)}", flush=True)


def call(connection, sender, path, interface, method, parameters, invocation):
    if method == "RegisterStatusNotifierItem":
        items.append(sender)
        GLib.timeout_add(500, tell, sender)
    invocation.return_value(None)


def read(connection, sender, path, interface, name):
    return {"RegisteredStatusNotifierItems": GLib.Variant("as", items),
            "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
            "ProtocolVersion": GLib.Variant("i", 0)}[name]


bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.register_object("/StatusNotifierWatcher", Gio.DBusNodeInfo.new_for_xml(WATCHER).interfaces[0],
                    call, read, None)
Gio.bus_own_name_on_connection(bus, "org.kde.StatusNotifierWatcher", 0,
                               lambda *_: print("watching", flush=True), lambda *_: sys.exit(1))
GLib.MainLoop().run()
