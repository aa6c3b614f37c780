#!/usr/bin/env bash
# xterm: a word that is marked in it.
# packages: xterm
. "$(dirname "$0")/field-lib.sh"
terminal xterm xterm xterm -e "$HOME/listen"
