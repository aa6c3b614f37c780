#!/usr/bin/env bash
# The terminal panel of Kate: it takes Ctrl+C for an interrupt, though its window is an editor.
# packages: kate konsole-kpart
. "$(dirname "$0")/field-lib.sh"
from_top=400
terminal_panel kate kate F4 kate
