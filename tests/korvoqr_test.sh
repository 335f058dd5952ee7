#!/usr/bin/env bash
# Runs the tool as a person does. Usage: korvoqr_test.sh KORVOQR
set -u
korvoqr=$1
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
data=$source/tests/data
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
grep -q 'is not ASCII' "$work/errors" || expect "the word why" "is not ASCII" "$(cat "$work/errors")"
expect "all 70 properties in a JSON line" 70 "$("$korvoqr" parse --format jsonl "$accepted" | grep -o '"[a-zA-Z0-9]*":' | grep -vc qrCodeData)"

# Explanations of faults of every kind, each as a person has read it
printf '%b' "$(< "$data/explained.payloads")" > "$work/explained"
for format in text json; do
    "$korvoqr" explain --format $format -i "$work/explained" | diff "$data/explained.$format" - > "$work/difference" ||
        expect "explanations in $format" "" "$(< "$work/difference")"
done
# Every code of an answer stands beside some element, or below.
while IFS= read -r payload; do
    line=$("$korvoqr" explain --format json "$payload")
    expect "codes beside elements: $payload" "$(grep -o '"errorCodes":[^]]*' <<< "$line" | grep -o '[0-9]*' | sort)" \
        "$(grep -o '"code":"[0-9]*' <<< "$line" | grep -o '[0-9]*$' | sort -u)"
done < <(sed -n 's/^| "[1-9].* | `\([^`]*\)` |$/\1/p' "$source/docs/error-codes.md")
sample=$(sed -n "s/^sample='\(.*\)'$/\1/p" "$source/scripts/run")
faulty=${sample/4123456784/4123456785}
for payload in "$sample" "${faulty/6006MUMBAI/}"; do
    grep -qzF "$("$korvoqr" explain "$payload")" "$source/README.md" || expect "the README's explanation of" "$payload" ""
done
# On a terminal: box drawing, no line over its width, colour unless the environment asks for none
terminal() { TERM=xterm LC_ALL=C.UTF-8 script -qec "stty cols 80; $*" /dev/null | tr -d '\r'; }
hostile=$(printf "'0a412345678416\033[31m\xC2\x9B24581231M42IN53356'")
expect "nothing that a terminal obeys" 'merchantName: \x1B[31m\u{9B} "merchantName":"\u001B[31m\u009B" "value":"\u001B[31m\u009B"' \
    "$(echo "$(terminal "$korvoqr" parse "$hostile" | grep merchantName)" \
        "$(terminal "$korvoqr" parse --format jsonl "$hostile" | grep -o '"merchantName":[^,]*')" \
        "$(terminal "$korvoqr" explain --format json "$hostile" | grep -o '"value":"[^"]*31m[^,]*')")"
shown=$(terminal NO_COLOR=1 "$korvoqr" explain -i "$work/explained")
expect "lines within 80 columns" "" "$(LC_ALL=C.UTF-8 grep -vE '북|北|[^ -~─├└✗]' <<< "$shown" | LC_ALL=C.UTF-8 grep -E '.{81}')"
grep -q '└─ 09' <<< "$shown" || expect "box drawing" "└─ 09" "$shown"
expect "no colour with NO_COLOR" 0 "$(grep -c $'\x1B' <<< "$shown")"
expect "colour on a terminal, where asked for, and nowhere else" "1 1 0 0" "$(for run in "terminal $korvoqr codes" "$korvoqr codes --color=always" "terminal $korvoqr codes --color=never" "$korvoqr codes"; do
    $run 48 | head -1 | grep -c $'\x1B' | tr '\n' ' '; done | sed 's/ $//')"

