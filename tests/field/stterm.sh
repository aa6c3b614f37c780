#!/usr/bin/env bash
# st: a word that is marked in it. What was marked last it copies when nothing is marked any more.
# packages: stterm
. "$(dirname "$0")/field-lib.sh"
nothing_afterwards=no
terminal st-256color "stterm|st-256color|st" stterm -e "$HOME/listen"
