#!/usr/bin/env bash
# LibreOffice Calc: cells that are selected.
# packages: libreoffice-calc libreoffice-gtk3
. "$(dirname "$0")/field-lib.sh"
cell() { printf '<table:table-cell office:value-type="string"><text:p>%s</text:p></table:table-cell>' "$@"; }
office_document spreadsheet "<table:table table:name=\"A\"><table:table-row>$(cell "Some words" "more")</table:table-row></table:table>"
text_of() { sed '1,/<office:spreadsheet>/d' "$1" | grep -oP '<text:p[^>]*>\K[^<]*' | head -n 2 | paste_lines; }
start libreoffice-calc "${office[@]}" "$file"
two_cells() {
  press ctrl+Home shift+Right ctrl+c
  [ "$(paste | paste_lines)" = $'Some words\tmore' ]
}
wait_for 60 "two cells" two_cells
press Escape
wait_for 20 "another copy" copy_anew
captures "two cells" $'text Some words\tmore'
stops $'text Some words\tmore' 'libreoffice|soffice'
press x Tab ctrl+s
wanted="x, more"
file_is_saved() { [ "$(text_of "$file")" = "$wanted" ]; }
soon file_is_saved || wrong "the cells are $(text_of "$file")"
finish
