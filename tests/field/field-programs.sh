# How programs are started and what is selected in them. Sourced by field-lib.sh.

# start CLASS COMMAND...: until a window of the class has the keyboard and the program is idle.
start() {
  "${@:2}" >"$shots/program.log" 2>&1 &
  started=$!
  wait_for 60 "$1 in front" active_class "$1"
  wait_for 60 "$1 to be idle" idle "$(front_process)"
}
front_process() {
  local process
  process=$(xdotool getwindowpid "$(xdotool getactivewindow)" 2>/dev/null) || process=$started
  echo "$process"
}

# idle PROCESS: it took no time in three tenths of a second.
idle() {
  local before look
  before=$(awk '{ print $14 + $15 }' "/proc/$1/stat")
  for look in 1 2 3 4 5 6; do
    sleep 0.05
    [ "$(awk '{ print $14 + $15 }' "/proc/$1/stat")" = "$before" ] || return 1
  done
}

# A terminal: listen.py in it tells what reaches the program inside.
#   terminal CLASS NAMES COMMAND...      NAMES: as the log may name it, an expression
terminal() {
  ln -s "$PWD/tests/field/listen.py" "$HOME/listen"
  start "$1" "${@:3}"
  terminal_tries "$2"
}
# A terminal in the window of another program, which the key brings up.
#   terminal_panel CLASS NAMES KEY COMMAND...
terminal_panel() {
  ln -s "$PWD/tests/field/listen.py" "$HOME/listen"
  start "$1" "${@:4}"
  press "$3"
  settle_front
  type_text "~/listen"
  press Return
  terminal_tries "$2"
}
terminal_tries() {
  wait_for 20 "the program in the terminal" test -e "$HOME/listening"
  settle_front
  harm() { terminal_harm; }
  nothing "at first"
  wait_for 20 "a marked word" word_marked
  captures "a marked word" "${marked-text Grüße}"
  stops "${marked-text Grüße}" "$1"
  if [ $nothing_afterwards = yes ]; then
    click_at 430 "$from_top"
    settle_front
    nothing "any more" "${marked-text Grüße}"
  fi
  finish
}
settle_front() { wait_for 60 "$name to be idle" idle "$(front_process)"; }
terminal_harm() {
  [ ! -e "$HOME/interrupted" ] || echo "$(wc -l <"$HOME/interrupted") signals: $(sort -u "$HOME/interrupted")"
  [ ! -e "$HOME/typed" ] || echo "typed was: $(tr '\n' ' ' <"$HOME/typed")"
  rm -f "$HOME/interrupted" "$HOME/typed"
}
# Where in the window the terminal shows text, and whether it forgets what was marked in it.
from_top=150
nothing_afterwards=yes
click_at() { xdotool mousemove --window "$(xdotool getactivewindow)" "$1" "$2" click 1; }
# In several places: one of them may be between two words.
word_marked() {
  local across
  for across in 200 331 270; do
    xdotool mousemove --window "$(xdotool getactivewindow)" $across "$from_top" click --repeat 2 --delay 40 1
    ! soon primary_is Grüße || return 0
  done
  return 1
}

