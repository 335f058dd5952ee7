#!/usr/bin/env bash
# Runs the tool as a person does. Usage: korvoqr_test.sh KORVOQR EXAMPLE
set -u
korvoqr=$1
pay=$2
data=$(dirname "${BASH_SOURCE[0]}")/data
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

accepted=$(cat "$data/full.payload")
rejected=${accepted/02104/02105}
codes='{"qrCodeError":{"errorCodes":["1","3","48"],"errorNames":["merchantIdInvalidStartingDigit","merchantIdInvalidCheckDigit","crcInvalidValue"]}}'
malformed='{"qrCodeError":{"errorCodes":["0"],"errorNames":["malformedTags"]}}'

# expect WHAT WANTED GOT
expect() {
    [[ $2 == "$3" ]] && return
    failures=$((failures + 1))
    printf 'FAILED: %s\n  wanted: %q\n  got:    %q\n' "$1" "$2" "$3"
}

# runs WHAT STATUS OUTPUT [ARGUMENT...], standard input passed on; standard error goes to $work/errors
runs() {
    local what=$1 status=$2 output=$3 got
    shift 3
    got=$("$korvoqr" "$@" 2>"$work/errors"; echo "status $?")
    expect "$what" "${output:+$output$'\n'}status $status" "${got#$'\n'}"
}

runs "text of a record" 0 "$(cat "$data/full.txt")" parse "$accepted"
runs "JSON of a record" 0 "$(cat "$data/full.json")" parse --format json "$accepted"
runs "text of codes" 1 "1 merchantIdInvalidStartingDigit: The merchant identifier does not begin with 4.
3 merchantIdInvalidCheckDigit: The merchant identifier's check digit is wrong.
48 crcInvalidValue: The checksum is not 4 characters, or is not the checksum of the payload.

$(cat "$data/full.txt")" parse "$rejected" "$accepted"
expect "JSON of codes, in lines" "$codes 14" \
    "$("$korvoqr" parse --format json "$rejected" | tee "$work/json" | tr -d ' \n') $(grep -c '' "$work/json")"
runs "payloads that look like options of the argument parser" 1 "$malformed
$malformed
$malformed
$malformed" parse --format jsonl -- '[a,b]' '++' '-0' ''
runs "lines, in order, the last one without its end" 1 "$codes
$malformed
$malformed
$codes" parse --format jsonl < <(printf '%s\n\n%s\r\n%s' "$rejected" "$rejected" "$rejected")
runs "no payloads" 0 "" parse -0 < /dev/null
expect "a line feed inside a payload" '"merchantName":"a\nb"' \
    "$(printf '04444101a13a\nb24581231M42IN53356\0' | sed 's/04444101a/0g4111111111111111/' | "$korvoqr" parse -0 --format jsonl | grep -o '"merchantName":"a[^,]*')"
expect "non-ASCII values in JSON lines" '"merchantName":"é"' \
    "$("$korvoqr" parse --format jsonl 0g411111111111111111é24581231M42IN53356 | grep -o '"merchantName":"é"')"
runs "JSON output of a non-ASCII record is empty, with a word why" "0" "" parse --format json 0g411111111111111111é24581231M42IN53356
grep -q 'outside ASCII' "$work/errors" || expect "the word why" "outside ASCII" "$(cat "$work/errors")"
expect "all 70 properties in a JSON line" 70 "$("$korvoqr" parse --format jsonl "$accepted" | grep -o '"[a-zA-Z0-9]*":' | grep -vc qrCodeData)"

for arguments in '' 'parse --formta' 'parse --format' 'parse --format xml' 'prase' 'parse -x'; do
    # shellcheck disable=SC2086
    runs "usage error: $arguments" 2 "" $arguments
    expect "one line that says what to type: $arguments" "1 1" "$(grep -c '' "$work/errors") $(grep -c '; type korvoqr' "$work/errors")"
done
runs "a folder as input" 2 "" parse < /
"$korvoqr" parse "$accepted" > /dev/full 2>"$work/errors"
expect "the status of a full disk" 2 $?
"$korvoqr" --help > /dev/null && "$korvoqr" parse --help > /dev/null || expect "help" 0 $?

yes "$accepted" | "$korvoqr" parse 2>"$work/errors" | head -1 > /dev/null
expect "a reader that goes ends the run quietly" "" "$(cat "$work/errors")"

# An answer must come before the next payload does.
coproc tool { "$korvoqr" parse --format jsonl; }
for _ in 1 2 3; do
    echo "$rejected" >&"${tool[1]}"
    read -r -t 10 answer <&"${tool[0]}"
    expect "an answer to each line at once" "$codes" "$answer"
done
exec {tool[1]}>&-

# Memory that grew with the input would not fit; a sanitized tool cannot start under such a limit at all.
limit=200000
(ulimit -v $limit; "$korvoqr" --version) > /dev/null 2>&1 || limit=unlimited
(ulimit -v $limit; yes "$rejected" | head -1000000 | "$korvoqr" parse --format jsonl | uniq -c) > "$work/many"
expect "flat memory on a long input" "1000000 $codes" "$(cat "$work/many")"

expect "the example's acceptance" "Pay 12. to r59, account 4123450000006784" "$("$pay" "$accepted")"
expect "the example's refusal" "12: The country code is not a two-letter code of ISO 3166-1 in upper case." \
    "$("$pay" 0g4111111111111111"11a24581231M42in53356")"

echo "$failures failed"
exit $((failures > 0))
