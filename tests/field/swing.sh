#!/usr/bin/env bash
# A text area of Java's Swing: the first of two lines is selected.
# packages: default-jdk
. "$(dirname "$0")/field-lib.sh"
answers_no_pings=yes
editor javac-launcher 'javac-launcher|java|words' java -Dfile.encoding=UTF-8 tests/field/SwingWords.java
