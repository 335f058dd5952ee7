#!/usr/bin/env bash
# Runs the examples as a person does. Usage: examples_test.sh EXPLAIN SERVE; stops at the first thing that is wrong.
set -euo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
explain=$1 serve=$2
accepted=$(cat "$(dirname "${BASH_SOURCE[0]}")/data/full.payload")

# explains STATUS TEXT PAYLOAD
explains() {
    [[ $("$explain" "$3"; echo "status $?") == "$2"$'\n'"status $1" ]]
}
explains 0 "Accepted: every rule is kept." "$accepted"
explains 1 "Refused, in the two-digit format, by 3 rules:
  1 (merchantIdInvalidStartingDigit), tag 02: The merchant identifier does not begin with 4.
  3 (merchantIdInvalidCheckDigit), tag 02: The merchant identifier's check digit is wrong.
  48 (crcInvalidValue), tag 63: The checksum is not 4 characters, or is not the checksum of the payload." "${accepted/02104/02105}"
explains 1 "Refused, in the one-character format, by 1 rule:
  13 (countryCodeNotPresent), tag 4: The country code is missing." 0g411111111111111111a24581231M53356
[[ $("$explain" "" | tail -1) == "  0 (malformedTags): "* ]]

# The amounts tell whether each payload gets its own answer, in its place: all but the first are numbers above zero.
payloads() {
    seq -f "0g411111111111111111a24581231M42IN5335665%05g" 0 "$1"
}
for threads in 1 2 8; do
    diff <(echo "refused 17 "; seq -f "accepted 4111111111111111 %05g" 1 20000) <(payloads 20000 | "$serve" $threads)
done
diff <(printf 'refused 0 \n\nrefused 0 \nrefused 0 \n' | sed '/^$/d') <(printf 'a\n\nb' | "$serve")

# An answer must come before the next payload does, also when a line comes in pieces.
coproc server { "$serve"; }
for _ in 1 2 3; do
    printf 0g411111111111111111a24581 >&"${server[1]}"
    sleep 0.1
    echo 231M42IN53356 >&"${server[1]}"
    read -r -t 10 answer <&"${server[0]}"
    [[ $answer == "accepted 4111111111111111 -" ]]
done
exec {server[1]}>&-

[[ $("$serve" 2>&1 < / || echo "status $?") == "serve: cannot read standard input"$'\n'"status 1" ]]
[[ $(payloads 20000 | "$serve" 2>&1 > /dev/full || echo "status $?") == "serve: cannot write standard output"$'\n'"status 1" ]]
