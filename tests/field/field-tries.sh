# Tries: the gesture, the item, what it got, and what must not have happened. Sourced by
# field-lib.sh. A try that goes wrong is told and counted; the script goes on.

failures=0
harmed=0 lost=0 done_tries=0
copies='Ctrl\+C|Ctrl\+Shift\+C|Ctrl\+Insert' # every keystroke that may be posted at all
nothing_captured="" told=-
rows=$shots/rows
: >"$rows"

# A script may replace these: what was done to the program (nothing when it is unharmed), what puts it
# back to where it was, and whether it has done all that the keys asked it for.
harm() { :; }
put_back() { :; }
settled() { :; }

wrong() {
  failures=$((failures + 1))
  echo "  $name, $phase, try $try: $1"
}

# once EXPECTED: one gesture; whether the item got this. Blank lines at its end are not looked at.
once() {
  local ms got primary=-
  done_tries=$((done_tries + 1))
  [ $((try % 2)) = 0 ] && [ $clipboard_lost = no ] || wait_for 20 "another copy" copy_anew
  clipboard_lost=no
  [ "$stopped" = yes ] || primary=$(marked_text || true)
  rm -f "$HOME/kept"
  ms=$(gesture) || { wrong "no menu came"; return 1; }
  menu_times+=" $ms"
  type_text "$([ "$1" = picture ] && echo image || echo keep)"
  press Return
  within 5 test -e "$HOME/kept" || { wrong "the entry is not there, or was not run"; press Escape; wait_for 20 "the menu to close" no_menu_open; return 1; }
  wait_for 20 "the menu to close" no_menu_open
  got=$(kept)
  [ "$stopped" = yes ] || look_after "$primary"
  [ "$got" = "$1" ] || { wrong "captured was \"${got:0:60}\", not \"$1\""; return 1; }
}

# Files may come in any order.
kept() { if grep -q '^file ' "$HOME/kept"; then sort "$HOME/kept"; else cat "$HOME/kept"; fi; }

# A machine that is busy may miss a gesture.
gesture() {
  local turn
  for turn in 1 2 3; do
    ! "$keys" --gap 60 --menu tavrel ctrl ctrl || return 0
    echo "  $name: a gesture opened no menu" >&2
  done
  return 1
}

# look_after PRIMARY: what was marked before; "-" if nobody knows.
look_after() {
  local all
  wait_for 20 "$name to have done what it was asked" settled
  all=$(every_harm "$1" | paste_lines)
  [ -z "$all" ] || { harmed=$((harmed + 1)); wrong "$all"; put_back; }
  soon clipboard_is_as_before || {
    lost=$((lost + 1)) clipboard_lost=yes
    wrong "the clipboard was lost: $(paste -t TARGETS | tr '\n' ' ')"
  }
}
every_harm() {
  harm
  [ "$1" = - ] || primary_is "$1" || echo "the marked text was \"$1\" and is \"$(marked_text)\""
  soon nothing_held || echo "a key was left down"
  posted_keys "$first_key" | grep -vxE "$copies" | sed 's/^/posted was: /' | sort -u
}

# many EXPECTED: tries of one kind; leaves how many were captured in $captured.
many() {
  look_from_here
  menu_times="" captured=0 clipboard_lost=no stopped=no
  for try in $(seq "$tries"); do
    if once "$1"; then captured=$((captured + 1)); fi
  done
  screenshot "$phase" >/dev/null
}

# What is posted and logged from now on.
look_from_here() { first_key=$(($(wc -l <"$shots/keys.log") + 1)) first_line=$(($(wc -l <"$log") + 1)); }

# captures WHAT EXPECTED: what is selected now, "text ..." or "file ..." or "picture".
captures() {
  phase=$1
  many "$2"
  printf '%s|%s|%s of %s|%s\n' "$1" "$(road)" "$captured" "$tries" "$(menu_time)" >>"$rows"
}
# nothing WHEN [TEXT]: nothing is selected now, and nothing may be captured; where nobody can tell that
# the mark is gone, TEXT, which was marked last. Ten tries at most.
nothing() {
  local tries=$((tries < 10 ? tries : 10))
  phase="nothing selected $1"
  many "${2:-text }"
  nothing_captured+="${nothing_captured:+, }$1 $captured of $tries"
}

# stops NAME...: while the program is stopped the menu comes without a selection, and the log tells the
# program's name; any of these will do. Afterwards it has another try of the same selection.
stops() {
  local process expected=$1 names=$2
  phase=stopped try=1 stopped=yes clipboard_lost=no
  process=$(front_process)
  look_from_here
  wait_for 20 "another copy" copy_anew
  kill -STOP "$process"
  once "text " || true
  stopped=no
  if tail -n "+$first_line" "$log" | grep -iE "($names).*did not answer" >/dev/null; then told=yes; else
    told=no
    [ "${answers_no_pings-}" = yes ] || wrong "the log does not tell that it did not answer"
  fi
  kill -CONT "$process"
  wait_for 20 "$name to be idle again" idle "$process"
  try=1
  look_after -
  phase="after it was stopped"
  [ -z "$expected" ] || once "$expected" || true
}

# The road that the log tells, and the keystrokes that were posted, each once.
road() {
  local roads posted
  roads=$(tail -n "+$first_line" "$log" | grep -oP 'road=\K[^ (]+' | sort -u | paste_lines)
  posted=$(posted_keys "$first_key" | sort -u | paste_lines)
  if [ -z "$posted" ] || [ "$posted" = "$roads" ]; then echo "${roads:-no key}"; else echo "${roads:+$roads: }$posted"; fi
}
# Several lines as one.
paste_lines() { awk '{ printf "%s%s", (NR > 1 ? ", " : ""), $0 }'; }
# The median of the milliseconds from the gesture to the menu, and their spread.
menu_time() {
  tr ' ' '\n' <<<"$menu_times" | grep . | sort -n | awk '{ all[NR] = $1 }
    END { if (NR) printf "%.0f ms (%.0f to %.0f)", all[int((NR + 1) / 2)], all[1], all[NR] }'
}

# finish: the rows for the table, and the end.
finish() {
  local row first=yes common
  common="$nothing_captured|$lost of $done_tries|$harmed of $done_tries|$told"
  while read -r row; do
    echo "$name|$row|$common"
    common="|||"
  done <"$rows" | tee "$shots/result"
  [ $failures = 0 ] || echo "failed: $failures complaints about $name; see $shots" >&2
  exit $((failures > 0))
}
