#!/usr/bin/env bash
# gvim: text marked in visual mode. Ctrl+C ends every mode, and Ctrl+Insert types something into one.
# packages: vim-gtk3 vim-gui-common
. "$(dirname "$0")/field-lib.sh"
file=$HOME/Documents/words.txt
printf '%s\nanother line\n' "$words" >"$file"
ask() { timeout 5 gvim --servername FIELD --remote-expr "$1"; }
mode_is() { [ "$(ask 'mode()')" = "$1" ]; }
harm() { mode_is "$mode" || echo "the mode was $mode and is $(ask 'mode()')"; }
put_back() { enter $mode $ways; }
enter() { # MODE KEY...
  mode=$1 ways=${*:2}
  press Escape $ways
  wait_for 20 "mode $1" mode_is "$1"
}
start gvim gvim -f --clean --servername FIELD "$file"
enter n g g
nothing "at first"
enter i g g i
nothing "in insert mode"
press x Escape
type_text ":w"
press Return
saved "x$words"
enter v g g 0 v shift+4 h
captures "marked in visual mode" "text x$words"
stops "text x$words" gvim\|vim
press c x Escape
type_text ":w"
press Return
saved x
finish
