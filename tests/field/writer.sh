#!/usr/bin/env bash
# LibreOffice Writer: it gives the clipboard up a moment before it copies.
# packages: libreoffice-writer libreoffice-gtk3
. "$(dirname "$0")/field-lib.sh"
office_document text '<text:p>Grüße, 世界</text:p><text:p>another line</text:p>'
# Who asks for a copy as a link makes it put bookmarks into the document.
text_of() {
  sed -n 's/.*<text:p[^>]*>\(.*\)<\/text:p>.*/\1/p' "$1" | sed 's/<[^>]*>//g'
  ! grep -q DdeLink "$1" || echo "(and bookmarks for links)"
}
editor_tries libreoffice-writer 'libreoffice|soffice' "${office[@]}" "$file"
