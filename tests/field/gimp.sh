#!/usr/bin/env bash
# GIMP: an image, all of it selected.
# packages: gimp imagemagick
. "$(dirname "$0")/field-lib.sh"
convert -size 320x240 gradient:red-blue "$HOME/Documents/picture.png"
title() { xdotool getactivewindow getwindowname; }
image_in_front() { title | grep -q picture; }
all_selected() {
  press ctrl+a
  soon has_changed
}
has_changed() { [[ "$(title)" = \** ]]; }
harm() { [ "$(title)" = "$was" ] || echo "the title was $was and is $(title)"; }
start gimp gimp --new-instance --no-splash "$HOME/Documents/picture.png"
wait_for 120 "the image" image_in_front
settle_front
wait_for 20 "all of the image to be selected" all_selected
was=$(title)
captures "an image" picture
stops picture 'gimp|gnu image'
finish
