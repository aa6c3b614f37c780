#!/usr/bin/env bash
# Firefox: a page and, after F2, a text area. The page's title tells every key that is no copy, and the text.
# packages: firefox-esr
. "$(dirname "$0")/field-lib.sh"
mkdir -p "$HOME/profile"
cat >"$HOME/profile/user.js" <<'END_OF_SETTINGS'
user_pref("browser.aboutwelcome.enabled", false);
user_pref("browser.preonboarding.enabled", false);
user_pref("browser.shell.checkDefaultBrowser", false);
user_pref("browser.startup.homepage_override.mstone", "ignore");
user_pref("datareporting.policy.dataSubmissionEnabled", false);
user_pref("toolkit.telemetry.reportingpolicy.firstRun", false);
END_OF_SETTINGS
cat >"$HOME/page.html" <<'END_OF_PAGE'
<!doctype html><meta charset=utf-8><title>Field</title>
<p id=words>Some <b>bold</b> words</p><textarea id=area hidden rows=4 cols=40>Grüße, 世界</textarea>
<script>
const strays = []
const show = () => { document.title = 'Field (' + strays.join(' ') + ') ' + area.value }
const showArea = () => {
  words.hidden = true
  area.hidden = false
  area.focus()
}
addEventListener('keydown', event => {
  if (event.key === 'F2') showArea()
  if (['Control', 'Shift', 'F2', 'Escape'].includes(event.key)) return
  if (event.ctrlKey && ['a', 'c', 'C', 'Insert'].includes(event.key)) return
  strays.push(event.key)
  show()
}, true)
area.addEventListener('input', show)
show()
</script>
END_OF_PAGE
title() { xdotool getactivewindow getwindowname; }
page_is_there() { title | grep -qF "Field () Grüße, 世界"; }
harm() { page_is_there || echo "the page tells of $(title)"; }
selected() { # KEYS... TEXT
  press "${@:1:$#-1}" ctrl+a
  soon primary_is "${@: -1}"
}
start firefox firefox-esr --profile "$HOME/profile" --no-remote "file://$HOME/page.html"
wait_for 60 "the page" page_is_there
settle_front
nothing "at first"
wait_for 20 "the page's text" selected Escape "Some bold words"
captures "a page" "text Some bold words"
stops "text Some bold words" 'firefox'
wait_for 20 "the text of the area" selected F2 "Grüße, 世界"
captures "a text area" "text Grüße, 世界"
click_at 600 500
settle_front
nothing "any more"
finish
