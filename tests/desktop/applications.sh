#!/usr/bin/env bash
# Running applications and servers as a person uses them: the one in front is ticked; one is shown
# in its folder; one with unsaved work is asked to quit, and asks back; one without quits; a server
# is opened by what opens its kind of address, another by the file manager.
#   applications.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_APPLICATIONS_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/applications}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_APPLICATIONS_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
mkdir -p "$XDG_CONFIG_HOME/gtk-3.0" "$XDG_DATA_HOME/applications"
echo hello >"$HOME/letter.txt"
cat >"$XDG_CONFIG_HOME/gtk-3.0/bookmarks" <<'END_OF_PLACES'
sftp://me@nas.example/share%20one Nas
dav://cloud.example/files/ Cloud
END_OF_PLACES
# handler NAME: an application that only writes down what it is to open.
handler() {
  printf '#!/bin/sh\nprintf "%%s\\n" "$@" >"%s.part"\nmv "%s.part" "%s"\n' \
    "$HOME/$1" "$HOME/$1" "$HOME/$1" >"$XDG_DATA_HOME/$1"
  chmod +x "$XDG_DATA_HOME/$1"
  printf '[Desktop Entry]\nType=Application\nName=%s\nExec="%s" %%u\n' "$1" "$XDG_DATA_HOME/$1" \
    >"$XDG_DATA_HOME/applications/$1.desktop"
}
handler opened-by-scheme
cat >"$XDG_CONFIG_HOME/mimeapps.list" <<'END_OF_CHOICES'
[Default Applications]
text/plain=org.xfce.mousepad.desktop
inode/directory=pcmanfm.desktop
x-scheme-handler/sftp=opened-by-scheme.desktop
END_OF_CHOICES

ticked() { [ "$(tests/desktop/menu_titles.py --ticked)" = "$1" ]; }
lists() { tests/desktop/menu_titles.py | grep -Fx "$1" >/dev/null; }
says() { [ "$(cat "$1")" = "$2" ]; }
# (The beginning of a title would do, but a submenu that opens while a key is down stays as it was.)
opened() { # KEYS...: opens the menu and, by the keys, a submenu
  wait_for 20 "no menu" no_menu_open
  click_window "$(tray_icon)"
  wait_for 20 "the menu" levels 1
  xdotool key "$@" Right
  wait_for 20 "the submenu" levels 2
}
choose() { # LETTERS [MODIFIER]: the entry that begins so, with a key held
  xdotool type --delay 40 "$1"
  [ -z "${2:-}" ] || xdotool keydown "$2"
  xdotool key Return
  wait_for 20 "the menu to close" no_menu_open
  [ -z "${2:-}" ] || xdotool keyup "$2"
}
running_submenu=(Down)
recent_submenu=(Down Down)

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" sh -c 'xprop -root | grep -q _NET_CLIENT_LIST && xdotool search --class tint2'
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$program" 2>"$TAVREL_SHOTS/tavrel.log" &
wait_for 20 "the status item" tray_icon_embedded
lxterminal --title terminal >/dev/null 2>&1 &
wait_for 40 "the terminal" window_named terminal
mousepad "$HOME/letter.txt" >/dev/null 2>&1 &
wait_for 40 "the editor" window_named letter.txt
wait_for 20 "the editor in front" active_class mousepad

opened "${running_submenu[@]}"
wait_for 20 "the terminal in the list" lists LXTerminal
wait_for 20 "the tick at the editor alone" ticked Mousepad
screenshot ticked
choose Mouse Control_L
wait_for 40 "the editor's folder" window_named applications
screenshot revealed
echo "the application in front is ticked; one was shown in its folder."

xdotool search --onlyvisible --name letter.txt windowactivate
wait_for 20 "the editor in front" active_class mousepad
xdotool type --delay 40 changed
wait_for 20 "the change" window_named '\*.*letter.txt'
opened "${running_submenu[@]}"
choose Mouse Alt_L
wait_for 20 "the editor to ask back" window_named 'Save Changes'
screenshot asked
xdotool key Escape
wait_for 20 "the editor still there" window_named letter.txt
echo "an application with unsaved work was asked to quit, and asked back."

opened "${running_submenu[@]}"
choose LXT Alt_L
wait_for 20 "the terminal to quit" sh -c '! xdotool search --class lxterminal'
echo "an application without any quit."

opened "${recent_submenu[@]}"
screenshot servers
choose Nas
wait_for 20 "the server's address" says "$HOME/opened-by-scheme" sftp://me@nas.example/share%20one
handler opened-as-folder
sed -i 's/pcmanfm/opened-as-folder/' "$XDG_CONFIG_HOME/mimeapps.list"
opened "${recent_submenu[@]}"
choose Cloud
wait_for 20 "the other server's address" says "$HOME/opened-as-folder" dav://cloud.example/files/
echo "servers were opened."
