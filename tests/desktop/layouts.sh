#!/usr/bin/env bash
# Hot keys, the double tap, posted keys and the Option choice on the layouts and with the moved
# modifiers that people have, from a keyboard's own device and from that of programs.
#   layouts.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")
keyboard=${TAVREL_DEVICE_KEYS:-$(dirname "$program")/../tests/field/device_keys}

if [ "${TAVREL_LAYOUTS_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/layouts}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_LAYOUTS_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
words=$HOME/Documents/words.txt
mkdir -p "$HOME/Documents" "$XDG_CONFIG_HOME"
printf 'words\nto be kept' >"$words"
printf '#!/bin/sh\ncat >"$HOME/kept.new" && mv "$HOME/kept.new" "$HOME/kept"\n' >"$HOME/Keep.sh"
printf '#!/bin/sh\ntouch "$HOME/looked"\n' >"$HOME/Look.sh"
chmod +x "$HOME/Keep.sh" "$HOME/Look.sh"

# item TITLE SCRIPT MORE; no shortcut has a key code, so that the layout decides.
item() {
  printf '<dict><key>TVR_MenuItemType</key><string>applescript</string><key>TVR_MenuItemTitle</key><string>%s</string><key>TVR_MenuItemURL</key><string>file://%s</string>%s</dict>' "$1" "$HOME/$2" "$3"
}
shortcut() { printf '<key>TVR_MenuItemShortcutString</key><string>%s</string>' "$1"; }
nowhere='<key>TVR_MenuItemInvokers</key><array><string>Nowhere</string></array>'
{
  echo '<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/><key>TVR_MenuTree</key><array>'
  item Look Look.sh ""
  item Keep Keep.sh "$(shortcut k)"
  item Digit Keep.sh "$(shortcut 1)"
  item Elsewhere Keep.sh "$(shortcut a)$nowhere"
  echo '</array></dict></plist>'
} >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist"

# keys DEVICE CODE+CODE...: by the server's codes.
keys() {
  local code codes
  [ "$1" = keyboard ] && { "$keyboard" --gap 60 "${@:2}"; return; }
  for codes in "${@:2}"; do
    sleep 0.06
    for code in ${codes//+/ }; do xdotool keydown "$code"; done
    for code in ${codes//+/ }; do xdotool keyup "$code"; done
  done
}
primary_is() { [ "$(timeout 2 xclip -selection primary -o 2>/dev/null)" = "$1" ]; }
selected_first_word() {
  xdotool key ctrl+Home shift+End
  primary_is words
}
# A row tells what fails in it, and the others are tried all the same.
failures=0
wrong() {
  failures=$((failures + 1))
  echo "  $row, from the $device: $1" >&2
  screenshot "$(echo "$row-$device" | tr -c 'a-z0-9\n' -)" >/dev/null
}
must() { soon "${@:2}" || soon "${@:2}" || wrong "$1"; }

try_hot_key() { # CODE WHAT
  soon selected_first_word || wrong "no word is selected"
  rm -f "$HOME/kept"
  keys "$device" "$control+$1"
  must "$2 did not get the selection" grep -qsx words "$HOME/kept"
}
# The editor selects all, and so the next capture has it.
try_handing_on() {
  soon selected_first_word || wrong "no word is selected"
  rm -f "$HOME/kept"
  keys "$device" "$control+$letter_a" "$control+$letter_k"
  must "a hidden item's hot key did not reach the editor" grep -qsx 'to be kept' "$HOME/kept"
}
try_option() {
  rm -f "$HOME/looked"
  keys "$device" "$control" "$control"
  soon menu_open || keys "$device" "$control" "$control" # the display was too busy to tap in time
  must "a double tap opened no menu" menu_open
  keys "$device" 116 116 116 "$option+36" # the third entry
  must "the script was not opened in the editor" window_named Look
  [ ! -e "$HOME/looked" ] || wrong "the script was run"
  xdotool key Escape
  xdotool search --class mousepad windowkill 2>/dev/null || true # the other editor
  must "the editor is not in front" active_class featherpad
}

start_program() {
  "$program" 2>>"$TAVREL_SHOTS/tavrel.log" &
  tavrel=$!
  wait_for 20 "the status item" tray_icon_embedded
}
stop_program() {
  kill "$tavrel"
  wait "$tavrel" || true
}

# try_layout CTRL ALT LETTER_K LETTER_A DIGIT_1 GROUP_KEY SETXKBMAP_ARGUMENTS...
try_layout() {
  row="${*:7}" control=$1 option=$2 letter_k=$3 letter_a=$4
  setxkbmap -layout us -variant '' -option ''
  [ "$layout_is" = "set before the start" ] || start_program
  setxkbmap "${@:7}"
  [ "$6" = - ] || "$keyboard" "$6"
  [ "$layout_is" = "changed while it runs" ] || start_program
  for device in keyboard program; do
    try_hot_key "$letter_k" "the item on k"
    try_hot_key "$5" "the item on 1"
    try_handing_on
    try_option
    must "a key stays down" nothing_held
  done
  stop_program
  [ "$6" = - ] || "$keyboard" "$6"
  echo "tried: $row, $layout_is"
}

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" sh -c 'xprop -root | grep -q _NET_CLIENT_LIST && xdotool search --class tint2'
featherpad "$words" >/dev/null 2>&1 &
wait_for 40 "the editor" active_class featherpad

layout_is="set before the start"
try_layout 37 64 45 38 10 - us
try_layout 37 108 45 38 10 - us
try_layout 37 64 45 38 10 - de
try_layout 37 64 45 24 10 - fr
try_layout 37 64 45 38 10 - cz
try_layout 37 64 45 38 10 - jp
try_layout 37 64 55 38 10 - -layout us -variant dvorak
try_layout 37 64 45 38 10 - ru,us
try_layout 37 64 45 38 10 66 us,ru -option grp:caps_toggle
try_layout 37 64 45 38 10 - ara,us
try_layout 66 64 45 38 10 - us -option ctrl:swapcaps
try_layout 66 64 45 38 10 - us -option ctrl:nocaps
try_layout 66 64 45 38 10 - us -option caps:ctrl_modifier
try_layout 37 133 45 38 10 - us -option altwin:swap_alt_win
# A hot key stays where it was; modifiers go with the layout at once.
layout_is="changed while it runs"
try_layout 37 64 45 38 10 - ru,us
try_layout 66 64 45 38 10 - us -option ctrl:swapcaps
try_layout 37 133 45 38 10 - us -option altwin:swap_alt_win
[ $failures = 0 ] || give_up "$failures complaints"
