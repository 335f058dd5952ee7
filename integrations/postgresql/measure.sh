#!/usr/bin/env bash
# Prints how many payloads a second the extension answers in one query, and how many the tool, for generated payloads.
# Usage: measure.sh BUILD [COUNT]. Each number is the best of fifteen.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
build=$(realpath "${1:?which build folder, such as build/release}")
count=${2:-200000}
work=$(mktemp -d)
source "$here/tests/server.sh"
cd "$work"

copy_server
cmake --install "$build" --component postgresql --prefix "$copy" > log
start_server
"$build/tests/generate_payloads" 1 "$count" > payloads
python3 -c 'for payload in open("payloads", "rb").read().split(b"\0")[:-1]: print(payload.hex())' > rows
sql -c "CREATE EXTENSION korvoqr" -c "CREATE UNLOGGED TABLE loaded (hex text)" -c "\\copy loaded FROM rows" \
    -c "CREATE UNLOGGED TABLE payloads AS SELECT convert_from(decode(hex, 'hex'), 'UTF8') AS payload FROM loaded" \
    -c "VACUUM ANALYZE payloads"

# rate NAME COMMAND...: the command prints the milliseconds that it took.
rate() {
    local name=$1 i
    shift
    for i in {1..15}; do "$@"; done | sort -n | awk -v count="$count" -v name="$name" '
        NR == 1 { printf "%-50s %9.0f a second\n", name, count * 1000 / $1 }'
}
query() {
    sql -c "SET max_parallel_workers_per_gather = $1" -c "SET parallel_leader_participation = off" -c '\timing on' \
        -c "SELECT count($2) FROM payloads" | sed -n 's/^Time: \([0-9.]*\) ms.*/\1/p'
}
tool() {
    local before=${EPOCHREALTIME/./} after
    "$build/tools/korvoqr/korvoqr" parse -0 --exit-zero --jobs "$1" --format "$2" --compact -i payloads > /dev/null
    after=${EPOCHREALTIME/./}
    echo $(((after - before + 999) / 1000))
}

for each in payload korvoqr_{is_valid,codes,parse}'(payload)'; do
    for workers in 1 2; do
        rate "count($each), workers: $workers" query "$workers" "$each"
    done
done
for jobs in 1 2; do
    rate "korvoqr parse --format jsonl --compact --jobs $jobs" tool "$jobs" jsonl
done
