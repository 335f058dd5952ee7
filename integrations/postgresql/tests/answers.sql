-- Prints what is wrong: names of cases that do not hold.
CREATE TEMPORARY TABLE hostile AS SELECT
    decode('MGc0MTExMTExMTExMTExMTExMTNhAGIyNDU4MTIzMU00MklONTMzNTY=', 'base64') AS nul,
    '\x3067e95c00'::bytea AS broken,
    '0g4111111111111111' AS cut;
CREATE TEMPORARY TABLE stored (compressed text, external text);
ALTER TABLE stored ALTER external SET STORAGE EXTERNAL;
INSERT INTO stored VALUES (repeat('0', 1048576), repeat('0', 1048576));

SELECT name FROM hostile, stored, LATERAL (VALUES
    ('null', korvoqr_codes(NULL::text) IS NULL AND korvoqr_explain(NULL::bytea) IS NULL),
    ('a literal', korvoqr_codes('') = '{0}' AND korvoqr_parse('') IS NULL),
    ('NUL in a record', korvoqr_is_valid(nul) AND
        korvoqr_parse(nul) @> '{"merchantName": "a\\x00b", "cityName": "M", "escaped": true}'),
    ('NUL in an explanation', korvoqr_explain(nul) @> '{"accepted": true, "escaped": true,
        "payload": "0g411111111111111113a\\x00b24581231M42IN53356", "elements": [{"value": "a\\x00b"}]}'),
    ('no UTF-8', korvoqr_codes(broken) = '{0}' AND korvoqr_explain(broken) ->> 'payload' = '0g\xE9\\x00' AND
        korvoqr_explain(broken) ->> 'visible' = '0g\xE9\\\x00' AND
        korvoqr_explain(broken) @> '{"accepted": false, "escaped": true, "fault": {"byteOffset": 2}}'),
    ('nothing escaped', NOT korvoqr_explain('0g41' || chr(233) || '\') ?| '{escaped,visible}'),
    ('1 MiB', korvoqr_explain(compressed) = korvoqr_explain(convert_to(external, 'UTF8')) AND
        korvoqr_explain(external) @> jsonb_build_object('payload', compressed)),
    ('1 MiB of no text', length(korvoqr_explain(decode(repeat('FF', 1048576), 'hex')) ->> 'payload') = 4194304),
    ('more', korvoqr_codes(external || '0') = '{0}' AND korvoqr_parse(compressed || '0') IS NULL AND
        korvoqr_explain((external || '0')::bytea) @> '{"payload": null, "errorCodes": ["0"], "accepted": false,
        "elements": [], "fault": {"reason": "longer than 1 MiB"}, "causes": ["The payload is longer than 1 MiB."]}'),
    ('the same members', ARRAY(SELECT jsonb_object_keys(korvoqr_explain(external || '0'))) =
        ARRAY(SELECT jsonb_object_keys(korvoqr_explain(cut || '1')))),
    ('100 MB', NOT korvoqr_is_valid(repeat('0', 100000000)) AND korvoqr_codes(repeat('0', 100000000)::bytea) = '{0}'),
    ('declared', 8 = (SELECT count(obj_description(oid)) FROM pg_proc
        WHERE proname LIKE 'korvoqr\_%' AND provolatile = 'i' AND proparallel = 's' AND proisstrict))
) AS cases (name, holds) WHERE holds IS NOT TRUE;
