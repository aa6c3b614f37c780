#!/usr/bin/python3
"""Posts notifications in one burst: flood.py COUNT FILE

The first writes "begin" to the file and the last appends "end"; between them come messages without
keys, of wrong types, of unknown names and one with 10 MB of user information, none of which may
have an effect.
"""
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

count, path = int(sys.argv[1]), sys.argv[2]
bus = Gio.bus_get_sync(Gio.BusType.SESSION)


def post(name, user_info, sender="qorvane.tavrel.cm"):
    bus.emit_signal(
        None,
        "/qorvane/tavrel/DistributedNotifications",
        "qorvane.tavrel.DistributedNotifications",
        "Posted",
        GLib.Variant("(ssa{sv})", (sender, name, user_info)),
    )


def script(command):
    return {"sourceCode": GLib.Variant("s", f'do shell script "{command}"')}


junk = [
    ("execScript", {}),
    ("execScript", {"path": GLib.Variant("i", 7), "sourceCode": GLib.Variant("as", ["beep"])}),
    ("openWithPathFinder", {}),
    ("revealInFinder", {"path": GLib.Variant("b", True)}),
    ("showMessage", {"messageName": GLib.Variant("s", "nothing")}),
    ("nobody knows", {"path": GLib.Variant("s", "/tmp")}),
    ("execScript", {"path": GLib.Variant("o", "/object/path")}),
]

post("execScript", script(f"echo begin > {path}"))
megabytes = GLib.Bytes.new(bytes(10 * 1024 * 1024))
post("execScript", {"junk": GLib.Variant.new_from_bytes(GLib.VariantType("ay"), megabytes, True)})
for number in range(count):
    post(*junk[number % len(junk)])
post("execScript", script(f"echo end >> {path}"))
bus.flush_sync()
