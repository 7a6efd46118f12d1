#!/usr/bin/env bash
# The user guide's PDF, as the build rendered it for Help, read back: it has
# the guide's title and every one of its section titles in their order, and a
# picture for every picture that the guide shows.
# Usage: guide_pdf.sh GUIDE.md GUIDE.pdf
set -euo pipefail
guide=$1
pdf=$2
failures=0
fail() {
    echo "FAIL: $*" >&2
    failures=$((failures + 1))
}
[ -f "$pdf" ] || { echo "no $pdf" >&2; exit 1; }
[ "$(pdfinfo "$pdf" | sed -n 's/^Title: *//p')" = "Kelvaro Tesselo 3 - User Guide" ] || fail "the PDF's title"
pages=$(pdfinfo "$pdf" | sed -n 's/^Pages: *//p')
[ "$pages" -ge 10 ] || fail "only $pages pages"

# The text, with its lines joined, so that a title broken over two lines is
# found too, and the typesetter's ligatures read as their letters.
text=$(pdftotext -layout "$pdf" - | sed 's/ﬁ/fi/g; s/ﬂ/fl/g; s/ﬀ/ff/g' | tr -s ' \n' '  ')
at=0
while IFS= read -r title; do
    title=${title#"## "}
    rest=${text:$at}
    if [[ "$rest" != *"$title"* ]]; then
        fail "the section \"$title\" is not in the PDF, after the one before it"
        continue
    fi
    before=${rest%%"$title"*}
    at=$((at + ${#before} + ${#title}))
done < <(grep '^## ' "$guide")
grep -q '^# Kelvaro Tesselo 3' "$guide" && [[ "$text" == *"Kelvaro Tesselo 3 — User Guide"* ]] || fail "the guide's title"

# Every picture of the guide is drawn.
wanted=$(grep -o '!\[[^]]*\]([^)]*)' "$guide" | wc -l)
drawn=$(pdfimages -list "$pdf" | awk 'NR > 2 && $3 == "image"' | wc -l)
[ "$drawn" -eq "$wanted" ] || fail "the guide shows $wanted pictures, the PDF draws $drawn"

if [ "$failures" -gt 0 ]; then
    echo "$failures failures" >&2
    exit 1
fi
echo "the guide's $pages pages hold its $(grep -c '^## ' "$guide") sections and $wanted pictures"
