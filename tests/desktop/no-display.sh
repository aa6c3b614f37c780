#!/usr/bin/env bash
# Without a display the program says so in one line; on one without a server it starts, and ends.
#   no-display.sh PROGRAM
set -u
program=$(realpath "$1")
[ -n "${TAVREL_DESKTOP:-}" ] || exec "$(dirname "$0")/../../tools/with-desktop" "$0" "$program"
. "$(dirname "$0")/../../tools/desktop-lib.sh"

ends_with_a_line() { # HOW...
  local said rc
  said=$(timeout 20 env "$@" "$program" 2>&1)
  rc=$?
  [ $rc = 1 ] || give_up "$*: it ends with $rc"
  [ "$(wc -l <<<"$said")" = 1 ] && grep -q "^tavrel: no display" <<<"$said" || give_up "$*: it says $said"
}
ends_with_a_line -u DISPLAY -u WAYLAND_DISPLAY
ends_with_a_line -u WAYLAND_DISPLAY DISPLAY=:12345
ends_with_a_line -u DISPLAY WAYLAND_DISPLAY=no-such-compositor

env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen "$program" 2>"$HOME/log" &
started=$!
owns_its_name() {
  gdbus call --session --timeout 20 --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
    --method org.freedesktop.DBus.NameHasOwner qorvane.tavrel.Tavrel | grep -q true
}
wait_for 20 "the program to start without a server" owns_its_name
kill -TERM $started
wait $started || give_up "without a server it ends with $?: $(tail -3 "$HOME/log")"
