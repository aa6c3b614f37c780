#!/usr/bin/env bash
# The terminal panel of Geany: it takes Ctrl+C for an interrupt, though its window is an editor.
# packages: geany
. "$(dirname "$0")/field-lib.sh"
from_top=520
terminal_panel geany geany F4 geany --new-instance "$HOME"
