#!/usr/bin/env bash
# PostgreSQL reads the rows of --format copy, whatever the payloads hold. Usage: postgresql.sh KORVOQR GENERATE_PAYLOADS.
# The test starts a server of its own, in a scratch folder and without a network.
source "$(dirname "$0")/common.sh"

generator=$2
bin=$(printf '%s\n' /usr/lib/postgresql/*/bin | tail -1)
chmod 755 . && mkdir cluster
as_owner=()
if ((EUID == 0)); then  # the server refuses to run as root
    as_owner=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
    chown nobody:nogroup cluster
fi
server() { (cd cluster && "${as_owner[@]}" "$bin/$@") > log 2>&1 || { cat log; exit 1; }; }
sql() { psql -X -q -At -v ON_ERROR_STOP=1 -h "$work/cluster" -U owner -d postgres "$@"; }
server initdb -D "$work/cluster/data" -U owner -A trust -E UTF8 --locale=C --no-sync
trap 'server pg_ctl -D "$work/cluster/data" -m immediate stop; rm -rf "$work"' EXIT
server pg_ctl -D "$work/cluster/data" -o "-k $work/cluster -c listen_addresses= -c fsync=off" -w start

sed -n '/^CREATE TABLE answers/,/);/p' "$root/README.md" > table.sql
copy=$(sed -n "s/^COPY answers FROM PROGRAM '\(korvoqr .*\)';$/\1/p" "$root/README.md")
[[ -s table.sql && $copy == *'--format copy'* ]]
{
    "$generator" 1 5000 | tr '\t\n' '||' | tr '\0' '\n'
    # A record with a quote, a backslash and controls; and texts that COPY would take for its own signs
    printf '0g411111111111111118a"b\\c\b\v\\N24581231M42IN53356\n\\.\n\\N\n"\n\\\n\r\na\0b\n\xE9\xFF\\x00\n'
    printf '0g411111111111111113a\0b24581231M42IN53356\n'
} | awk '{ print NR "\t" $0 }' > payloads.tsv
eval "$copy" > rows
sql -f table.sql -c "COPY answers FROM STDIN" < rows

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
