#!/usr/bin/env bash
# Script items, chosen from the menu with real keys: a compiled script keeps its property, a script
# asks the person and writes what it heard, a program of its own is waited for, and Command reveals
# a file in the file manager.
#   scripts.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")
compile=$(dirname "$program")/tavrel-osacompile

if [ "${TAVREL_SCRIPTS_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/scripts}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_SCRIPTS_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
mkdir -p "$HOME/Documents" "$XDG_CONFIG_HOME"
echo "Hello." >"$HOME/Documents/Letter.txt"
printf 'property n : 0\nset n to n + 1\n' >"$HOME/count.applescript"
"$compile" "$HOME/count.applescript" -o "$HOME/Count.scpt"
cat >"$HOME/Ask.applescript" <<'END'
set answer to text returned of (display dialog "What is your name?" default answer "")
do shell script "printf %s " & quoted form of answer & " > " & quoted form of (POSIX path of (path to home folder) & "answer")
END

printf '#!/bin/sh\necho "$TAVREL_HOST_APP:$#" >"$HOME/told"\necho complains >&2\n' >"$HOME/Tell.sh"
chmod +x "$HOME/Tell.sh"

item() { # TYPE TITLE PATH
  printf '<dict><key>TVR_MenuItemType</key><string>%s</string><key>TVR_MenuItemTitle</key><string>%s</string><key>TVR_MenuItemURL</key><string>file://%s</string></dict>' "$@"
}
{
  echo '<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/><key>TVR_MenuTree</key><array>'
  item applescript Count "$HOME/Count.scpt"
  item applescript Ask "$HOME/Ask.applescript"
  item "document file" Letter "$HOME/Documents/Letter.txt"
  item applescript Tell "$HOME/Tell.sh"
  echo '</array></dict></plist>'
} >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist"

runs() { "$compile" -d "$HOME/Count.scpt" | grep -q "<integer>$1</integer>"; }

# choose KEYS...: opens the menu and presses the keys in it.
choose() {
  click_window "$(tray_icon)"
  wait_for 20 "the menu" menu_open
  xdotool key "$@"
  wait_for 20 "the menu to close" no_menu_open
}

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" sh -c 'xprop -root | grep -q _NET_CLIENT_LIST && xdotool search --class tint2'
"$program" 2>"$TAVREL_SHOTS/tavrel.log" &
wait_for 20 "the status item" tray_icon_embedded

choose Down Down Down Return
wait_for 20 "the first run to be stored" runs 1
choose Down Down Down Return
wait_for 20 "the second run to be stored" runs 2

choose Down Down Down Down Return
wait_for 20 "the question" window_named Tavrel
screenshot question
xdotool type "O'Neil"
xdotool key Return
wait_for 20 "the answer in the file" grep -qx "O'Neil" "$HOME/answer"

choose Down Down Down Down Down Down Return
wait_for 20 "the program's word" grep -qx ':0' "$HOME/told"
wait_for 20 "its complaint in the log" grep -qx 'tavrel: Tell.sh: complains' "$TAVREL_SHOTS/tavrel.log"

click_window "$(tray_icon)"
wait_for 20 "the menu" menu_open
xdotool key Down Down Down Down Down
xdotool keydown ctrl key Return keyup ctrl
wait_for 30 "the file manager with the folder" window_named Documents
screenshot revealed
