#!/usr/bin/env bash
# PCManFM: three files are selected.
# packages: pcmanfm
. "$(dirname "$0")/field-lib.sh"
file_manager pcmanfm 'pcmanfm|PCManFM' pcmanfm
