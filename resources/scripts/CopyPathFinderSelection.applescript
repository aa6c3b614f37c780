-- The path of each thing that is selected in the second file manager.
tell application "Path Finder" to set chosen to (get selection)
set thePaths to {}
repeat with anItem in chosen
	set end of thePaths to POSIX path of (anItem as alias)
end repeat
return thePaths
