#!/usr/bin/env bash
# FeatherPad: the first of two lines is selected.
# packages: featherpad
. "$(dirname "$0")/field-lib.sh"
editor featherpad featherpad featherpad
