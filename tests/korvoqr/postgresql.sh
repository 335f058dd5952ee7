#!/usr/bin/env bash
# PostgreSQL reads the rows of --format copy, whatever the payloads hold. Usage: postgresql.sh KORVOQR GENERATE_PAYLOADS.
# The rows come from a server of the test's own, which runs the tool itself.
source "$(dirname "$0")/common.sh"
source "$root/integrations/postgresql/tests/server.sh"

generator=$2
copy_server
cp "$1" "$bin/"
start_server

sed -n '/^CREATE TABLE answers/,/);/p' "$root/README.md" > table.sql
sed -n '/^COPY answers FROM PROGRAM .*--format copy.*;$/p' "$root/README.md" > copy.sql
[[ -s table.sql && -s copy.sql ]]
{
    "$generator" 1 5000 | tr '\t\n' '||' | tr '\0' '\n'
    # A record with a quote, a backslash and controls; and texts that COPY would take for its own signs
    printf '0g411111111111111118a"b\\c\b\v\\N24581231M42IN53356\n\\.\n\\N\n"\n\\\n\r\na\0b\n\xE9\xFF\\x00\n'
    printf '0g411111111111111113a\0b24581231M42IN53356\n'
} | awk '{ print NR "\t" $0 }' > payloads.tsv
cp payloads.tsv cluster/data/  # the folder in which the server runs programs
sql -f table.sql -f copy.sql

# Every answer is that of the tool.
korvoqr parse --format jsonl --payload-column 2 -i payloads.tsv > answers || (($? == 1))
(($(grep -c qrCodeData answers) > 1000))
sql -c "SELECT coalesce(record - 'escaped', to_jsonb(codes)) FROM answers ORDER BY id::int" | jq -cS . > stored
jq -cS '(.qrCodeData // .qrCodeError.errorCodes) | if type == "object" then
    map_values(if type == "string" then gsub("\u0000"; "\\x00") else . end) else . end' answers | diff - stored
[[ $(sql -c "SELECT record ->> 'merchantName' FROM answers WHERE record ? 'escaped'") == 'a\x00b' ]]
# Every payload is kept, except what a database cannot hold.
sql -c "SELECT id || E'\t' || payload FROM answers WHERE codes <> '{0}' AND record -> 'escaped' IS NULL ORDER BY id::int" |
    cmp - <(paste payloads.tsv answers | grep -av 'errorCodes":\["0"' | grep -av '\\u0000' | cut -f 1,2)
