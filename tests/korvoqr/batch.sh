#!/usr/bin/env bash
source "$(dirname "$0")/common.sh"

for i in {1..3000}; do
    printf 'x%s\n%s\n%s\n' "$i" "$accepted" "$rejected"
done > batch
{ echo "$foreign"; cat batch; echo "$foreign"; } > foreign
replay batch

# An engine keeps the order.
korvoqr parse --format jsonl -i batch > answers || (($? == 1))
parallel --pipe --block 100k --keep-order "korvoqr parse --format jsonl || [ \$? -eq 1 ]" < batch | cmp answers -

# The rate is payloads by time.
{ sleep 1.5; cat batch; } | korvoqr parse --summary 2> summary > /dev/null || (($? == 1))
awk 'NR == 1 { gsub(",", ""); exit !($4 >= 1.5 && $6 * $4 > 0.99 * $1 && $6 * $4 < 1.01 * $1) }' summary

# Progress goes on while the reader takes its time, and each line of it agrees with itself. A payload takes 8 bytes.
seq 1000000 6999999 > lines
terminal 80 'korvoqr parse --format jsonl --progress -i lines |
    for i in 1 2 3 4 5 6; do sleep 0.3; head -c 1000000 > read; done' | tr '\r' '\n' | sed '/left/!d; s/,//g' > progress
awk '{ share = $5 / 6000000; seconds = $5 / $7; split($10, left, ":")
       surplus = left[1] * 60 + left[2] - (seconds / share - seconds)
       wrong += $1 != sprintf("%.1f/48.0", 48 * share) || $3 != sprintf("(%.0f", 100 * share)
       right += surplus > -1.5 && surplus < 0.5 }
    END { exit wrong || right != NR || NR < 4 || !(seconds > 1.2 && seconds < 99) }' progress
