#!/usr/bin/env bash
# Terminator: a word that is marked in it. Its copy command is off while nothing is marked.
# packages: terminator
. "$(dirname "$0")/field-lib.sh"
terminal terminator terminator terminator -x "$HOME/listen"
