#!/usr/bin/env bash
# The terminal of Xfce: a word that is marked in it.
# packages: xfce4-terminal
. "$(dirname "$0")/field-lib.sh"
terminal xfce4-terminal 'xfce4-terminal|xfce terminal' xfce4-terminal --disable-server --hide-menubar -x "$HOME/listen"
