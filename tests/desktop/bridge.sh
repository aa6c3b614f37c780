#!/usr/bin/env bash
# Other programs talk to the running one: every message of the contextual-menu plug-in has its
# effect on a real desktop, a saved preference file takes effect by itself, a half-written one does
# not, and a flood of messages is handled in order.
#   bridge.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_BRIDGE_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/bridge}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_BRIDGE_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
log=$TAVREL_SHOTS/tavrel.log
settings=$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist
words=$HOME/Documents/words.txt
mkdir -p "$HOME/Documents/Inner Folder" "$XDG_CONFIG_HOME"
printf 'words to be shouted' >"$words"

# post SENDER NAME USERINFO
post() {
  gdbus emit --session --object-path /qorvane/tavrel/DistributedNotifications \
    --signal qorvane.tavrel.DistributedNotifications.Posted "'$1'" "'$2'" "$3"
}
ask() { post qorvane.tavrel.cm "$1" "$2"; }

# settings_with TITLE [MORE]: a preference file whose tree has one item.
settings_with() {
  printf '<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/>%s<key>TVR_MenuTree</key><array><dict><key>TVR_MenuItemType</key><string>url</string><key>TVR_MenuItemTitle</key><string>%s</string><key>TVR_MenuItemURL</key><string>http://localhost/</string></dict></array></dict></plist>\n' "${2:-}" "$1"
}
primary_is() { [ "$(xclip -selection primary -o)" = "$1" ]; }
menu_lists() { tests/desktop/menu_titles.py | grep -Fx "$1" >/dev/null; }
no_tray_icon() { ! tray_icon; }
close_menu() {
  xdotool key Escape
  wait_for 10 "the menu to close" no_menu_open
}
# shows_menu_with TITLE: opens the menu, looks for an entry, closes it.
shows_menu_with() {
  click_window "$(tray_icon)"
  wait_for 20 "the menu" menu_open
  local found=no
  if menu_lists "$1"; then found=yes; fi
  close_menu
  [ $found = yes ]
}

settings_with First >"$settings"
tint2 >/dev/null 2>&1 &
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$program" 2>"$log" &
tavrel=$!
wait_for 30 "the status item" tray_icon_embedded

ask execScript "{'sourceCode': <'do shell script \"echo ran > ~/source\"'>, 'hostName': <'Editor'>}"
wait_for 20 "the source to run" grep -qx ran "$HOME/source"
printf 'do shell script "echo file > ~/file"\n' >"$HOME/s.applescript"
ask execScript "{'path': <'$HOME/s.applescript'>, 'sourceCode': <'do shell script \"touch ~/never\"'>}"
wait_for 20 "the file to run" grep -qx file "$HOME/file"
[ ! -e "$HOME/never" ] || give_up "of a file and a source both ran"
echo "scripts ran, of both the file alone."

ask openWithPathFinder "{'path': <'$HOME/Documents/Inner Folder'>}"
wait_for 40 "the folder's window" window_named 'Inner Folder'
ask revealInFinder "{'path': <'$words'>}"
wait_for 40 "the window of the revealed file" window_named Documents
screenshot folders
ask quitProcess "{'path': <'/somewhere/Finder.desktop'>}"
no_folder() { ! window_named 'Inner Folder'; }
wait_for 20 "the file manager to quit" no_folder
echo "a folder was opened, a file revealed, the file manager quit."

mkdir -p "$XDG_DATA_HOME/tavrel/services"
printf '#!/bin/sh\ntr a-z A-Z\necho >~/shouts\n' >"$XDG_DATA_HOME/tavrel/services/shout"
chmod +x "$XDG_DATA_HOME/tavrel/services/shout"
mousepad "$words" >/dev/null 2>&1 &
wait_for 40 "the editor" active_class mousepad
selected_first_word() {
  xdotool key ctrl+Home ctrl+shift+Right
  primary_is words
}
saved() {
  xdotool key ctrl+s
  grep -qx 'WORDS to be shouted' "$words"
}
answers() {
  gdbus call --session --dest qorvane.tavrel.Tavrel --object-path /qorvane/tavrel/Tavrel \
    --method org.freedesktop.DBus.Properties.Get qorvane.tavrel.Scripting longVersion
}
# No key is pressed before the program has pressed its own: it answers when it is done. The time that
# an application has for its copy is fixed, and on a busy machine it may be too short.
shouted() {
  rm -f "$HOME/shouts"
  selected_first_word || return 1
  ask execServices "{'serviceName': <'shout'>}"
  for _ in $(seq 200); do
    [ ! -e "$HOME/shouts" ] || break
    sleep 0.05
  done
  answers || return 1
  for _ in $(seq 50); do
    ! saved || return 0
    sleep 0.1
  done
  return 1
}
wait_for 60 "the answer of the service in the editor" shouted
screenshot shouted
echo "a service worked on the selection of the editor."

wait_for 5 "the menu" shows_menu_with First
settings_with Second >"$settings"
post qorvane.tavrel.pref anything '@a{sv} {}'
wait_for 20 "the entry after the notice" shows_menu_with Second
settings_with Third >"$settings.new"
mv "$settings.new" "$settings"
wait_for 20 "the entry after a save by renaming" shows_menu_with Third
settings_with Fourth >"$settings"
wait_for 20 "the entry after a save in place" shows_menu_with Fourth
head -c 200 <(settings_with Fifth) >"$settings"
wait_for 20 "the line about the half-written file" grep -q 'what was read before stays in effect' "$log"
shows_menu_with Fourth || give_up "a half-written file changed the menu"
post qorvane.tavrel.pref anything '@a{sv} {}'
shows_menu_with Fourth || give_up "a half-written file changed the menu after a notice"
settings_with Fifth >"$settings"
wait_for 20 "the entry of the whole file" shows_menu_with Fifth
echo "each way to save took effect; a half-written file did not."

settings_with Sixth '<key>TVR2_EnableStatusMenuBar</key><false/>' >"$settings"
wait_for 20 "the status item to go" no_tray_icon
settings_with Seventh >"$settings"
wait_for 20 "the status item to come back" tray_icon_embedded
click_window "$(tray_icon)"
wait_for 20 "the menu" menu_open
settings_with Eighth '<key>TVR2_EnableStatusMenuBar</key><false/>' >"$settings.new"
mv "$settings.new" "$settings"
post qorvane.tavrel.pref anything '@a{sv} {}'
menu_lists Seventh || give_up "the open menu changed under the pointer"
close_menu
wait_for 20 "the status item to go once its menu is closed" no_tray_icon
settings_with Ninth >"$settings"
wait_for 20 "the status item" tray_icon_embedded
echo "the status item went and came; an open menu was left alone."

tests/desktop/flood.py 10000 "$HOME/flood"
wait_for 120 "the last message of the flood" grep -qx end "$HOME/flood"
[ "$(cat "$HOME/flood")" = "$(printf 'begin\nend')" ] || give_up "messages were lost, doubled or out of order"
kill -0 $tavrel || give_up "the program is gone"
wait_for 20 "the menu after the flood" shows_menu_with Ninth
if grep '^tavrel\.' "$log" | grep -vE 'what was read before stays in effect|was ignored|were left out'; then give_up "unexpected lines on standard error"; fi
echo "a flood was handled in order; messages of foreign forms were ignored, or taken without what is foreign."
