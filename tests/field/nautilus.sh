#!/usr/bin/env bash
# Nautilus: three files are selected.
# packages: nautilus
. "$(dirname "$0")/field-lib.sh"
file_manager nautilus 'nautilus|files' nautilus --new-window
