#!/usr/bin/env bash
# Living submenus as a person uses them: a folder two levels deep and a file in it opened; the
# alternate of a folder while Option is held; an application brought to the front from another
# workspace and from being minimised; a document used lately opened.
#   folders.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_FOLDERS_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/folders}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_FOLDERS_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
mkdir -p "$HOME/files/inner" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME"
for name in 'a 1.txt' 'a 10.txt' 'a 2.txt' inner/deep.txt inner/deeper.txt; do
  echo x >"$HOME/files/$name"
done
echo x >"$HOME/lately.txt"
touch "$HOME/files/"$'line\nfeed' "$HOME/files/"$'\xe2\x80\xaetxt.turned'
printf "[Default Applications]\ntext/plain=org.xfce.mousepad.desktop\n" >"$XDG_CONFIG_HOME/mimeapps.list"
today=$(date -u +%FT00:00:00Z) yesterday=$(date -u -d yesterday +%FT00:00:00Z)
cat >"$XDG_DATA_HOME/recently-used.xbel" <<END_OF_RECENT
<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0" xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks" xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">
<bookmark href="file://$HOME/lately.txt" added="$today" modified="$today" visited="$today"><info><metadata owner="http://freedesktop.org"><mime:mime-type type="text/plain"/><bookmark:applications><bookmark:application name="Mousepad" exec="&apos;mousepad %u&apos;" modified="$today" count="1"/></bookmark:applications></metadata></info></bookmark>
<bookmark href="file://$HOME/gone.txt" added="$yesterday" modified="$yesterday" visited="$yesterday"><info><metadata owner="http://freedesktop.org"><mime:mime-type type="text/plain"/><bookmark:applications><bookmark:application name="Mousepad" exec="&apos;mousepad %u&apos;" modified="$yesterday" count="1"/></bookmark:applications></metadata></info></bookmark>
</xbel>
END_OF_RECENT
cat >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist" <<END_OF_TREE
<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_MenuTree</key><array>
<dict><key>TVR_MenuItemType</key><string>folder</string><key>TVR_MenuItemTitle</key><string>Files</string>
<key>TVR_MenuItemURL</key><string>file://$HOME/files/</string></dict>
</array></dict></plist>
END_OF_TREE

on_workspace() { [ "$(xdotool get_desktop)" = "$1" ]; }
# Without the panel: its clock goes on.
picture() { import -silent -window root -crop 1280x768+0+0 +repage "$TAVREL_DESKTOP/$1.png"; }
differs_from() { picture now && [ "$(compare -metric AE "$TAVREL_DESKTOP/$1.png" "$TAVREL_DESKTOP/now.png" null: 2>&1)" -gt 20 ]; }
same_as() { ! differs_from "$1"; }
# opened KEYS...: opens the menu and, by the keys, a submenu. (The beginning of a title would do, but
# a submenu that opens while a key is down shows what it showed before.)
opened() {
  wait_for 20 "no menu" no_menu_open
  click_window "$(tray_icon)"
  wait_for 20 "the menu" levels 1
  xdotool key "$@" Right
  wait_for 20 "the submenu" levels 2
}
running_submenu=(Down)
recent_submenu=(Down Down)
files_submenu=(Down Down Down)

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" sh -c 'xprop -root | grep -q _NET_CLIENT_LIST && xdotool search --class tint2'
"$program" 2>"$TAVREL_SHOTS/tavrel.log" &
wait_for 20 "the status item" tray_icon_embedded

opened "${files_submenu[@]}"
screenshot files
xdotool key Down Down Down Right
wait_for 20 "the second level" levels 3
screenshot inner
xdotool key Return
wait_for 40 "the file of the inner folder" window_named deep.txt
wait_for 20 "the editor in front" active_class mousepad
echo "a file two levels deep was opened."

opened "${files_submenu[@]}"
xdotool key Down Down Down
picture plain
xdotool keydown Alt_L
wait_for 20 "the alternate" differs_from plain
screenshot alternate
xdotool keyup Alt_L
wait_for 20 "the folder again" same_as plain
xdotool key Escape Escape
wait_for 20 "the menu to close" no_menu_open
echo "the alternate showed while Option was held."

xdotool set_desktop 1
wait_for 20 "the other workspace" on_workspace 1
opened "${running_submenu[@]}"
screenshot running
xdotool type --delay 40 Mouse
xdotool key Return
wait_for 20 "the editor's workspace" on_workspace 0
wait_for 20 "the editor in front" active_class mousepad
xdotool windowminimize "$(xdotool getactivewindow)"
wait_for 20 "the editor to be minimised" sh -c '! xdotool search --onlyvisible --name deep.txt'
opened "${running_submenu[@]}"
xdotool type --delay 40 Mouse
xdotool key Return
wait_for 20 "the editor on the screen" window_named deep.txt
wait_for 20 "the editor in front" active_class mousepad
echo "an application came to the front from another workspace and from being minimised."

opened "${recent_submenu[@]}"
screenshot recent
xdotool type --delay 40 lately
xdotool key Return
wait_for 40 "the document used lately" window_named lately.txt
screenshot lately
echo "a document used lately was opened."
