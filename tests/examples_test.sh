#!/usr/bin/env bash
# Runs the example explain as a person does. Usage: examples_test.sh EXPLAIN; stops at the first thing that is wrong.
set -euo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
explain=$1
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
