#!/usr/bin/env bash
# Runs the Objective-C example as a person does. Usage: example_test.sh EXAMPLE
set -u
data=$(dirname "${BASH_SOURCE[0]}")/../data

diff <("$1" "$(cat "$data/full.payload")"; echo "status $?") <(cat "$data/full.txt"; echo "status 0") &&
    diff <("$1" "0g4111111111111111" 2>&1; echo "status $?") \
        <(printf 'Refused, codes 7 9 11 13 15 \nstatus 1\n')
