#!/usr/bin/python3
"""A session manager that writes what it is asked into a file: session_manager.py FILE"""
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

INTERFACE = """<node><interface name="org.xfce.Session.Manager"><method name="Logout">
  <arg type="b" direction="in"/><arg type="b" direction="in"/></method></interface></node>"""


def called(bus, sender, path, interface, method, arguments, invocation):
    with open(sys.argv[1], "a") as asked:
        print(method, *arguments.unpack(), file=asked)
    invocation.return_value(None)


def have_bus(bus, name):
    bus.register_object("/org/xfce/SessionManager", Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], called)


Gio.bus_own_name(
    Gio.BusType.SESSION, "org.xfce.SessionManager", Gio.BusNameOwnerFlags.NONE, have_bus, None, None
)
GLib.MainLoop().run()
