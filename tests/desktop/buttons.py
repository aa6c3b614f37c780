#!/usr/bin/python3
"""Prints the buttons of tavrel's panels as a screen reader finds them: X Y NAME, its middle."""
import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402


def children(node):
    return (node.get_child_at_index(index) for index in range(node.get_child_count()))


def print_buttons(node):
    if node.get_role() == Atspi.Role.PUSH_BUTTON:
        place = node.get_extents(Atspi.CoordType.SCREEN)
        print(place.x + place.width // 2, place.y + place.height // 2, node.get_name())
    for child in children(node):
        if child:
            print_buttons(child)


for application in children(Atspi.get_desktop(0)):
    if application and application.get_name().lower() == "tavrel":
        print_buttons(application)
