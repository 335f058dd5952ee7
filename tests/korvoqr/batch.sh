#!/usr/bin/env bash
source "$(dirname "$0")/common.sh"

for i in {1..3000}; do
    printf 'x%s\n%s\n%s\n' "$i" "$accepted" "$rejected"
done > batch
{ echo "$foreign"; cat batch; echo "$foreign"; } > foreign
replay batch

# An engine keeps the order.
korvoqr parse --format jsonl -i batch > answers || (($? == 1))
parallel --pipe --block 100k --keep-order korvoqr parse --format jsonl --exit-zero < batch | cmp answers -

# explain on several threads says the same in the same order.
head -300 batch > some
for format in text json; do
    for jobs in 1 3; do
        korvoqr explain --format $format --line-number -j $jobs < some > "explained$jobs" || (($? == 1))
    done
    cmp explained1 explained3
done
(($(wc -l < explained3) == 300))

# After Ctrl-C come the answers so far, the summary, and the end by that signal; also while no input comes.
mkfifo input
for summary in --summary --summary=json; do
    : > answered  # of the run before
    { head -50 batch; sleep 5; } 1<> input &  # does not wait for a reader, which may have failed
    # The shell has its commands in the background ignore Ctrl-C.
    perl -e '$SIG{INT} = "DEFAULT"; exec @ARGV' korvoqr parse --format jsonl $summary -i input > answered 2> errors & pid=$!
    until (($(wc -l < answered) == 50)); do kill -0 $pid; sleep 0.05; done
    kill -INT $pid
    wait $pid && exit 1 || (($? == 130))
    grep -qE '^50 payloads in|^\{"payloads":50,' errors
done

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
