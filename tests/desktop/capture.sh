#!/usr/bin/env bash
# What is selected in real applications reaches an item of the pop-up, and the person's clipboard is
# the same afterwards, target for target and byte for byte.
#   capture.sh PROGRAM
set -eu
cd "$(dirname "$0")/../.."
program=$(realpath "$1")

if [ "${TAVREL_CAPTURE_INSIDE:-}" != yes ]; then
  shots=${TAVREL_SHOTS:-$PWD/build/shots/capture}
  rm -rf "$shots"
  mkdir -p "$shots"
  exec env TAVREL_CAPTURE_INSIDE=yes TAVREL_SHOTS="$shots" tools/with-desktop --wm "$0" "$program"
fi

. tools/desktop-lib.sh
log=$TAVREL_SHOTS/tavrel.log
mkdir -p "$HOME/Documents" "$XDG_CONFIG_HOME"

# What the item is handed: paths as arguments, else the text.
cat >"$HOME/Keep.sh" <<'END'
#!/bin/sh
if [ $# -gt 0 ]; then printf 'file %s\n' "$@"; else printf 'text '; cat; fi >"$HOME/kept.new"
mv "$HOME/kept.new" "$HOME/kept"
END
chmod +x "$HOME/Keep.sh"
cat >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist" <<END
<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/><key>TVR_MenuTree</key><array>
<dict><key>TVR_MenuItemType</key><string>applescript</string><key>TVR_MenuItemTitle</key><string>Keep</string>
<key>TVR_MenuItemURL</key><string>file://$HOME/Keep.sh</string></dict>
</array></dict></plist>
END

# clipboard: every target that is data, with its bytes.
clipboard() {
  local target
  xclip -selection clipboard -o -t TARGETS | while read -r target; do
    case $target in TARGETS | TIMESTAMP | MULTIPLE | SAVE_TARGETS | DELETE) continue ;; esac
    printf '%s %s\n' "$target" "$(xclip -selection clipboard -o -t "$target" | sha256sum)"
  done
}

# captured WHAT EXPECTED: the gesture, the item, what it got, and the clipboard as it was.
captured() {
  rm -f "$HOME/kept"
  open_menu "the menu over $1"
  screenshot "$1"
  xdotool type --delay 20 Keep
  xdotool key Return
  wait_for 20 "what was captured from $1" test -e "$HOME/kept"
  printf '%s' "$2" >"$HOME/wanted"
  cmp "$HOME/wanted" "$HOME/kept" || give_up "$1: the item got $(cat "$HOME/kept")"
  wait_for 20 "the clipboard after $1" clipboard_is_as_before
  echo "$1: captured, and the clipboard is as before."
}
clipboard_is_as_before() { [ "$(clipboard)" = "$before" ]; }

# types_of_last_capture: as the log tells them.
types_of_last_capture() { awk '/types=\(/ { types = "" } { types = types $0 } END { sub(/\)  contents.*/, "", types); print types }' "$log"; }
has_type() { types_of_last_capture | grep -q "$1"; }
captured_type() { has_type "$1" || give_up "no $1 was captured: $(types_of_last_capture)"; }

# front CLASS: waits until a window of the class has the keyboard.
front() { wait_for 40 "$1 in front" active_class "$1"; }
close_front() {
  local window
  window=$(xdotool getactivewindow)
  xdotool windowkill "$window"
  wait_for 20 "the window to go" sh -c "! xwininfo -id $window"
}

