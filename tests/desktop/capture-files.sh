#!/usr/bin/env bash
# The files that are selected in the file manager in front (none, one, three) reach an item of the
# pop-up, in two file managers, and the person's clipboard is the same afterwards.
#   capture-files.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_FILES_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/capture-files}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_FILES_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
mkdir -p "$HOME/shown" "$XDG_CONFIG_HOME"
echo x >"$HOME/shown/a b.txt"
echo x >"$HOME/shown/c.txt"
echo x >"$HOME/shown/d.txt"
cat >"$HOME/Keep.sh" <<'END_OF_SCRIPT'
#!/bin/sh
printf '%s\n' "$@" >"$HOME/kept.new"
mv "$HOME/kept.new" "$HOME/kept"
END_OF_SCRIPT
chmod +x "$HOME/Keep.sh"
cat >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist" <<END_OF_TREE
<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/><key>TVR_MenuTree</key><array>
<dict><key>TVR_MenuItemType</key><string>applescript</string><key>TVR_MenuItemTitle</key><string>Keep</string>
<key>TVR_MenuItemURL</key><string>file://$HOME/Keep.sh</string></dict>
</array></dict></plist>
END_OF_TREE

# captured EXPECTED: chooses the item and compares what it was handed; again when the file manager was
# too busy to answer a copy in time, which counts as nothing selected.
captured() {
  wait_for 60 "these files to be captured: $1" handed "$1"
  [ "$(xclip -selection clipboard -o)" = mine ] || give_up "the clipboard has changed"
}
handed() {
  rm -f "$HOME/kept"
  click_window "$(tray_icon)"
  wait_for 20 "the menu" menu_open
  xdotool key Down Down Down Return
  wait_for 20 "what was captured" test -e "$HOME/kept"
  wait_for 20 "the menu to close" no_menu_open
  [ "$(sort "$HOME/kept")" = "$1" ]
}

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" sh -c 'xprop -root | grep -q _NET_CLIENT_LIST && xdotool search --class tint2'
"$program" 2>"$TAVREL_SHOTS/tavrel.log" &
wait_for 20 "the status item" tray_icon_embedded

not_in_front() { ! active_class "$1"; }

# selected COUNT KEYS...: presses them until so many files are selected.
selected() {
  xdotool key "${@:2}" ctrl+c
  [ "$(xclip -selection clipboard -o -t text/uri-list | grep -c file:)" = "$1" ]
}

for manager in pcmanfm thunar; do
  $manager "$HOME/shown" >/dev/null 2>&1 &
  wait_for 40 "$manager in front" active_class $manager
  printf mine | xclip -selection clipboard
  captured ""
  wait_for 20 "one file to be selected" selected 1 Home
  screenshot "$manager-one"
  printf mine | xclip -selection clipboard
  captured "$HOME/shown/a b.txt"
  wait_for 20 "all files to be selected" selected 3 ctrl+a
  screenshot "$manager-three"
  printf mine | xclip -selection clipboard
  captured "$HOME/shown/a b.txt
$HOME/shown/c.txt
$HOME/shown/d.txt"
  echo "$manager: no file, one and three."
  xdotool windowkill "$(xdotool getactivewindow)"
  wait_for 20 "$manager to go" not_in_front $manager
done
