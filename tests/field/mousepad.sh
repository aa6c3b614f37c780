#!/usr/bin/env bash
# Mousepad: the first of two lines is selected.
# packages: mousepad
. "$(dirname "$0")/field-lib.sh"
editor mousepad mousepad mousepad
