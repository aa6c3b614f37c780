#!/usr/bin/env bash
# Kate: the first of two lines is selected.
# packages: kate
. "$(dirname "$0")/field-lib.sh"
editor kate kate kate --new
