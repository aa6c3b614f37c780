#!/usr/bin/env bash
# Dolphin: three files are selected.
# packages: dolphin
. "$(dirname "$0")/field-lib.sh"
file_manager dolphin 'dolphin|Dolphin' dolphin
