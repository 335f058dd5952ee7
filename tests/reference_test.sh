#!/usr/bin/env bash
# Makes the reference of the public headers, which no warning may accompany, and looks up what no comment of the headers
# says in so many words. Usage: reference_test.sh BUILD
set -euo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
build=$1
cmake --build "$build" --target docs
page() {
    sed 's/<[^>]*>//g; s/&#160;/ /g; s/&quot;/"/g' "$build/docs/html/$1"
}
grep -qzP 'crcInvalidValue = "48"\n.*The checksum is not 4 characters' <(page namespacekorvo_1_1KorvoErrorConstants.html)
grep -q "Tag 62/09 in the two-digit format" <(page namespacekorvo_1_1KorvoErrorConstants.html)
grep -q "Sets isAddDataNpci2Mandatory()" <(page classkorvo_1_1QRCodeData.html)
grep -q KorvoQRParserVersionString <(page KorvoQRParserVersion_8h.html)
