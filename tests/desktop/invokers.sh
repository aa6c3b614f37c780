#!/usr/bin/env bash
# An entry that is offered in one application only shows over that one, by whatever word its record
# names it: an editor, a file manager, and an editor whose name has a full stop in it.
#   invokers.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_INVOKERS_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/invokers}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_INVOKERS_INSIDE=yes TAVREL_SHOTS="$shots" LC_ALL=C.UTF-8 \
    tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME/applications"
# The person's own entry is the one that counts, also for who names that of the system.
cat >"$XDG_DATA_HOME/applications/featherpad.desktop" <<'END_OF_ENTRY'
[Desktop Entry]
Type=Application
Name=Größe 2.0
Exec=featherpad %U
MimeType=text/plain;
END_OF_ENTRY

applications=/usr/share/applications
mousepad=(Mousepad mousepad org.xfce.mousepad org.xfce.mousepad.desktop /usr/bin/mousepad
  $applications/org.xfce.mousepad.desktop /Applications/Mousepad.app)
pcmanfm=(Finder pcmanfm pcmanfm.desktop 'File Manager PCManFM' $applications/pcmanfm.desktop
  /usr/bin/pcmanfm)
featherpad=('Größe 2.0' featherpad $applications/featherpad.desktop /usr/bin/featherpad)
nowhere=(MOUSEPAD org.xfce 'Größe 2' 'Größe 2.1' 'Path Finder' thunar chromium 'No such application')
# entry WORD: one that is offered in the application of that word alone, and shows the word.
entry() {
  printf '<dict><key>TVR_MenuItemType</key><string>url</string><key>TVR_MenuItemTitle</key><string>in %s</string>' "$1"
  printf '<key>TVR_MenuItemURL</key><string>http://127.0.0.1/</string>'
  printf '<key>TVR_MenuItemInvokers</key><array><string>%s</string></array></dict>\n' "$1"
}
{
  echo '<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/><key>TVR_MenuTree</key><array>'
  for word in "${mousepad[@]}" "${pcmanfm[@]}" "${featherpad[@]}" "${nowhere[@]}"; do entry "$word"; done
  echo '</array></dict></plist>'
} >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist"

shown() { tests/desktop/menu_titles.py | sed -n 's/^in //p'; }
shows() { [ "$(shown)" = "$1" ]; }
host_is() {
  gdbus call --session --dest qorvane.tavrel.Tavrel --object-path /qorvane/tavrel/Tavrel \
    --method org.freedesktop.DBus.Properties.Get qorvane.tavrel.Scripting hostAppName | grep -qF "'$1'"
}

# offered CLASS NAME WORD...: over the window of that class, these entries and no others, by that name.
offered() {
  local wanted
  wanted=$(printf '%s\n' "${@:3}")
  wait_for 40 "$1 in front" active_class "$1"
  open_menu "the menu over $1"
  soon shows "$wanted" || give_up "over $1 there is $(shown | paste -sd,) instead of $(paste -sd, <<<"$wanted")"
  screenshot "$1"
  xdotool key Escape
  wait_for 20 "the menu to close" no_menu_open
  host_is "$2" || give_up "$1 is not known as $2"
  echo "$1: offered by each of its words, as $2."
}

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" sh -c 'xprop -root | grep -q _NET_CLIENT_LIST && xdotool search --class tint2'
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$program" 2>"$TAVREL_SHOTS/tavrel.log" &
wait_for 20 "the status item" tray_icon_embedded

mousepad >/dev/null 2>&1 &
offered mousepad Mousepad "${mousepad[@]}"
pcmanfm "$HOME" >/dev/null 2>&1 &
offered pcmanfm Finder "${pcmanfm[@]}"
featherpad >/dev/null 2>&1 &
offered featherpad 'Größe 2.0' "${featherpad[@]}"
