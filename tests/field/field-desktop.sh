# What stands on the desktop beside the program that is tried: the menu, another program's clipboard,
# a record of the keys that programs post. Sourced by field-lib.sh.

log=$shots/tavrel.log

# within SECONDS COMMAND...: whether it succeeds before they are over.
within() {
  local deadline=$((SECONDS + $1))
  until "${@:2}"; do
    [ $SECONDS -lt $deadline ] || return 1
    sleep 0.05
  done
}

# press KEY...: on the keyboard. type_text TEXT: quickly.
press() { "$keys" "$@"; }
type_text() { "$keys" --hold 30 --gap 20 "text:$1"; }

begin_desktop() {
  mkdir -p "$HOME/Documents" "$XDG_CONFIG_HOME"
  write_menu
  openbox_is_ready() { xprop -root | grep -q _NET_CLIENT_LIST; }
  wait_for 20 "the window manager" openbox_is_ready
  tint2 >/dev/null 2>&1 &
  tests/field/clipboard_owner.py 2>"$shots/owner.log" &
  clipboard_owner=$!
  xinput test-xi2 --root >"$shots/keys.log" 2>/dev/null &
  wait_for 20 "the panel's tray" xdotool search --class tint2
  # Its debug lines tell by which road a program was asked.
  QT_LOGGING_RULES=tavrel.selection.debug=true "$tavrel" 2>"$log" &
  wait_for 20 "the status item" tray_icon_embedded
  wait_for 20 "the clipboard of another program" copy_anew
}

# An entry that shows when a picture was captured, and one for everything.
write_menu() {
  cat >"$HOME/Words.sh" <<'END_OF_SCRIPT'
#!/bin/sh
if [ $# -gt 0 ]; then printf 'file %s\n' "$@"; else printf 'text '; cat; fi >"$HOME/kept.new"
mv "$HOME/kept.new" "$HOME/kept"
END_OF_SCRIPT
  printf '#!/bin/sh\necho picture >"$HOME/kept.new"\nmv "$HOME/kept.new" "$HOME/kept"\n' >"$HOME/Picture.sh"
  chmod +x "$HOME/Words.sh" "$HOME/Picture.sh"
  mkdir -p "$XDG_DATA_HOME/tavrel/services"
  printf '#!/bin/bash\ntext=$(cat)\nprintf %%s "${text^^}"\n' >"$XDG_DATA_HOME/tavrel/services/Upper"
  chmod +x "$XDG_DATA_HOME/tavrel/services/Upper"
  cat >"$XDG_CONFIG_HOME/qorvane.tavrel.pref.plist" <<END_OF_TREE
<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>TVR_OnlineUpdateCheck</key><false/><key>TVR_MenuTree</key><array>
<dict><key>TVR_MenuItemType</key><string>applescript</string><key>TVR_MenuItemTitle</key><string>image</string>
<key>TVR_MenuItemSelectionTypes</key><array><string>image</string></array>
<key>TVR_MenuItemURL</key><string>file://$HOME/Picture.sh</string></dict>
<dict><key>TVR_MenuItemType</key><string>applescript</string><key>TVR_MenuItemTitle</key><string>keep</string>
<key>TVR_MenuItemURL</key><string>file://$HOME/Words.sh</string></dict>
<dict><key>TVR_MenuItemType</key><string>services</string><key>TVR_MenuItemTitle</key><string>upper</string>
<key>TVR_MenuItemURL</key><string>Upper</string></dict>
</array></dict></plist>
END_OF_TREE
}

# The clipboard: each target that is data, with its bytes. No owner is waited for for ever.
paste() { timeout 5 xclip -selection clipboard -o "$@" 2>/dev/null; }
clipboard() {
  local target
  paste -t TARGETS | while read -r target; do
    case $target in TARGETS | TIMESTAMP | MULTIPLE | SAVE_TARGETS | DELETE) continue ;; esac
    printf '%s %s\n' "$target" "$(paste -t "$target" | sha256sum)"
  done
}
clipboard_is_as_before() { [ "$(clipboard)" = "$clipboard_before" ]; }

# The other program copied_times again, something else than before; its clipboard is what must not change.
copied_times=0
copy_anew() {
  [ $copied_times = 0 ] || kill -USR1 $clipboard_owner
  soon is_copied || return 1
  copied_times=$((copied_times + 1))
  clipboard_before=$(clipboard)
  [ "$(wc -l <<<"$clipboard_before")" = 7 ] || give_up "the clipboard's owner has lost a target: $clipboard_before"
}
is_copied() { [ "$(paste)" = "copy $((copied_times + 1)) of Grüße" ]; }

marked_text() { timeout 2 xclip -selection primary -o 2>/dev/null; }
primary_is() { [ "$(marked_text)" = "$1" ]; }

# posted_keys LINE: the keystrokes that programs have posted since this line of the record.
posted_keys() {
  local device
  device=$(xinput list --id-only 'Virtual core XTEST keyboard')
  tail -n "+$1" "$shots/keys.log" | awk -v device="($device)" '
    BEGIN { held[37] = "Ctrl+"; held[105] = "Ctrl+"; held[50] = "Shift+"; held[62] = "Shift+"
            names[54] = "C"; names[118] = "Insert" }
    /RawKeyPress/ { down = 1 } /RawKeyRelease/ { down = 0 }
    /RawKey/ { raw = 1 } /^EVENT/ && !/RawKey/ { raw = 0 }
    /device:/ { own = $3 == device }
    raw && own && /detail:/ {
      if ($2 in held) { if (down) modifiers = modifiers held[$2]; else sub(/[^+]*\+$/, "", modifiers) }
      else if (down) print modifiers ($2 in names ? names[$2] : "key " $2)
      raw = 0 }'
}
