#!/usr/bin/env bash
# Alacritty: its copies are owned by another connection than its window.
# packages: alacritty
. "$(dirname "$0")/field-lib.sh"
terminal alacritty alacritty alacritty -e "$HOME/listen"
