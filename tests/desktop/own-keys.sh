#!/usr/bin/env bash
# Items on the very keys by which the program copies and pastes: each press runs its item once, the
# answer of a service is pasted all the same, and a burst of hot keys keeps neither the bus nor a
# signal waiting. From a keyboard's own device and from that of programs.
#   own-keys.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")
keyboard=${TAVREL_DEVICE_KEYS:-$(dirname "$program")/../tests/field/device_keys}

if [ "${TAVREL_KEYS_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/own-keys}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_KEYS_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
words=$HOME/Documents/words.txt
mkdir -p "$HOME/Documents" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME/tavrel/services"
printf '#!/bin/bash\ntext=$(cat)\nprintf %%s "${text^^}!"\n' >"$XDG_DATA_HOME/tavrel/services/Upper"
chmod +x "$XDG_DATA_HOME/tavrel/services/Upper"

# item TYPE TITLE URL SHORTCUT [MORE]
item() {
  printf '<dict><key>TVR_MenuItemType</key><string>%s</string><key>TVR_MenuItemTitle</key><string>%s</string><key>TVR_MenuItemURL</key><string>%s</string><key>TVR_MenuItemShortcutString</key><string>%s</string>%s</dict>' "$1" "$2" "$3" "$4" "${5:-}"
}
# counted SHORTCUT: an item that writes down its runs.
counted() {
  printf '#!/bin/sh\necho %s >>"$HOME/runs"\n' "$1" >"$HOME/Run-$1.sh"
  chmod +x "$HOME/Run-$1.sh"
  item applescript "$1" "file://$HOME/Run-$1.sh" "$1"
}
# start ITEM...: the program with these items.
start() {
  printf '<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/><key>TVR_MenuTree</key><array>%s</array></dict></plist>' \
    "$*" >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist"
  : >"$HOME/runs"
  "$program" 2>>"$TAVREL_SHOTS/tavrel.log" &
  tavrel=$!
  wait_for 20 "the status item" tray_icon_embedded
}
# stop WHEN: by the signal of a session that ends.
stop() {
  local from=${EPOCHREALTIME/./}
  kill -TERM "$tavrel"
  wait_for 30 "the program to end $1" has_ended
  local took=$(((${EPOCHREALTIME/./} - from) / 1000))
  echo "$device: ended $1 after $took ms."
  [ $took -lt 2000 ] || give_up "the program took $took ms to end $1"
}
has_ended() { ! kill -0 "$tavrel"; }

# press CHORD...: on the device in turn.
press() {
  if [ "$device" = keyboard ]; then "$keyboard" "$@"; else xdotool key --delay 70 "$@"; fi
}
runs() { grep -cx "${1:-.*}" "$HOME/runs"; }
ran() { [ "$(runs)" -ge "$1" ]; }

# What a loop would have added comes before the answer to a later key.
try_keys_of_copy_and_paste() {
  start "$(counted c)$(counted C)$(counted v)$(counted K)"
  xdotool search --onlyvisible --class mousepad windowactivate
  wait_for 20 "the editor in front" active_class mousepad
  local pressed=0 key
  for key in ctrl+c ctrl+shift+c ctrl+v ctrl+c; do
    pressed=$((pressed + 1))
    press $key
    wait_for 20 "the item on $key, $device" ran $pressed
  done
  [ "$(runs)" = $pressed ] || give_up "$(runs) runs for $pressed presses, $device"
}

try_over_terminal() {
  xdotool search --onlyvisible --class xterm windowactivate
  wait_for 20 "the terminal in front" active_class xterm
  : >"$HOME/runs"
  press ctrl+shift+k
  wait_for 20 "the item on Ctrl+Shift+K, $device" ran 1
  press ctrl+shift+k
  wait_for 20 "the item on Ctrl+Shift+K once more, $device" ran 2
  [ "$(runs K)" = "$(runs)" ] || give_up "over a terminal ran $(tr '\n' ' ' <"$HOME/runs"), $device"
}

try_burst() {
  : >"$HOME/runs"
  local burst
  burst=$(printf 'ctrl+shift+k %.0s' {1..400})
  if [ "$device" = keyboard ]; then
    # shellcheck disable=SC2086 # many arguments
    "$keyboard" --hold 2 --gap 2 $burst &
  else
    for burst in $burst; do echo "key $burst"; done | xdotool - &
  fi
  wait_for 20 "the burst" ran 10
  gdbus call --session --timeout 20 --dest qorvane.tavrel.Tavrel --object-path /qorvane/tavrel/Tavrel \
    --method org.freedesktop.DBus.Properties.Get qorvane.tavrel.Scripting longVersion | grep -q Tavrel ||
    give_up "the bus is not answered during a burst of hot keys"
  stop "in a burst of hot keys"
  wait $! || true
}

# try_service SELECTED ANSWER KEY...: what the keys select, and what the document is then. The keys
# that save it come from the beginning: those that the program keeps meanwhile are typed after.
try_service() {
  local selected=$1 answer=$2
  start "$(item services Shout Upper u)$(item applescript Paste "file://$HOME/Run-c.sh" v \
    '<key>TVR_MenuItemInvokers</key><array><string>Nowhere</string></array>')"
  xdotool search --onlyvisible --class mousepad windowactivate
  wait_for 20 "the editor in front" active_class mousepad
  xdotool key "${@:3}"
  wait_for 20 "a selection" primary_is "$selected"
  press ctrl+u
  wait_for 20 "the answer of the service in the editor, $device" saved "$answer"
  stop "after a service"
}
primary_is() { [ "$(timeout 2 xclip -selection primary -o)" = "$1" ]; }
saved() { # by the same keyboard: two hold one Ctrl key in turn otherwise
  press ctrl+s
  [ "$(cat "$words")" = "$1" ]
}

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" xdotool search --class tint2
xterm >/dev/null 2>&1 &
wait_for 40 "the terminal" active_class xterm
printf 'words to be kept' >"$words"
mousepad "$words" >/dev/null 2>&1 &
wait_for 40 "the editor" active_class mousepad

for device in keyboard program; do
  try_keys_of_copy_and_paste
  try_over_terminal
  try_burst
  wait_for 5 "every key to be up" nothing_held
done
device=keyboard
try_service words 'WORDS! to be kept' ctrl+Home ctrl+shift+Right
device=program
text='WORDS! to be kept'
for _ in {1..5}; do
  try_service "$text" "${text^^}!" ctrl+a
  text="${text^^}!"
done
wait_for 5 "every key to be up" nothing_held
