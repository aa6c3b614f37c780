#!/usr/bin/python3
"""An editor that copies through xclip, some while after it was asked: copier.py MILLISECONDS

Ctrl+C and Ctrl+Insert copy; every other key is noted in ~/typed, and of the copies how many were
asked for and how many were made in ~/asked and ~/made.
"""
import pathlib
import subprocess
import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GLib, Gtk

COPIES = (Gdk.KEY_c, Gdk.KEY_C, Gdk.KEY_Insert)
MODIFIERS = (Gdk.KEY_Control_L, Gdk.KEY_Control_R, Gdk.KEY_Shift_L, Gdk.KEY_Shift_R)
home = pathlib.Path.home()


def note(file, what):
    with open(home / file, "a") as notes:
        print(what, file=notes)


def copy():
    # It returns when its copy, which lives on, owns the clipboard.
    subprocess.run(["xclip", "-selection", "clipboard"], input="Some words".encode(), check=True)
    note("made", "copy")
    return GLib.SOURCE_REMOVE


def pressed(window, event):
    if event.state & Gdk.ModifierType.CONTROL_MASK and event.keyval in COPIES:
        note("asked", "copy")
        GLib.timeout_add(int(sys.argv[1]), copy)
    elif event.keyval not in MODIFIERS:
        note("typed", Gdk.keyval_name(event.keyval))


window = Gtk.Window(title="Copier")
window.set_default_size(600, 400)
window.connect("key-press-event", pressed)
window.connect("destroy", Gtk.main_quit)
window.show_all()
Gtk.main()
