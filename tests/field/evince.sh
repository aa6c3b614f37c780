#!/usr/bin/env bash
# Evince: the text of a PDF document, all of it selected.
# packages: evince
. "$(dirname "$0")/field-lib.sh"
cat >"$HOME/words.pdf" <<'END_OF_DOCUMENT'
%PDF-1.4
1 0 obj <</Type/Catalog/Pages 2 0 R>> endobj
2 0 obj <</Type/Pages/Kids[3 0 R]/Count 1>> endobj
3 0 obj <</Type/Page/Parent 2 0 R/MediaBox[0 0 300 200]/Resources<</Font<</F 4 0 R>>>>/Contents 5 0 R>> endobj
4 0 obj <</Type/Font/Subtype/Type1/BaseFont/Helvetica>> endobj
5 0 obj <</Length 39>> stream
BT /F 24 Tf 40 100 Td (Some words) Tj ET
endstream endobj
trailer <</Root 1 0 R>>
END_OF_DOCUMENT
all_copied() {
  press ctrl+a ctrl+c
  soon words_copied
}
words_copied() { [ "$(paste)" = "Some words" ]; }
start evince evince "$HOME/words.pdf"
nothing "at first"
wait_for 20 "the text to be selected" all_copied
wait_for 20 "another copy" copy_anew
captures "a page" "text Some words"
stops "text Some words" "evince|document viewer"
click_at 400 300
settle_front
nothing "any more"
finish
