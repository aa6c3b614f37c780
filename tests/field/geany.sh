#!/usr/bin/env bash
# Geany: the first of two lines is selected.
# packages: geany
. "$(dirname "$0")/field-lib.sh"
editor geany geany geany --new-instance --no-session