tint2 >/dev/null 2>&1 &
wait_for 20 "the panel's tray" sh -c 'xprop -root | grep -q _NET_CLIENT_LIST && xdotool search --class tint2'
cat >"$HOME/page.html" <<'END'
<!doctype html><title>Tavrel page</title><p>Some <b>bold</b> words</p><canvas id=c width=64 height=64></canvas>
<script>
const canvas = document.getElementById('c')
canvas.getContext('2d').fillRect(0, 0, 64, 64)
if (location.hash === '#picture') {
  document.title = 'Tavrel picture'
  document.addEventListener('copy', event => {
    event.preventDefault()
    canvas.toBlob(blob => navigator.clipboard.write([new ClipboardItem({'image/png': blob})]))
  })
}
</script>
END
browse() { chromium --no-sandbox --no-first-run --disable-gpu --user-data-dir="$HOME/$1" "$2" >/dev/null 2>&1 & }

# The clipboard that must not change: a browser's, with a dozen targets.
browse owner "file://$HOME/page.html"
front chromium
wait_for 20 "the page" window_named "Tavrel page"
copied() {
  xdotool key ctrl+a ctrl+c
  xclip -selection clipboard -o -t TARGETS | grep -q text/html
}
wait_for 20 "the browser's copy" copied
before=$(clipboard)
[ "$(wc -l <<<"$before")" -ge 6 ] || give_up "too few targets to compare: $before"

"$program" 2>"$log" &
wait_for 20 "the status item" tray_icon_embedded

captured browser "text Some bold words"
captured_type NSHTMLPboardType

browse picture "file://$HOME/page.html#picture"
wait_for 40 "the page with the picture" window_named "Tavrel picture"
front_title() { xdotool getactivewindow getwindowname | grep -q "$1"; }
wait_for 20 "the page with the picture in front" front_title "Tavrel picture"
for _ in 1 2 3; do # a busy browser takes longer than anybody waits for a copy
  captured picture "text "
  ! has_type NSTIFFPboardType || break
done
captured_type NSTIFFPboardType
close_front

# edited PROGRAM CLASS: an editor with a line of text in it, all of it selected.
edited() {
  "$1" "$HOME/Documents/words.txt" >/dev/null 2>&1 &
  front "$2"
  wait_for 20 "the selection in $1" all_selected
}
all_selected() {
  xdotool key ctrl+Home ctrl+shift+End
  xclip -selection primary -o | grep -qx 'Grüße, 世界'
}
# pasted: what the browser gave the clipboard before any of this comes out of it in the editor.
pasted() {
  xdotool key ctrl+v ctrl+s
  grep -q 'Some bold words' "$HOME/Documents/words.txt"
}
for editor in mousepad featherpad; do
  printf 'Grüße, 世界' >"$HOME/Documents/words.txt"
  edited $editor $editor
  captured $editor "text Grüße, 世界"
  xdotool key ctrl+Home
  captured "$editor with nothing selected" "text "
  grep -q "retry = 9 changeCount=0" "$log" || give_up "$editor: not ten tries"
  wait_for 20 "the browser's words pasted into $editor" pasted
  echo "$editor: pastes what the browser copied."
  close_front
done

# A program that does not know the keystroke gives nothing, and none of it ends the program.
xmessage -name deaf "Nothing is copied here." &
deaf=$!
front deaf
captured "a program that ignores the copy" "text "
kill -0 $deaf || give_up "the keystrokes have closed the program that ignores them"
close_front

# A program in a terminal is never interrupted.
cat >"$HOME/listen.sh" <<'END'
trap 'echo interrupted >>"$HOME/interrupted"' INT
echo Marked
while :; do sleep 0.1; done
END
lxterminal -e "sh $HOME/listen.sh" >/dev/null 2>&1 &
front lxterminal
word_is_marked() { xclip -selection primary -o | grep -qx Marked; }
# Below the bar of menus, in the first row.
marked() {
  local y
  for y in 36 40 44; do
    xdotool mousemove --window "$(xdotool getactivewindow)" 20 $y click --repeat 2 --delay 30 1
    ! soon word_is_marked || return 0
  done
  return 1
}
wait_for 40 "the marked word in the terminal" marked
captured terminal "text Marked"
[ ! -e "$HOME/interrupted" ] || give_up "the program in the terminal was interrupted"
close_front
