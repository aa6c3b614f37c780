#!/usr/bin/python3
"""Fills its terminal with one word, and notes what reaches it through the terminal: signals in
~/interrupted, what is typed in ~/typed, a line each time. ~/listening is there once it listens."""
import os
import pathlib
import signal
import sys
import tty

# Some terminals have a home of their own for what runs in them.
home = pathlib.Path(os.environ["TAVREL_DESKTOP"]) / "home"


def note(file, what):
    with open(home / file, "a") as notes:
        print(what, file=notes)


for each in (signal.SIGINT, signal.SIGQUIT, signal.SIGTSTP):
    signal.signal(each, lambda number, frame: note("interrupted", signal.Signals(number).name))
tty.setcbreak(sys.stdin.fileno())
print("\n".join(["Grüße " * 8] * 60), end="", flush=True)
(home / "listening").touch()
while typed := os.read(sys.stdin.fileno(), 1024):
    note("typed", typed)
