#!/usr/bin/env bash
source "$(dirname "$0")/common.sh"

# An answer comes before the next payload does, also if a payload comes in pieces.
for command in parse explain; do
    coproc tool { korvoqr $command --format json | jq --unbuffered -c '.. | .errorCodes? // empty'; }
    pid=$tool_PID
    for _ in 1 2 3; do
        printf %s "${rejected::100}" >&"${tool[1]}"
        sleep 0.1
        echo "${rejected:100}" >&"${tool[1]}"
        read -r -t 10 answer <&"${tool[0]}"
        [[ $answer == '["1","3","48"]' ]]
    done
    exec {tool[1]}>&-
    wait "$pid" || (($? == 1))
done

# If memory grew with the input while the reader takes its time, it would not fit. A sanitized tool needs more.
limit=400000
(ulimit -v $limit && korvoqr --version) > version 2>&1 || limit=unlimited
awk -v line="$rejected" 'BEGIN { for (; i < 1000000; ++i) print line }' |
    (ulimit -v $limit && korvoqr parse --format jsonl -j 2 --summary 2> summary) |
    { sleep 1; uniq -c; } > answers || (($? == 1))
[[ $(< answers) == "1000000 $refusal" && $(head -1 summary) == "1,000,000 payloads in "* ]]

# A reader that goes away ends the run quietly, with the status so far.
for _ in {1..3000}; do echo "$rejected"; done > lines
{ korvoqr parse --format jsonl -i lines 2> errors || echo $? > status; } | head -c 1 > first
[[ ! -s errors && $(< status) == 1 ]]

# nonblocking STREAM COMMAND...: runs a command with a stream (0, 1) that does not wait.
nonblocking() {
    perl -MFcntl -e 'open(S, "+<&=", shift) && fcntl(S, F_SETFL, O_NONBLOCK) or die; exec @ARGV or die' "$@"
}
korvoqr parse --format jsonl -i lines > answers || (($? == 1))
{ sleep 0.3; cat lines; } | nonblocking 0 korvoqr parse --format jsonl > waited || (($? == 1))
cmp answers waited
nonblocking 1 korvoqr parse --format jsonl -i lines | { sleep 0.3; cat > waited; } || (($? == 1))
cmp answers waited
