#!/usr/bin/env bash
# Items on the very keys by which the program copies and pastes run once for each press, and a burst
# of hot keys keeps neither the bus nor a signal waiting.
#   own-keys.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_KEYS_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/own-keys}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_KEYS_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
mkdir -p "$XDG_CONFIG_HOME"
printf '#!/bin/sh\necho run >>"$HOME/runs"\n' >"$HOME/Run.sh"
chmod +x "$HOME/Run.sh"
: >"$HOME/runs"
# item KEY CODE: an entry with a hot key.
item() {
  echo "<dict><key>TVR_MenuItemType</key><string>applescript</string><key>TVR_MenuItemTitle</key><string>$1</string>
<key>TVR_MenuItemShortcutString</key><string>$1</string><key>TVR_MenuItemShortcutKeyCode</key><integer>$2</integer>
<key>TVR_MenuItemURL</key><string>file://$HOME/Run.sh</string></dict>"
}
cat >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist" <<END
<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/>
<key>TVR_MenuTree</key><array>$(item c 8)$(item C 8)$(item v 9)</array></dict></plist>
END

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" xdotool search --class tint2
"$program" 2>"$TAVREL_SHOTS/tavrel.log" &
tavrel=$!
wait_for 20 "the status item" tray_icon_embedded
mousepad >/dev/null 2>&1 &
wait_for 40 "the editor in front" active_class mousepad

runs() { wc -l <"$HOME/runs"; }
ran() { [ "$(runs)" -ge "$1" ]; }
pressed=0
for key in ctrl+c ctrl+shift+c ctrl+v; do
  pressed=$((pressed + 1))
  xdotool key $key
  wait_for 20 "the item on $key" ran $pressed
done
# What a loop would have added comes before the answer to a later key.
xdotool key ctrl+c
wait_for 20 "the item on ctrl+c once more" ran $((pressed + 1))
[ "$(runs)" = $((pressed + 1)) ] || give_up "$(runs) runs for $((pressed + 1)) presses"
echo "each press has run its item once."

for _ in $(seq 400); do echo key ctrl+c; done | xdotool - &
wait_for 20 "the burst" ran 10
gdbus call --session --timeout 20 --dest qorvane.tavrel.Tavrel --object-path /qorvane/tavrel/Tavrel \
  --method org.freedesktop.DBus.Properties.Get qorvane.tavrel.Scripting longVersion | grep -q Tavrel ||
  give_up "the bus is not answered during a burst of hot keys"
kill -TERM $tavrel
has_ended() { ! kill -0 $tavrel; }
wait_for 30 "the program to end during a burst of hot keys" has_ended
echo "a burst of hot keys keeps nothing waiting."
