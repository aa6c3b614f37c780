#!/usr/bin/env bash
# Konsole: a word that is marked in it. Its copy command is off while nothing is marked.
# packages: konsole
. "$(dirname "$0")/field-lib.sh"
terminal konsole konsole konsole -e "$HOME/listen"
