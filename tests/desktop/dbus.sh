#!/usr/bin/env bash
# Other programs call the running one over D-Bus: it describes itself, converts, copies, tells its
# properties, refuses what it does not know, and pops up when it is asked to. Every command of the
# page about it works as it is printed.
#   dbus.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_DBUS_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/dbus}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_DBUS_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
log=$TAVREL_SHOTS/tavrel.log

# call INTERFACE.METHOD ARGUMENTS
call() {
  gdbus call --session --dest qorvane.tavrel.Tavrel --object-path /qorvane/tavrel/Tavrel \
    --method "$@" 2>&1
}
convert() { call qorvane.tavrel.Scripting.Convert "$@"; }
property() { call org.freedesktop.DBus.Properties.Get qorvane.tavrel.Scripting "$1"; }
# is WANTED FOUND
is() { [ "$2" = "$1" ] || give_up "$2 instead of $1"; }
refuses() { if "$@" >/dev/null; then give_up "$* was not refused"; fi; }
answers() { property currentLocalization | grep -q '^(<'; }

"$program" 2>"$log" &
tavrel=$!
wait_for 30 "the answer of the program" answers

gdbus introspect --session --dest qorvane.tavrel.Tavrel --object-path /qorvane/tavrel/Tavrel \
  >"$TAVREL_SHOTS/introspection"
for each in org.freedesktop.Application qorvane.tavrel.Scripting Convert contextObject; do
  grep -q "$each" "$TAVREL_SHOTS/introspection" || give_up "$each is not described"
done

is "(<'x%0D%0Aa%20b'>,)" "$(convert $'x\na b' 'Unicode (UTF-8)' false CRLF)"
is "(<'x%0Dy'>,)" "$(convert $'x\ny' 'Unicode (UTF-8)' false CR)"
is "(<'%8E'>,)" "$(convert é 'Western (Mac OS Roman)' false LF)"
is "(<'%93%FA%96%7B'>,)" "$(convert 日本 'Japanese (Shift JIS)' false LF)"
is "(<''>,)" "$(convert a 'unicode (utf-8)' false LF)"
convert a 'Western (ASCII)' true LF | grep -qE "byte|b'a'" || give_up "raw data are no bytes"
refuses convert a
refuses call qorvane.tavrel.Scripting.Erase
echo "texts were converted, wrong calls refused."

is "(<<'Unknown Object'>>,)" "$(property contextObject)"
is "(<''>,)" "$(property hostAppName)"
property longVersion | grep -q Tavrel || give_up "the version does not name the program"
call org.freedesktop.DBus.Properties.GetAll qorvane.tavrel.Scripting | grep -q "'contextObject'" ||
  give_up "not all properties came at once"
refuses property colour
echo "every property was read."

is "()" "$(call qorvane.tavrel.Scripting.CopyToClipboard)"
is "()" "$(call qorvane.tavrel.Scripting.Uninstall)"
wait_for 20 "the question of the uninstaller" window_named .
screenshot uninstall
xdotool key Escape
is "()" "$(call org.freedesktop.Application.Activate '{}')"
wait_for 20 "the menu" menu_open
xdotool key Escape
wait_for 10 "the menu to close" no_menu_open
kill -0 $tavrel || give_up "the program is gone"
echo "the uninstaller asked, and the menu popped up."

# The commands of a page's shell blocks, one a line.
commands_of() {
  awk '/^```/ { inside = $0 == "```sh"; next } !inside { next }
    { line = line $0 } sub(/\\$/, " ", line) { next } { print line; line = "" }' "$1"
}
closed() { xdotool key Escape && no_menu_open && ! window_named '^Tavrel$'; }
while IFS= read -r command; do
  bash -c "$command" >>"$TAVREL_SHOTS/printed" 2>&1 </dev/null || give_up "$command fails"
  case $command in
    *Application.*) wait_for 20 "the menu of $command" menu_open ;;
    *Uninstall) wait_for 20 "the question" window_named '^Tavrel$' ;;
    *) continue ;;
  esac
  wait_for 20 "what it showed to close" closed
done < <(commands_of docs/dbus.md)
host_is_known() { property hostAppName | grep -qF "<'Editor'>"; }
wait_for 20 "the host that a notification named" host_is_known
if grep 'was ignored' "$log"; then give_up "a notification of the page has another form"; fi
kill -0 $tavrel || give_up "the program is gone"
echo "$(commands_of docs/dbus.md | wc -l) commands worked as they are printed."
