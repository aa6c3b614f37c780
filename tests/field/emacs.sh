#!/usr/bin/env bash
# Emacs: the region in a mail that is being written. C-c C-c sends it, and most copies end the region.
# packages: emacs-gtk emacs-common
. "$(dirname "$0")/field-lib.sh"
cat >"$HOME/init.el" <<'END_OF_LISP'
(setq server-socket-dir (expand-file-name "~/server") message-confirm-send nil
      message-syntax-checks 'dont-check-for-anything-just-trust-me
      message-send-mail-function (lambda () (write-region nil nil "~/sent")))
(server-start)
(defun letter ()
  (when (get-buffer "letter")
    (with-current-buffer "letter" (set-buffer-modified-p nil) (kill-buffer)))
  (delete-other-windows)
  (switch-to-buffer "letter")
  (insert "To: somebody@localhost\nSubject: A letter\n" mail-header-separator "\nSome words\nanother line\n")
  (message-mode)
  (message-goto-body))
(letter)
END_OF_LISP
ask() { timeout 5 emacsclient --socket-name="$HOME/server/server" --eval "(with-current-buffer (window-buffer) $1)"; }
state() { ask "(list (if (region-active-p) 'region 'no-region) (substring (buffer-hash) 0 8) (buffer-name))"; }
harm() {
  [ ! -e "$HOME/sent" ] || { echo "the mail was sent"; rm -f "$HOME/sent"; }
  [ "$(state)" = "$was" ] || echo "region, text and buffer were $was, now $(state)"
}
put_back() {
  ask "(letter)" >/dev/null
  [[ "$was" != "(region"* ]] || wait_for 20 "the region" region_active
}
region_active() {
  press Home shift+End
  [ "$(ask '(and (region-active-p) (buffer-substring-no-properties (region-beginning) (region-end)))')" = '"Some words"' ]
}
start emacs emacs -Q -l "$HOME/init.el"
was=$(state)
nothing "at first"
wait_for 20 "the region" region_active
was=$(state)
captures "the region" "text Some words"
stops "text Some words" emacs
press ctrl+g
was=$(state)
nothing "any more" "text Some words"
finish
