# What the checks share: source it. A check takes the tree to look at as its argument (this one
# when none is given), so that its self-test can hand it a bad sample.

set -euo pipefail
checks=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "${1:-$checks/../..}"

# tracked PATTERN...: the tracked files that match and are still there, each ended by a NUL.
tracked() {
  git ls-files -z -- "$@" | while IFS= read -r -d '' file; do
    if [ -f "$file" ] && [ ! -L "$file" ]; then printf '%s\0' "$file"; fi
  done
}

# complain FINDINGS REMEDY: ends the check as failed when there are findings.
complain() {
  [ -n "$1" ] || return 0
  printf '%s\n' "$1"
  printf '%s: %s\n' "$(basename "$0")" "$2"
  exit 1
} >&2
