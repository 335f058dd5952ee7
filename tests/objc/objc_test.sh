#!/usr/bin/env bash
# Runs the tests and the example as a person does. Usage: objc_test.sh TESTS EXAMPLE
set -u
tests=$1 example=$2
data=$(dirname "${BASH_SOURCE[0]}")/../data
ulimit -c 0
failed=0

# answers STATUS PROGRAM ARGUMENT: both streams together hold the lines of standard input, once or more often
answers() {
    diff <("$2" "$3" 2>&1 | LC_ALL=C sort -u; echo "status ${PIPESTATUS[0]}") <(cat; echo "status $1") || failed=1
}

answers 0 "$tests" "$data" << 'END'
1 @(#)PROGRAM:KorvoQRParser  PROJECT:KorvoSDK-1
not whole, error: Account could not be serialized into json
whole
END
for each in QRCodeError/initWithErrorCodes: QRCodeParserResponse/initWithQrCodeData:qrCodeError: QRCodeEdit/QRCodeExplainer
do
    answers 134 "$tests" "${each%/*}" <<< \
        "KorvoQRParser: initialiser init() of KorvoQRParser.${each%/*} is not implemented; use ${each#*/}"
done
answers 1 "$example" 0g4111111111111111 <<< 'Refused, codes 7 9 11 13 15 
The text ends after tag 0 (merchant identifier); it may be cut. The merchant name is missing (tag 1). The merchant category code is missing (tag 2). The merchant city is missing (tag 3). The country code is missing (tag 4). The currency code is missing (tag 5).'
diff <("$example" "$(cat "$data/full.payload")"; echo "status $?") <(cat "$data/full.txt"; echo "status 0") || failed=1
exit $failed
