#!/usr/bin/env bash
# The desktop of the tests is the same on every machine: it knows the applications that
# tools/desktop-system names and no others, its bus starts no service of another one, and what a
# test adds is known.
#   isolation.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
scratch=$(mktemp -d "${TMPDIR:-/tmp}/tavrel-isolation.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
fail() { echo "isolation: $1" >&2; exit 1; }

# As another desktop's session has it, with an application and a service for every file manager.
foreign=$scratch/foreign added=$scratch/added
for data in "$foreign" "$added"; do
  mkdir -p "$data"/{applications,dbus-1/services}
  name=org.example.$(basename "$data")
  printf '[Desktop Entry]\nType=Application\nName=It\nExec=true %%U\nMimeType=inode/directory;text/plain;\n' \
    >"$data/applications/$name.desktop"
  printf '[D-BUS Service]\nName=%s\nExec=/bin/true\n' "$name" >"$data/dbus-1/services/$name.service"
done
export XDG_DATA_DIRS=$foreign:/usr/local/share:/usr/share XDG_CONFIG_DIRS=$foreign:/etc/xdg
export XDG_CURRENT_DESKTOP=Other GTK_THEME=Other QT_QPA_PLATFORMTHEME=other

# holds WHAT EXPECTED COMMAND: what the command, in such a desktop, prints.
holds() {
  local told
  told=$(tools/with-desktop --data "$added" bash -c "$3" 2>"$scratch/log") || fail "$1: $(cat "$scratch/log")"
  [ "$told" = "$2" ] || fail "$1: $told, not $2"
}

holds "the applications" \
  "chromium debian-xterm featherpad lxterminal org.example.added org.xfce.mousepad pcmanfm thunar" \
  'for data in ${XDG_DATA_DIRS//:/ }; do ls $data/applications; done | sed -n "s/\.desktop$//p" | sort | xargs'
holds "the services that the bus starts" \
  "ca.desrt.dconf org.a11y.Bus org.example.added org.freedesktop.DBus org.freedesktop.FileManager1 org.xfce.FileManager org.xfce.Thunar org.xfce.Xfconf" \
  'gdbus call --session --dest org.freedesktop.DBus --object-path / \
    --method org.freedesktop.DBus.ListActivatableNames | grep -oE "[A-Za-z0-9]+(\.[A-Za-z0-9]+)+" | sort | xargs'
holds "the openers of folders and texts" "pcmanfm.desktop org.xfce.mousepad.desktop" \
  'for type in inode/directory text/plain; do gio mime $type | sed -n "1s/.*: //p"; done | xargs'
holds "what is left of the session around it" "" 'env | grep -E "=(.*:)?(Other|other|.*foreign)" || true'
