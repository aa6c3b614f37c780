#!/usr/bin/env bash
# Choosing an item looks for a newer version first, once: the panel offers it with three buttons,
# "Download" opens the address of the list in the browser, then the item runs; the next item runs at
# once. Told to end, the program keeps the time of the check. A server that never answers holds an
# item up for a few seconds and no longer.
#   update.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_UPDATE_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/update}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_UPDATE_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
site=$HOME/site log=$TAVREL_SHOTS/tavrel.log
mkdir -p "$site" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME/applications"
tail -f /dev/null | tests/support/web_server.py "$site" >"$HOME/port" &
wait_for 20 "the web server" test -s "$HOME/port"
web=http://localhost:$(cat "$HOME/port")

cat >"$site/updates.plist" <<END
<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>qorvane.Tavrel2</key><dict>
<key>version</key><string>99.5</string><key>url</key><string>$web/tavrel-99.5.deb</string>
</dict></dict></plist>
END

resources=$(dirname "$program")/../resources
[ -d "$resources" ] || resources=$(dirname "$program")/../share/tavrel
cp -rL "$resources" "$HOME/resources"
# look_at PATH: where the program looks for the list of versions.
look_at() {
  python3 - "$HOME/resources/localizations/en.lproj/Localizable.strings" "$web" "$1" <<'END'
import plistlib, sys
path, web, name = sys.argv[1:]
texts = plistlib.load(open(path, "rb"))
texts.update(UPDATE_PLIST_URL=web + name, HistoryPageURL=web + "/history")
plistlib.dump(texts, open(path, "wb"))
END
}

# By their numbers, since on a busy machine the one started first may not be the first to write.
printf '#!/bin/sh\necho "$$ $1" >>"$HOME/opened"\n' >"$HOME/browse"
chmod +x "$HOME/browse"
cat >"$XDG_DATA_HOME/applications/browse.desktop" <<END
[Desktop Entry]
Type=Application
Name=Browser
Exec=$HOME/browse %u
MimeType=x-scheme-handler/http;
END
printf '[Default Applications]\nx-scheme-handler/http=browse.desktop\n' >"$XDG_CONFIG_HOME/mimeapps.list"
settings=$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist
cat >"$HOME/never-checked.plist" <<END
<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_MenuTree</key><array><dict>
<key>TVR_MenuItemType</key><string>url</string><key>TVR_MenuItemTitle</key><string>Item</string>
<key>TVR_MenuItemURL</key><string>$web/item</string><key>TVR_MenuItemShortcutString</key><string>K</string>
</dict></array></dict></plist>
END

opened() { [ "$(sort -n "$HOME/opened" | sed "s|.* $web/||" | tr '\n' ' ')" = "$1 " ]; }
asked() { [ "$(tr '\n' ' ' <"$site/requests")" = "$1 " ]; }
button() { tests/desktop/buttons.py | grep -x "[0-9]* [0-9]* $1"; }
press() { xdotool mousemove $(button "$1" | cut -d' ' -f1,2) click 1; }
# Only panels are windows that the window manager knows.
panel() {
  local id
  for id in $(xprop -root -notype _NET_CLIENT_LIST | grep -o '0x[0-9a-f]*'); do
    ! xprop -id "$id" WM_CLASS | grep -q '"tavrel"' || return 0
  done
  return 1
}
no_panel() { ! panel; }
# start PATH: the program, looking for the list there.
start() {
  look_at "$1"
  cp "$HOME/never-checked.plist" "$settings"
  TAVREL_RESOURCES=$HOME/resources QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$program" 2>>"$log" &
  tavrel=$!
  wait_for 30 "the status item" tray_icon_embedded
}

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" sh -c 'xprop -root | grep -q _NET_CLIENT_LIST && xdotool search --class tint2'
start /updates.plist
[ ! -e "$site/requests" ] || give_up "it looked for a newer version before an item was chosen"

xdotool key ctrl+shift+k
wait_for 20 "the panel" panel
for name in "Download and Show History" Cancel Download; do
  wait_for 20 "the button $name" button "$name"
done
screenshot panel
[ ! -e "$HOME/opened" ] || give_up "something was opened before the answer"
press Download
wait_for 20 "the download, then the item" opened "tavrel-99.5.deb item"
wait_for 20 "the panel to go" no_panel
echo "the new version was offered, and its download opened before the item."

xdotool key ctrl+shift+k
wait_for 20 "the item at once" opened "tavrel-99.5.deb item item"
asked /updates.plist || give_up "it asked again within ten days: $(cat "$site/requests")"
no_panel || give_up "the panel came again"
if grep '^tavrel\.' "$log"; then give_up "unexpected lines on standard error"; fi
echo "the next item ran at once."

if grep TVR_LastUpdateCheck "$settings"; then give_up "the time was stored before anybody asked for it"; fi
kill $tavrel
wait $tavrel || give_up "told to end it failed with $?"
grep -q '<key>TVR_LastUpdateCheck</key>' "$settings" || give_up "the time of the check is lost"
echo "told to end, it kept the time of the check."
rm "$HOME/opened"
start /silent
xdotool key ctrl+shift+k
wait_for 20 "the item in spite of the server" opened item
grep -q "^tavrel.web: $web/silent: does not come in time" "$log" || give_up "it does not tell of the silent server"
no_panel || give_up "a failure was shown"
echo "a server that never answers was left in time."
