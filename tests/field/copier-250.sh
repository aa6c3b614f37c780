#!/usr/bin/env bash
# An editor that copies through another program, 250 ms after the keystroke.
# packages: python3-gi gir1.2-gtk-3.0 xclip
. "$(dirname "$0")/field-lib.sh"
copied="text " # nobody waits for so long
copier 250
