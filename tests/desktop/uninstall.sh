#!/usr/bin/env bash
# The uninstaller as a person meets it: it asks first, removes what was installed in a scratch
# prefix and for the person, asks for the rights once and only for what belongs to the system, takes
# the program out of what the session starts, and offers to log out. Told to end while it asks, the
# program removes nothing.
#   uninstall.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_UNINSTALL_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/uninstall}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_UNINSTALL_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
log=$TAVREL_SHOTS/tavrel.log
prefix=$HOME/prefix
id=qorvane.tavrel.Tavrel
override=$XDG_CONFIG_HOME/autostart/$id.desktop
pieces="lib/tavrel/Tavrel.plugin lib/tavrel/TavrelPref.prefPane"

# An installation of its own, so that nothing of this machine is in reach.
from=$(dirname "$program")
mkdir -p "$prefix/libexec/tavrel" "$prefix/share/applications" "$prefix/etc/xdg/autostart" "$HOME/bin"
cp -rL "$([ -d "$from/../resources" ] && echo "$from/../resources" || echo "$from/../share/tavrel")" "$prefix/share/tavrel"
cp "$([ -x "$from/tavrel-uninstall-helper" ] && echo "$from" || echo "$from/../libexec/tavrel")/tavrel-uninstall-helper" \
  "$prefix/libexec/tavrel/"
printf '[Desktop Entry]\nType=Application\nName=Tavrel\nExec="%s"\n' "$program" |
  tee "$prefix/share/applications/$id.desktop" >"$prefix/etc/xdg/autostart/$id.desktop"
# Whoever grants the rights here: without the name of the asker the helper heeds HOME.
printf '#!/bin/sh\necho "$*" >>"$HOME/asked"\n[ ! -e "$HOME/refuse" ] || exit 126\nexec "$@"\n' >"$HOME/bin/pkexec"
chmod +x "$HOME/bin/pkexec"
export PATH=$HOME/bin:$PATH XDG_CONFIG_DIRS=$prefix/etc/xdg \
  XDG_DATA_DIRS=$prefix/share:$XDG_DATA_DIRS TAVREL_RESOURCES=$prefix/share/tavrel \
  QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
unset PKEXEC_UID

# install BASE...: both pieces there, with something in them.
install() {
  local base piece
  for base in "$@"; do
    for piece in $pieces; do
      mkdir -p "$base/$piece/Contents"
      echo kept >"$base/$piece/Contents/Info.plist"
    done
  done
}
# left: how many pieces there are.
left() { ls -d "$prefix"/lib/tavrel/*.p* "$HOME"/.local/lib/tavrel/*.p* 2>/dev/null | wc -l; }
left_are() { [ "$(left)" = "$1" ]; }
start() {
  "$program" 2>>"$log" &
  tavrel=$!
  wait_for 30 "the answer of the program" answers
}
answers() {
  gdbus call --session --dest $id --object-path /qorvane/tavrel/Tavrel \
    --method org.freedesktop.DBus.Properties.Get qorvane.tavrel.Scripting longVersion
}
uninstall() {
  gdbus call --session --dest $id --object-path /qorvane/tavrel/Tavrel \
    --method qorvane.tavrel.Scripting.Uninstall >/dev/null
}
button() { tests/desktop/buttons.py | grep -x "[0-9]* [0-9]* $1"; }
no_button() { ! button "$1"; }
# press TITLE: the button with it, once it is there, until it is gone.
press() {
  wait_for 20 "the button $1" button "$1"
  xdotool mousemove $(button "$1" | cut -d' ' -f1,2) click 1
  wait_for 20 "the button $1 to go" no_button "$1"
}

install "$prefix" "$HOME/.local"
mkdir "$HOME/outside"
ln -s "$HOME/outside" "$prefix/lib/tavrel/Tavrel.plugin/Contents/out"
echo kept >"$HOME/outside/file"
start
uninstall
wait_for 20 "the question" button Uninstall
screenshot question
xprop -id "$(xdotool getactivewindow)" _NET_WM_ICON | grep -q 'Icon (' || give_up "the panel has no icon"
press Cancel
left_are 4 || give_up "Cancel removed something"
[ ! -e "$override" ] && [ ! -e "$HOME/asked" ] || give_up "Cancel changed something"
echo "it asked first, and Cancel changed nothing."

touch "$HOME/refuse"
uninstall
press Uninstall
wait_for 20 "the log-in item to go" grep -qx 'Hidden=true' "$override"
no_button Later && left_are 4 || give_up "without rights it went on"
grep -qx 'Exec=".*"' "$prefix/etc/xdg/autostart/$id.desktop" || give_up "the system's entry was written"
rm "$HOME/refuse" "$HOME/asked" "$override"
echo "without rights nothing was removed but the log-in item."

tests/desktop/session_manager.py "$HOME/session" &
wait_for 20 "the session manager" gdbus introspect --session --dest org.xfce.SessionManager --object-path /org/xfce/SessionManager
uninstall
press Uninstall
wait_for 20 "the closing panel" button Logout
wait_for 20 "the button Later" button Later
screenshot closing
left_are 0 || give_up "pieces are left"
[ "$(cat "$HOME/outside/file")" = kept ] || give_up "a link was followed"
[ "$(cat "$HOME/asked")" = "$prefix/libexec/tavrel/tavrel-uninstall-helper" ] || give_up "the rights were asked for as $(cat "$HOME/asked")"
grep -qx 'Hidden=true' "$override" || give_up "the session would still start it"
[ ! -e "$HOME/session" ] || give_up "it logged out by itself"
press Later
[ ! -e "$HOME/session" ] || give_up "Later logged out"
echo "all four pieces went, the rights were asked for once, Later stayed."

rm "$HOME/asked"
install "$HOME/.local"
uninstall
press Uninstall
press Logout
wait_for 20 "the log-out" grep -qx 'Logout False True' "$HOME/session"
left_are 0 && [ ! -e "$HOME/asked" ] || give_up "the person's own pieces took rights"
echo "the person's own pieces took no rights, and Logout logged out."

install "$HOME/.local"
uninstall
wait_for 20 "the question" button Uninstall
kill $tavrel
wait $tavrel || give_up "told to end it failed with $?"
left_are 2 || give_up "told to end it removed something"
if grep '^tavrel\.' "$log" | grep -v '^tavrel\.tray: no panel'; then give_up "unexpected lines on standard error"; fi
echo "told to end while it asked, it removed nothing."
