#!/usr/bin/env bash
# Kate: the first of two lines is selected.
# packages: kate
. "$(dirname "$0")/field-lib.sh"
copied_anyway="text $words" # with nothing selected Kate copies the line
editor kate kate kate --new
