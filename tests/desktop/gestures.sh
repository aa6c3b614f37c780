#!/usr/bin/env bash
# Hot keys and services over a real editor: a hot key runs its item on what is selected; one whose
# item does not apply reaches the editor as the same keystroke, again and again; a service works on
# the selection and its answer is pasted back; no modifier stays down.
#   gestures.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_GESTURES_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/gestures}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_GESTURES_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
log=$TAVREL_SHOTS/tavrel.log
words=$HOME/Documents/words.txt
mkdir -p "$HOME/Documents" "$XDG_CONFIG_HOME"
printf 'words to be shouted' >"$words"
printf '#!/bin/sh\ncat >"$HOME/kept.new" && mv "$HOME/kept.new" "$HOME/kept"\n' >"$HOME/Keep.sh"
chmod +x "$HOME/Keep.sh"

echo 'display dialog "At work"' >"$HOME/Ask.applescript"

# item TYPE TITLE URL [MORE]
item() {
  printf '<dict><key>TVR_MenuItemType</key><string>%s</string><key>TVR_MenuItemTitle</key><string>%s</string><key>TVR_MenuItemURL</key><string>%s</string>%s</dict>' "$1" "$2" "$3" "${4:-}"
}
shortcut() { printf '<key>TVR_MenuItemShortcutString</key><string>%s</string>' "$1"; }
{
  echo '<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/><key>TVR_MenuTree</key><array>'
  item applescript Keep "file://$HOME/Keep.sh" "$(shortcut K)"
  item applescript Elsewhere "file://$HOME/Keep.sh" "$(shortcut a)<key>TVR_MenuItemInvokers</key><array><string>Elsewhere</string></array>"
  item services Shout upper-case
  item applescript Ask "file://$HOME/Ask.applescript"
  echo '</array></dict></plist>'
} >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist"

primary_is() { [ "$(xclip -selection primary -o)" = "$1" ]; }
selected_first_word() {
  xdotool key ctrl+Home ctrl+shift+Right
  primary_is words
}

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" sh -c 'xprop -root | grep -q _NET_CLIENT_LIST && xdotool search --class tint2'
"$program" 2>"$log" &
wait_for 20 "the status item" tray_icon_embedded
icon=$(tray_icon) # later, a dialog is a window of the program, too
mousepad "$words" >/dev/null 2>&1 &
wait_for 40 "the editor" active_class mousepad

wait_for 20 "a selected word" selected_first_word
xdotool key ctrl+shift+k
wait_for 20 "the item of the hot key" grep -qx words "$HOME/kept"
wait_for 5 "every key to be up" nothing_held
echo "a hot key ran its item on the selection."

for turn in 1 2 3; do
  wait_for 20 "a selected word" selected_first_word
  xdotool key ctrl+a
  wait_for 20 "the editor to select all, turn $turn" primary_is "$(cat "$words")"
  wait_for 5 "every key to be up" nothing_held
done
echo "a hot key that does not apply reached the editor, three times."

wait_for 20 "a selected word" selected_first_word
open_menu "the menu"
screenshot menu
xdotool type --delay 20 Shout
xdotool key Return
saved() {
  xdotool key ctrl+s
  grep -qx 'WORDS to be shouted' "$words"
}
wait_for 20 "the answer of the service in the editor" saved
screenshot shouted
wait_for 5 "every key to be up" nothing_held
echo "a service answered, and the editor has its answer."

# An entry that was chosen after a double tap is at work; every way to call up the menu opens it again.
open_menu "the menu"
xdotool type --delay 20 Ask
xdotool key Return
wait_for 20 "the dialog" active_class tavrel
wait_for 20 "the menu to close" no_menu_open
over_dialog() { # WHAT
  wait_for 20 "the menu over a dialog, by $1" menu_open
  screenshot "at-work-$1"
  xdotool key Escape
  wait_for 20 "the menu to close" no_menu_open
  wait_for 20 "the dialog in front again" active_class tavrel
}
open_menu "the menu over a dialog"
over_dialog double-tap
gdbus call --session --dest qorvane.tavrel.Tavrel --object-path /qorvane/tavrel/Tavrel \
  --method org.freedesktop.Application.Activate '{}' >/dev/null
over_dialog bus
"$program" &
over_dialog second-start
click_window "$icon"
over_dialog tray
rm -f "$HOME/kept"
xdotool key ctrl+shift+k
wait_for 20 "the item of a hot key over a dialog" test -e "$HOME/kept"
xdotool key Return
wait_for 20 "the editor in front again" active_class mousepad
echo "every gesture works while an entry is at work."

# Over a window that fills the screen: the menu shows above it, and the keyboard comes back to it.
full_screen() { xprop -id "$(xdotool getactivewindow)" _NET_WM_STATE | grep -q FULLSCREEN; }
typed() {
  xdotool type "seen"
  xdotool key ctrl+s
  grep -q seen "$words"
}
enlarged() {
  full_screen || xdotool key F11
  soon full_screen
}
wait_for 20 "the editor to fill the screen" enlarged
xdotool mousemove 700 500
open_menu "the menu over the whole screen"
screenshot full-screen
xdotool key Escape
wait_for 20 "the menu to close" no_menu_open
wait_for 20 "what is typed to reach the editor" typed
echo "the menu opens over a window that fills the screen, and gives the keyboard back."
