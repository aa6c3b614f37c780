#!/usr/bin/env bash
# kitty: a word that is marked in it.
# packages: kitty
. "$(dirname "$0")/field-lib.sh"
terminal kitty kitty kitty --config NONE "$HOME/listen"
