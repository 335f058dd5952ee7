#!/usr/bin/env bash
# The tool's threads keep the order of the answers and lose none. Usage: jobs_test.sh KORVOQR
set -uo pipefail
payloads() {
    seq -f "0g411111111111111111a24581231M42IN5335665%05g" 0 20000
    seq -f "x%05g" 0 20000
}
for format in text jsonl; do
    answers=$(payloads | "$1" parse --format $format | cksum)
    for jobs in 2 5; do
        [[ $(payloads | "$1" parse --format $format --jobs $jobs | cksum) == "$answers" ]] || { echo "FAILED: $format, $jobs jobs"; exit 1; }
    done
done
