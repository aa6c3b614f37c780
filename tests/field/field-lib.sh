# What the scripts of this folder share. Each drives one program on a desktop of its own:
#   NAME.sh PROGRAM [TRIES]      PROGRAM is tavrel; five tries unless TAVREL_TRIES says otherwise
# A script names what it needs in its header (`# packages: NAME...`), sources this file, starts its
# program, selects something, and says what is to be captured. Each try is told when something is
# wrong with it; the last lines are the rows of the table, and the status tells whether all was
# well. Pictures and logs: build/field/NAME.

set -eu
script=$(realpath "$0")
name=$(basename "$0" .sh)
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
[ $# -gt 0 ] || { echo "usage: $name.sh PROGRAM [TRIES]" >&2; exit 2; }
tavrel=$(realpath "$1") tries=${2:-${TAVREL_TRIES:-5}}
shots=${TAVREL_SHOTS:-$PWD/build/field/$name}
keys=${TAVREL_DEVICE_KEYS:-$PWD/build/tests/field/device_keys}

# The desktop knows everything that the machine has in /usr/share, but of the applications and bus
# services only those of the packages in the header.
lay_out_data() {
  local packages each
  packages=$(sed -n 's/^# packages: //p' "$script")
  for each in $packages; do
    dpkg -s "$each" >/dev/null 2>&1 || { echo "$name: $each is missing; tools/install-packages field" >&2; exit 2; }
  done
  mkdir -p "$1/applications" "$1/dbus-1/services"
  find /usr/share -mindepth 1 -maxdepth 1 ! -name applications ! -name dbus-1 -exec ln -st "$1" {} +
  dpkg -L python3 $packages >"$1/.files"
  { grep -E '^/usr/share/applications/[^/]*\.desktop$' "$1/.files" || true; } | xargs -r ln -st "$1/applications"
  { grep -E '^/usr/share/dbus-1/services/[^/]*\.service$' "$1/.files" || true; } | xargs -r ln -st "$1/dbus-1/services"
  update-desktop-database "$1/applications"
}
if [ "${TAVREL_FIELD_INSIDE:-}" != yes ]; then
  rm -rf "$shots"
  mkdir -p "$shots"
  lay_out_data "$shots/data"
  TAVREL_SHOTS=$shots TAVREL_FIELD_INSIDE=yes \
    exec tools/with-desktop --wm --data "$shots/data" "$script" "$tavrel" "$tries"
fi

. tools/desktop-lib.sh
. tests/field/field-desktop.sh
. tests/field/field-tries.sh
. tests/field/field-programs.sh
begin_desktop
