#!/usr/bin/env bash
# Lines as other programs write them: with other ends, in quotes, among columns, too long, not text at all.
source "$(dirname "$0")/common.sh"

small=0g411111111111111112hi24581231M42IN53356
for i in {1..20}; do echo "$accepted"; done > plain
sed 's/$/\r/' plain > crlf
sed 's/.*/"&"/' plain > quoted
sed 's/.*/\xEF\xBB\xBF&/' plain > marked
sed 's/.*/ & /' plain > blanks
{ cat plain; echo "$rejected"; echo "$rejected"; sed '11,$d; s/$/\r/' plain; } > mixed
awk '{ print NR "\t" $0 }' plain > columns
awk '{ print NR ",\"" $0 "\"\r" }' plain > sheet.csv
iconv -f UTF-8 -t UTF-16 plain > wide
gzip -k plain
qrencode -s 8 -o code.png "$accepted"
printf '\xEF\xBB\xBFname,"the ""payload"""\r\n"Caf\xC3\xA9, 1st\nfloor",%s\r\nPier 5" pipe,"%s"\r\nx\r\nlast,"%s' \
    "$small" "$small " "$small" > floors.csv
printf 'id\tpayload\r\n7\t%s\r\n' "$small" > windows.tsv
printf ',id,"two\nlines",payload,,\n0,A1,x,%s,,\n' "$small" > pandas.csv
{ echo "1,$small"; echo '2,"open'; seq -f 2,more%.0f 200000; } > open.csv
{ echo "$small"; head -c 2000000 /dev/zero | tr '\0' x; echo; echo "$small"; } > long
replay lines

# A line that is not kept takes no memory. A sanitized tool needs more.
limit=400000
(ulimit -v $limit && korvoqr --version) > version 2>&1 || limit=unlimited
head -c 2G /dev/zero | (ulimit -v $limit && korvoqr parse --format jsonl) > answers || (($? == 1))
[[ $(< answers) == *'"reason":"longer than 1 MiB"}]}}' ]]

# Quoted columns with line breaks keep their lines on any number of threads.
seq 40000 | awk -v payload="$small" '{ printf "\"k%d,\n\"\"x\"\"\",%s\r\n", $1, payload }' > breaks.csv
for jobs in 1 3; do
    korvoqr parse --format jsonl --compact --payload-column 2 --key 1 --delimiter , --line-number -j $jobs -i breaks.csv
done | jq -r '"\(.line) \(.key)"' | paste - - | uniq -c > keys
seq 2 | while read -r; do
    awk 'BEGIN { for (i = 1; i <= 40000; ++i) printf "      1 %d k%d,\t\"x\"\n", 2 * i - 1, i }'
done | cmp - keys
