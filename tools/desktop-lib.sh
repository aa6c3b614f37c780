# Shell functions for what drives a desktop: source it. Every wait has a deadline.

shots=${TAVREL_SHOTS:-.}
shot_number=0

# wait_for SECONDS WHAT COMMAND...: until the command succeeds; ends the script when it never does.
wait_for() {
  local deadline=$((SECONDS + $1)) what=$2
  shift 2
  until "$@" >/dev/null 2>&1; do
    [ $SECONDS -lt $deadline ] || give_up "waited in vain for $what"
    sleep 0.05
  done
}

# screenshot NAME: the whole screen as NN-NAME.png.
screenshot() {
  shot_number=$((shot_number + 1))
  local file
  file=$shots/$(printf '%02d' "$shot_number")-$1.png
  import -silent -window root "$file" && echo "  picture: $file"
}

give_up() {
  screenshot failure
  echo "failed: $1" >&2
  exit 1
}

# The id of the program's icon window, once the tray has taken it in.
tray_icon() { xwininfo -root -tree | awk '/\("tavrel" "[Tt]avrel"\)/ { print $1; exit }' | grep .; }
tray_icon_embedded() {
  local id
  id=$(tray_icon) || return 1
  [ "$(xwininfo -id "$id" | awk '/Absolute upper-left X/ { print $NF }')" -gt 0 ]
}

# click_window ID: a real click in the middle of a window.
click_window() {
  local geometry
  geometry=$(xwininfo -id "$1")
  local x y w h
  x=$(awk '/Absolute upper-left X/ { print $NF }' <<<"$geometry")
  y=$(awk '/Absolute upper-left Y/ { print $NF }' <<<"$geometry")
  w=$(awk '/Width:/ { print $NF }' <<<"$geometry")
  h=$(awk '/Height:/ { print $NF }' <<<"$geometry")
  xdotool mousemove $((x + w / 2)) $((y + h / 2)) click 1
}

# The levels of the program's menu that are on the screen, by id: the tray's icon is no child of the
# root window.
menu_windows() {
  local id
  for id in $(xwininfo -root -children | awk '/\("tavrel" "[Tt]avrel"\)/ { print $1 }'); do
    if xwininfo -id "$id" | grep -q 'Map State: IsViewable'; then echo "$id"; fi
  done
}
menu_open() { menu_windows | grep -q .; }

# A menu is on the screen before it is painted. remember_screen, then what changes the menu, then
# wait_for 20 "..." menu_painted: its place shows something else than before, in the many colours of
# text, and the same as at the look before.
remember_screen() {
  rm -f "$TAVREL_DESKTOP"/{menu,last}.png
  import -silent -window root "$TAVREL_DESKTOP/before.png"
}
menu_painted() {
  local place looks=$TAVREL_DESKTOP
  place=$(xwininfo -id "$(menu_windows | head -n 1)" | awk '/Absolute upper-left/ { at = at "+" $NF }
    /Width:/ { size = $NF } /Height:/ { size = size "x" $NF } END { print size at }')
  [ ! -e "$looks/menu.png" ] || mv "$looks/menu.png" "$looks/last.png"
  import -silent -window root -crop "$place" +repage "$looks/menu.png"
  convert "$looks/before.png" -crop "$place" +repage "$looks/beneath.png"
  [ "$(identify -format %k "$looks/menu.png")" -ge 8 ] && ! same_picture menu beneath && same_picture menu last
}
same_picture() { [ "$(compare -metric AE "$TAVREL_DESKTOP/$1.png" "$TAVREL_DESKTOP/$2.png" null: 2>&1)" = 0 ]; }

# open_menu WHAT: by a double tap of Control, as a person does it; again when the display was too busy
# to tap in time.
open_menu() { wait_for 30 "$1" tapped_open; }
tapped_open() {
  menu_open || xdotool keydown Control_L sleep 0.04 keyup Control_L sleep 0.06 \
    keydown Control_L sleep 0.04 keyup Control_L
  soon menu_open
}
# soon COMMAND...: whether it succeeds within two seconds.
soon() {
  local try
  for try in $(seq 40); do
    ! "$@" || return 0
    sleep 0.05
  done
  return 1
}
no_menu_open() { ! menu_open; }

# window_named TEXT: whether a window with the text in its title is on the screen.
window_named() { xdotool search --onlyvisible --name "$1" 2>/dev/null | grep -q .; }

# levels COUNT: whether so many levels of the menu are on the screen.
levels() { [ "$(menu_windows | wc -l)" = "$1" ]; }

# active_class TEXT: whether a window of such a class has the keyboard.
active_class() { xprop -id "$(xdotool getactivewindow)" WM_CLASS 2>/dev/null | grep -qi "$1"; }

# nothing_held: whether no key is down, neither on the keyboard nor on that of programs. The server
# tells of these two alone, not of the one that stands for both.
nothing_held() {
  local keyboard
  for keyboard in 'Xvfb keyboard' 'Virtual core XTEST keyboard'; do
    xinput query-state "$keyboard" | grep -q 'key\[.*=up' || return 1
    ! xinput query-state "$keyboard" | grep -q 'key\[.*=down' || return 1
  done
}
