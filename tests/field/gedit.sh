#!/usr/bin/env bash
# gedit: the first of two lines is selected.
# packages: gedit
. "$(dirname "$0")/field-lib.sh"
editor gedit gedit gedit --new-window
