#!/usr/bin/python3
"""Owns the clipboard, and the marked text, as a program that a person has copied in.

The clipboard has seven targets: two texts, HTML, one of the program's own, one that is empty, one of
100 KB with every byte in it, one for the picture that it is said to be. SIGUSR1 copies anew, with
another number in it.
"""
import signal

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GLib, Gtk

TEXTS = ["UTF8_STRING", "text/plain;charset=utf-8"]
TARGETS = TEXTS + ["text/html", "application/x-own-format", "application/x-empty", "application/octet-stream", "image/x-own"]
MARKED = "marked in another program"
copies = 0


def contents(target):
    if target in TEXTS:
        return f"copy {copies} of Grüße".encode()
    if target == "text/html":
        return f"<meta charset=utf-8><b>copy {copies}</b>".encode()
    if target == "application/x-own-format":
        return b"\0\1\2own\0" + str(copies).encode()
    if target == "application/x-empty":
        return b""
    return bytes(range(256)) * (400 if target == "application/octet-stream" else 3)


def answer(widget, data, info, time):
    if data.get_selection() == Gdk.SELECTION_PRIMARY:
        data.set(data.get_target(), 8, MARKED.encode())
    else:
        data.set(data.get_target(), 8, contents(data.get_target().name()))


def copy():
    global copies
    copies += 1
    Gtk.selection_owner_set(owner, Gdk.SELECTION_CLIPBOARD, Gdk.CURRENT_TIME)
    return GLib.SOURCE_CONTINUE


owner = Gtk.Invisible()
owner.connect("selection-get", answer)
for number, target in enumerate(TARGETS):
    Gtk.selection_add_target(owner, Gdk.SELECTION_CLIPBOARD, Gdk.Atom.intern(target, False), number)
Gtk.selection_add_target(owner, Gdk.SELECTION_PRIMARY, Gdk.Atom.intern("UTF8_STRING", False), 0)
Gtk.selection_owner_set(owner, Gdk.SELECTION_PRIMARY, Gdk.CURRENT_TIME)
copy()
GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR1, copy)
Gtk.main()
