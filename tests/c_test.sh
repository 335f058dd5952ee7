#!/usr/bin/env bash
# Compares a C program, which walks over everything, with the JSON of the tool. Usage: c_test.sh TOOL PROGRAM..., which may
# begin with a tool such as valgrind. Stops at the first fault.
set -Eeuo pipefail
trap 'echo "FAILED in line $LINENO: $BASH_COMMAND"' ERR
tool=$1
data=$(dirname "${BASH_SOURCE[0]}")/data
shift
walk=$(mktemp)
trap 'rm -f "$walk"' EXIT

walked='def violation: "! \(.code) \(.name) \(.fact)";
    def element: "\(.offset) \(.tag) \(.length) \(.value)", (.errors[] | violation), (.elements[]? | element);
    def repair: .payload, (.edits[] | "\(.offset) \(.from) \(.to)");
    (.elements[] | element), (.absent[] | violation), (.fault // empty | "\(.offset) \(.reason)"), .causes[],
    (.repairs[] | repair), (.unverified[] | repair)'
record='.qrCodeData // {} | to_entries[] | select(.value != null) | "\(.key)=\(.value)"'

# expected PAYLOAD
expected() {
    local explained parsed
    explained=$("$tool" explain --format json --exit-zero "$1")
    parsed=$("$tool" parse --format jsonl --exit-zero "$1")
    "$tool" --version | sed 's/.* //'
    jq -r 'if .accepted then "accepted" else "refused" end' <<< "$explained"
    jq -r "$record" <<< "$parsed"
    jq -r "$walked" <<< "$explained"
    printf '%s\n' "$explained"
}

{ cat "$data"/{full,placeholders}.payload; awk 'NR % 4 == 1 && !/\\/' "$data/explained.payloads"; } |
    while IFS= read -r payload; do
        "$@" "$payload" > "$walk"
        diff <(expected "$payload") "$walk"
    done