# An editor with a file of two lines, of which the first is selected; afterwards "x" is typed, which
# takes the place of the selection and of nothing else.
#   editor CLASS NAMES COMMAND...
words='Grüße, 世界'
editor() {
  file=$HOME/Documents/words.txt
  printf '%s\nanother line\n' "$words" >"$file"
  editor_tries "$@" "$file"
}
text_of() { cat "$1"; }
# What a service answers takes the place of the selection.
answers() {
  local upper=${words^^}
  phase="the answer of a service" try=1
  look_from_here
  gesture >/dev/null || { wrong "no menu came"; return 0; }
  type_text upper
  press Return
  paste_posted() { posted_keys "$first_key" | grep -qvxE "$copies"; }
  wait_for 20 "the key that pastes" paste_posted
  # Writer takes no key to paste while it saves.
  paste_over() { clipboard_is_as_before && idle "$(front_process)"; }
  wait_for 20 "the paste" paste_over
  upper_is_saved() { [ "$(text_of "$file" | head -n 1)" = "$upper" ]; }
  line_is_upper() { press ctrl+s && within 3 upper_is_saved; }
  within 10 line_is_upper || { wrong "the line is $(text_of "$file" | head -n 1), not $upper"; return 0; }
  words=$upper
}
editor_tries() {
  start "$1" "${@:3}"
  press ctrl+Home
  nothing "at first" "${copied_anyway-}"
  wait_for 20 "the selected line" line_selected
  captures "a line of text" "text $words"
  stops "text $words" "$2"
  press Home
  settle_front
  nothing "any more" "${copied_anyway-}"
  wait_for 20 "the selected line" line_selected
  [ "${no_answers-}" = yes ] || answers
  wait_for 20 "the selected line" line_selected
  press x ctrl+s
  saved x
  finish
}
line_selected() {
  press ctrl+Home shift+End
  soon primary_is "$words"
}
# saved LINE: the file is saved with this line in the place of the first one, and no other change.
saved() {
  local wanted
  wanted=$(printf '%s\nanother line' "$1")
  file_is_saved() { [ "$(text_of "$file")" = "$wanted" ]; }
  soon file_is_saved || {
    cp "$file" "$shots"
    phase="typing afterwards" try=1 harmed=$((harmed + 1))
    wrong "the text is $(text_of "$file" | tr '\n' '/')"
  }
}

# copier MILLISECONDS: copier.py, which copies as late as that.
copier() {
  harm() {
    [ ! -e "$HOME/typed" ] || echo "typed was: $(paste_lines <"$HOME/typed")"
    rm -f "$HOME/typed"
  }
  settled() { [ "$(cat "$HOME/asked" 2>/dev/null | wc -l)" = "$(cat "$HOME/made" 2>/dev/null | wc -l)" ]; }
  start copier tests/field/copier.py "$1"
  captures "words, $1 ms late" "${copied-text Some words}"
  finish
}

# office_document KIND BODY: leaves it in $file, and in $office what opens it without any question.
office_document() {
  local space='urn:oasis:names:tc:opendocument:xmlns' profile=$HOME/office
  file=$HOME/Documents/words.$([ "$1" = text ] && echo fodt || echo fods)
  cat >"$file" <<END_OF_DOCUMENT
<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="$space:office:1.0" xmlns:text="$space:text:1.0" xmlns:table="$space:table:1.0" office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.$1"><office:body><office:$1>$2</office:$1></office:body></office:document>
END_OF_DOCUMENT
  mkdir -p "$profile/user"
  cat >"$profile/user/registrymodifications.xcu" <<'END_OF_SETTINGS'
<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry" xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="ShowTipOfTheDay" oor:op="fuse"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Save/Document"><prop oor:name="WarnAlienFormat" oor:op="fuse"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Setup/Product"><prop oor:name="ooSetupLastVersion" oor:op="fuse"><value>99.9</value></prop></item>
</oor:items>
END_OF_SETTINGS
  office=(soffice --norestore --nologo --nofirststartwizard "-env:UserInstallation=file://$profile")
}

# A file manager that shows three files; all of them are selected.
#   file_manager CLASS NAMES COMMAND...
file_manager() {
  local shown=$HOME/shown
  mkdir "$shown"
  touch "$shown/a b.txt" "$shown/c.txt" "$shown/Grüße.txt"
  listing() { find "$shown" | sort; }
  before=$(listing)
  harm() { [ "$(listing)" = "$before" ] || echo "the folder holds $(listing | paste_lines)"; }
  start "$1" "${@:3}" "$shown"
  nothing "at first"
  wait_for 20 "the files to be selected" all_copied
  wait_for 20 "another copy" copy_anew
  expected=$(find "$shown" -type f -printf 'file %p\n' | sort)
  captures "three files" "$expected"
  stops "$expected" "$2"
  click_at 600 400
  settle_front
  nothing "any more"
  finish
}
all_copied() {
  click_at 600 400
  press ctrl+a ctrl+c
  soon three_copied
}
three_copied() { [ "$(paste -t text/uri-list | grep -c file:)" = 3 ]; }
