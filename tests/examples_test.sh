#!/usr/bin/env bash
# Runs the examples as a person does. Usage: examples_test.sh EXPLAIN PAY; stops at the first thing that is wrong.
set -euo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
explain=$1 pay=$2
accepted=$(cat "$(dirname "${BASH_SOURCE[0]}")/data/full.payload")

# says PROGRAM STATUS TEXT PAYLOAD
says() {
    diff <("$1" "$4" && echo "status 0" || echo "status $?") - <<< "$3"$'\n'"status $2"
}
explains() {
    says "$explain" "$@"
}
explains 0 "Accepted: every rule is kept." "$accepted"
explains 1 'Refused. The merchant name is empty or longer than 25 characters (tag 1: 26 characters, at most 25).
  tag 1, code 6: The merchant name is empty or longer than 25 characters. Here: 26 characters, at most 25.
  code 13: The country code is missing.' '0g41111111111111111qKORVO BAKERY AND TEA SHOPS24581231M53356'
explains 1 'Refused. Tag 59 (merchant name) has a wrong length: it says 11, but the value has 10 characters. Without that the checksum matches, so it happened after the checksum was computed.
It can be repaired, and the checksum vouches for the repair.' '000201021041234567845204581253033565802IN5911KORVO CAFE6006MUMBAI63046803'
says "$pay" 0 "Pay 12. to r59, account 4123450000006784" "$accepted"
says "$pay" 0 "Pay any amount to hi, account 4111111111111111" 0g411111111111111112hi24581231M42IN53356
says "$pay" 1 "Refused. The text ends inside the length of tag 1 (merchant name). It is cut." 0g41111111111111111