# Pictures: as made, scaled and turned, as a photo and two in one
qrencode -o "$work/plain.png" "$accepted"
qrencode -o "$work/other.png" "$rejected"
pngtopnm "$work/plain.png" | pamscale 2.7 2> /dev/null | pnmrotate -background white 23 | pnmtojpeg -quality 60 > "$work/photo.jpg"
pngtopnm "$work/plain.png" | pnmpad -white -right 60 > "$work/left.pnm"
pngtopnm "$work/other.png" | pnmcat -white -leftright "$work/left.pnm" - 2> /dev/null | pnmtopng > "$work/two.png" 2> /dev/null
pngtopnm "$work/plain.png" | pnmtopng -alpha=<(pngtopnm "$work/plain.png" | pnminvert) - > "$work/clear.png" 2> /dev/null
pngtopnm "$work/plain.png" | pnminvert | pnmtopng > "$work/dark.png" 2> /dev/null
pngtopnm "$work/two.png" > "$work/row.pnm"
pnmcat -topbottom "$work/row.pnm" "$work/row.pnm" | pnmtopng > "$work/four.png" 2> /dev/null
head -c 300 "$work/plain.png" > "$work/cut.png"
sed 's/IEND/\x1Bc\n\x9B/' "$work/plain.png" > "$work/evil.png"
cd "$work" || exit
runs "pictures" 1 "$(for file in plain.png photo.jpg clear.png dark.png; do "$korvoqr" parse --format jsonl "$accepted" | sed "s/{/{\"file\":\"$file\",\"code\":1,/"; done)
{\"file\":\"other.png\",\"code\":1,${codes#?}" parse --format jsonl --image plain.png photo.jpg clear.png dark.png other.png
runs "what is no picture of a code, among others" 2 "plain.png:
$(cat "$data/full.txt")" parse --image none.png / explained cut.png evil.png plain.png
expect "a line for each, with its name" "none.png /: explained: cut.png: evil.png:" "$(sed 's/korvoqr: cannot read \([^ ]*\) .*/\1/; s/none.png:/none.png/' errors | tr '\n' ' ' | sed 's/ $//')"
expect "codes in rows" 4 "$("$korvoqr" explain --format json --image four.png | grep -c '"code":[1-4],')"
expect "each code of a picture has its number" "two.png, code 1 of 2: two.png, code 2 of 2:" \
    "$("$korvoqr" explain --image two.png | grep ':$' | tr '\n' ' ' | sed 's/ $//')"
cd - > /dev/null || exit

# Batches: the order holds under an engine; jobs_test.sh tries the tool's own threads
for i in {1..3000}; do printf 'x%s\n%s\n%s\n' "$i" "$accepted" "$rejected"; done > "$work/batch"
"$korvoqr" parse --format jsonl < "$work/batch" > "$work/answers"
expect "the order under an engine" "" "$(parallel --pipe --block 100k --keep-order "$korvoqr parse --format jsonl || [ \$? -eq 1 ]" < "$work/batch" | cmp - "$work/answers" 2>&1)"
"$korvoqr" parse --summary -i "$work/batch" 2>&1 > /dev/null | sed 1d > "$work/errors"
expect "the summary" "  3,000  33.3 % accepted
  6,000  66.7 % rejected
Codes, with their share of the rejected payloads:
  3,000  50.0 % #####       0 malformedTags
  3,000  50.0 % #####       1 merchantIdInvalidStartingDigit
  3,000  50.0 % #####       3 merchantIdInvalidCheckDigit
  3,000  50.0 % #####      48 crcInvalidValue" "$(< "$work/errors")"
expect "progress on a terminal only" "1 0" "$(terminal "$korvoqr" parse --progress -i "$work/batch" -j 2 \> /dev/null | grep -c 'left' | tr '\n' ' ')$("$korvoqr" parse --progress -i "$work/batch" 2>&1 > /dev/null | grep -c '')"

expect "codes of the catalogue" '48 crcInvalidValue 63 -' \
    "$("$korvoqr" codes --format json 3 48 | tr -d ' ",\n' | sed 's/.*{code:\(48\)name:\([a-zA-Z]*\)mean.*Tag:\(63\)one.*Tag:\(-\)}./\1 \2 \3 \4/')"
expect "all codes" 45 "$("$korvoqr" codes | grep -c '^[0-9]')"

for arguments in '' 'parse --formta' 'parse --format' 'parse --format xml' 'prase' 'parse -x' 'codes 22' 'codes 3 x' \
    'parse --jobs 0' 'parse --jobs two' 'parse 00 --input /dev/null' 'explain 00 --image x' 'explain --color=pink'; do
    # shellcheck disable=SC2086
    runs "usage error: $arguments" 2 "" $arguments
    expect "one line that says what to type: $arguments" "1 1" "$(grep -c '' "$work/errors") $(grep -c '; type korvoqr' "$work/errors")"
done
touch "$work/unreadable" && chmod 000 "$work/unreadable"
for file in / "$work/none" $( ((EUID)) && echo "$work/unreadable"); do
    for command in parse explain; do
        runs "input $file" 2 "" $command --input "$file"
        expect "one line with its name: $file" 1 "$(grep -cF "cannot read $file: " "$work/errors")"
    done
done
runs "a folder as input" 2 "" parse < /
# What helps at the prompt names the same options as the tool.
for command in '' parse explain codes; do
    help=$("$korvoqr" $command --help)
    expect "help of $command fits a screen" "" "$(awk 'length > 80 || NR > 24' <<< "$help")"
    for option in $(grep -oE '(^| |,)--[a-z]+' <<< "$help" | tr -d ' ,' | sort -u); do
        for page in korvoqr.1.in completion/korvoqr.bash completion/_korvoqr; do
            sed 's/\\-/-/g' "$source/tools/korvoqr/$page" | grep -qF -e "$option" || expect "$page" "$option" ""
        done
    done
done
expect "completion" "jsonl json 40 41 42 43 44 45 46 48" "$(PATH=$(dirname "$korvoqr"):$PATH
    source "$source/tools/korvoqr/completion/korvoqr.bash"
    complete_last() { COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _korvoqr; echo "${COMPREPLY[@]}"; }
    echo $(complete_last korvoqr parse --format jsonl) $(complete_last korvoqr explain --format = j) $(complete_last korvoqr codes 4 | sed 's/^4 //'))"
"$korvoqr" parse "$accepted" > /dev/full 2>"$work/errors"
expect "the status of a full disk" 2 $?

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

echo "$failures failed"
exit $((failures > 0))
