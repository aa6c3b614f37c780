#!/usr/bin/env bash
# The hot key of a hidden item reaches the application in front, each time, as the same keystroke.
#   hand-on.sh PROGRAM SOAK [COUNT [ASKED]]
# SOAK: hand_on_soak; COUNT: presses (10,000); ASKED: as many more over a program that is asked for
# its selection (as many)
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1") soak=$(realpath "$2") count=${3:-10000} asked=${4:-${3:-10000}}

if [ "${TAVREL_HAND_ON_INSIDE:-}" != yes ]; then
  TAVREL_HAND_ON_INSIDE=yes exec tools/with-desktop --wm "$0" "$program" "$soak" "$count" "$asked"
fi

. tools/desktop-lib.sh
mkdir -p "$XDG_CONFIG_HOME"
cat >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist" <<'END'
<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/>
<key>TVR_MenuTree</key><array><dict><key>TVR_MenuItemType</key><string>url</string>
<key>TVR_MenuItemTitle</key><string>nowhere</string><key>TVR_MenuItemURL</key><string>file:///</string>
<key>TVR_MenuItemInvokers</key><array><string>No such program</string></array>
<key>TVR_MenuItemShortcutString</key><string>k</string></dict></array></dict></plist>
END
"$program" 2>"$HOME/log" &

# The application in front is asked for its selection only if its toolkit is known to copy on
# Ctrl+Insert: that the item is hidden is clear a tenth of a second later then.
toolkit=$(ldd "$program" | awk '/libQt6Widgets/ { print $3 }')
failed=0
"$soak" "$count" || failed=1
[ "$asked" != 0 ] || exit $failed
echo "from a program that is asked for its selection:"
LD_PRELOAD=$toolkit "$soak" "$asked" || failed=1
exit $failed
