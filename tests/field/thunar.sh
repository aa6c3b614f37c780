#!/usr/bin/env bash
# Thunar: three files are selected.
# packages: thunar
. "$(dirname "$0")/field-lib.sh"
file_manager thunar 'thunar|Thunar' thunar
