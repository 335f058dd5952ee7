#!/usr/bin/env bash
# The extension in a server: its answers are those of the tool, and nothing harms the server.
# Usage: extension.sh KORVOQR GENERATE_PAYLOADS BUILD. Stops at the first failure.
here=$(dirname "$(realpath "$0")")
source "$here/../../../tests/korvoqr/common.sh"
source "$here/server.sh"
generator=$2 build=$3

copy_server
cp "$1" "$bin/"
cmake --install "$build" --component postgresql --prefix "$copy" > installed
[[ $(grep -c "Installing: $copy/.*/korvoqr" installed) == 3 && $(wc -l < installed) == 4 ]]
start_server

echo "the example"
sed -n '/^CREATE EXTENSION korvoqr;/,/^```/{/^```/!p}' "$root/README.md" > example.sql
[[ $(sql -c "CREATE TABLE scans AS SELECT '$rejected' AS payload" -f example.sql) == "$rejected|"* ]]
sql -c "INSERT INTO shops VALUES ('$accepted'), (NULL)"
not_inserted=$(sql -c "INSERT INTO shops VALUES ('$rejected')" 2>&1) && exit 1
[[ $not_inserted == *'violates check constraint "shops_payload_check"'* ]]

echo "hostile values"
sql -f "$here/answers.sql" | diff /dev/null -

echo "a hundred thousand payloads, each tenth with a changed byte"
"$generator" 1 100000 | python3 -c '
import random, sys
random.seed(1)
rows, payloads = open("rows", "w"), open("cluster/payloads", "wb")
for line, payload in enumerate(sys.stdin.buffer.read().split(b"\0")[:-1]):
    if line % 10 == 0 and payload:
        at = random.randrange(len(payload))
        payload = payload[:at] + bytes([random.randrange(1, 256)]) + payload[at + 1:]
    payloads.write(payload + b"\0")
    print(line + 1, payload.hex(), sep="\t\\\\x", file=rows)'
sql -f - <<'END'
CREATE UNLOGGED TABLE payloads (line int, bytes bytea, text text);
\copy payloads (line, bytes) FROM rows
UPDATE payloads SET text = convert_from(bytes, 'UTF8') WHERE line % 10 <> 1;
VACUUM ANALYZE payloads;
CREATE UNLOGGED TABLE parsed (line serial, answer jsonb);
CREATE UNLOGGED TABLE explained (LIKE parsed INCLUDING ALL);
COPY parsed (answer) FROM PROGRAM 'korvoqr parse -0 --format jsonl --compact --exit-zero -i ../payloads'
    WITH (FORMAT csv, DELIMITER E'\x01', QUOTE E'\x02');
COPY explained (answer) FROM PROGRAM 'korvoqr explain -0 --format json --exit-zero --jobs 2 -i ../payloads'
    WITH (FORMAT csv, DELIMITER E'\x01', QUOTE E'\x02');
ANALYZE parsed, explained;
END
# The tool replaces bytes that are not UTF-8 in the payload, where the extension escapes them.
sql -f - <<'END' > wrong
SELECT line FROM payloads JOIN parsed USING (line), LATERAL (VALUES
    (true, korvoqr_is_valid(bytes), korvoqr_codes(bytes), korvoqr_parse(bytes)),
    (text IS NOT NULL, korvoqr_is_valid(text), korvoqr_codes(text), korvoqr_parse(text))) AS ours (applies, valid, codes, record)
WHERE applies AND (valid, codes, record) IS DISTINCT FROM (answer ? 'qrCodeData',
    ARRAY(SELECT jsonb_array_elements_text(answer #> '{qrCodeError,errorCodes}')), answer -> 'qrCodeData');
SELECT line FROM payloads JOIN explained USING (line), korvoqr_explain(bytes) AS ours
WHERE ours IS DISTINCT FROM answer AND
    (ours ->> 'escaped', ours - '{escaped,payload}'::text[]) IS DISTINCT FROM ('true', answer - 'payload');
SELECT line FROM payloads WHERE line % 20 = 2 AND korvoqr_explain(text) <> korvoqr_explain(bytes);
END
diff /dev/null wrong
[[ $(sql -c "SELECT count(*) > 30000, count(*) FILTER (WHERE text IS NULL) > 100 FROM payloads WHERE korvoqr_is_valid(bytes)") == 't|t' ]]
(($(sql -c "SELECT count(*) FROM explained WHERE answer ? 'visible'") > 1000))

echo "several processes"
query="SELECT count(*), sum(hashtext(korvoqr_parse(text)::text)), sum(hashtext(korvoqr_codes(text)::text)) FROM payloads
    WHERE korvoqr_is_valid(text) OR line % 3 = 0"
grep -q 'Workers Launched: [12]' <(sql -c "EXPLAIN (ANALYZE, COSTS OFF) $query")
[[ $(sql -c "$query") == "$(sql -c "SET max_parallel_workers_per_gather = 0" -c "$query")" ]]

echo "dump and restore"
sql -c "CREATE TABLE kept (payload text CHECK (korvoqr_is_valid(payload)),
        merchant text GENERATED ALWAYS AS (korvoqr_parse(payload) ->> 'merchantName') STORED)" \
    -c "CREATE INDEX ON kept (korvoqr_codes(payload))" -c "CREATE DATABASE restored" \
    -c "INSERT INTO kept SELECT text FROM payloads WHERE korvoqr_is_valid(text) ORDER BY line LIMIT 1000"
as_server pg_dump -h "$work/cluster" -U owner -t kept -e korvoqr -f dump postgres
sql -d restored -f cluster/dump > restored
stored="SELECT count(*), md5(string_agg(payload || merchant, '' ORDER BY payload)) FROM kept"
[[ $(sql -d restored -c "$stored") == "$(sql -c "$stored")" && $(sql -c "$stored") == 1000* ]]
sql -d restored -c "INSERT INTO kept VALUES ('$rejected')" 2> errors && exit 1
grep -q kept_payload_check errors

echo "an encoding that lacks characters"
sql -c "CREATE DATABASE latin ENCODING LATIN1 TEMPLATE template0"
latin() { sql -d latin -c "SET client_encoding = UTF8" "$@"; }
latin -c "CREATE EXTENSION korvoqr"
[[ $(latin -c "SELECT korvoqr_parse('$foreign') - 'escaped' = korvoqr_parse(convert_to('$foreign', 'UTF8')),
    korvoqr_parse('$foreign') ->> 'merchantName'") == 't|é' ]]
star=$(printf %s "${foreign/é/★}" | od -An -v -tx1 | tr -d ' \n')
[[ $(latin -c "SELECT p ->> 'merchantName', p -> 'escaped' FROM korvoqr_parse('\\x$star'::bytea) AS p") == '\xE2\x98\x85|true' ]]

echo "cancelled in the middle of an explanation, fifty times, without a leak"
resident="SELECT substring(pg_read_file('/proc/self/status') FROM 'VmRSS:\s*(\d+)')::int AS"
{
    echo "SET statement_timeout = 40;"
    for i in {1..60}; do
        ((i % 50 != 10)) || echo "$resident kib_$i \\gset"
        echo "SELECT korvoqr_explain(decode(repeat('E29885', 349000), 'hex')) IS NULL;"
    done
    echo "SELECT :kib_60 - :kib_10 < 20000;"
} | "$bin/psql" -X -q -At -h "$work/cluster" -U owner -d latin 2> errors | diff <(echo t) -
(($(grep -c 'canceling statement due to statement timeout' errors) == 60))
