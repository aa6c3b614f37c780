#!/usr/bin/env bash
# Caja: three files are selected.
# packages: caja
. "$(dirname "$0")/field-lib.sh"
file_manager caja 'caja|Caja' caja --no-desktop
