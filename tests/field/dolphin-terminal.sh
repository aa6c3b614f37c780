#!/usr/bin/env bash
# The terminal panel of Dolphin: it takes Ctrl+C for an interrupt, though its window is a file manager:
# of which only files are captured.
# packages: dolphin konsole-kpart
. "$(dirname "$0")/field-lib.sh"
from_top=520
marked="text "
terminal_panel dolphin dolphin F4 dolphin "$HOME"
