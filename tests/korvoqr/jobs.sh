#!/usr/bin/env bash
# The tool's threads keep the order of the answers and lose none.
source "$(dirname "$0")/common.sh"

{ seq -f 0g411111111111111111a24581231M42IN5335665%05g 0 20000; seq -f x%05g 0 20000; } > payloads
for format in text jsonl; do
    korvoqr parse --format $format -i payloads > one || (($? == 1))
    for jobs in 2 5; do
        korvoqr parse --format $format -j $jobs < payloads > several || (($? == 1))
        cmp one several
    done
done
