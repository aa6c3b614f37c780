#!/usr/bin/python3
"""Prints the titles of every menu of tavrel that shows, one a line, as a screen reader finds them.

  menu_titles.py [--ticked]     --ticked: only of entries with a check mark
"""
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

MENU_ENTRIES = (
    Atspi.Role.MENU_ITEM,
    Atspi.Role.CHECK_MENU_ITEM,
    Atspi.Role.RADIO_MENU_ITEM,
    Atspi.Role.MENU,
)


ticked_only = "--ticked" in sys.argv


def is_wanted(node):
    return not ticked_only or node.get_state_set().contains(Atspi.StateType.CHECKED)


def children(node):
    return (node.get_child_at_index(index) for index in range(node.get_child_count()))


def print_titles(node):
    if node.get_role() in MENU_ENTRIES and node.get_name():
        if is_wanted(node):
            print(node.get_name())
    for child in children(node):
        if child:
            print_titles(child)


for application in children(Atspi.get_desktop(0)):
    if application and application.get_name().lower() == "tavrel":
        print_titles(application)
