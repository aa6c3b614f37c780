#!/usr/bin/env bash
# The text editor of GNOME: the first of two lines is selected.
# packages: gnome-text-editor
. "$(dirname "$0")/field-lib.sh"
editor gnome-text-editor "gnome-text-editor|text editor" gnome-text-editor --standalone
