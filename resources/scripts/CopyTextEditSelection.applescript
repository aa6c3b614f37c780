-- Leaves the selected text on the clipboard.
tell application "System Events" to keystroke "c" using command down
