#!/usr/bin/env bash
# A second start asks the first to pop up its menu, and says nothing more.
#   second-start.sh TAVREL
set -u
program=$1 here=$(cd "$(dirname "$0")" && pwd)
tools=$here/../../tools
[ -n "${TAVREL_DESKTOP:-}" ] || exec "$tools/with-desktop" --wm "$0" "$program"

# within SECONDS COMMAND: the command holds before the time is over.
within() {
  local left=$(($1 * 20))
  until "${@:2}"; do
    left=$((left - 1)); [ $left -gt 0 ] || return 1
    sleep 0.05
  done
}
fail() { echo "second-start: $1" >&2; exit 1; }
answers() { dbus-send --session --print-reply --dest=org.freedesktop.DBus / \
  org.freedesktop.DBus.NameHasOwner string:qorvane.tavrel.Tavrel | grep -q true; }
shows() { import -window root "$TAVREL_DESKTOP/now.png" && [ "$(compare -metric AE \
  "$TAVREL_DESKTOP/before.png" "$TAVREL_DESKTOP/now.png" null: 2>&1)" -gt 1000 ]; }
shows_nothing() { ! shows; }

xdotool mousemove 400 300
"$program" 2>"$TAVREL_DESKTOP/first.log" &
within 20 answers || fail "the first does not start"
import -window root "$TAVREL_DESKTOP/before.png"
said=$(timeout 20 "$program" 2>&1) || fail "the second start ends with $?"
[ -z "$said" ] || fail "the second start says $said"
within 20 shows || fail "no menu opens"
cp "$TAVREL_DESKTOP/now.png" "${TAVREL_PICTURE:-/dev/null}"
said=$(timeout 20 "$program" 2>&1) || fail "a start while the menu is open ends with $?"
xdotool key Escape
within 20 shows_nothing || fail "the menu does not close, or opened again"
