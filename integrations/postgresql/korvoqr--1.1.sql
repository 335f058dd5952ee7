\echo Use "CREATE EXTENSION korvoqr" to load this file. \quit

-- COST is the time of a usual payload in units of a simple operator, so that the planner checks other conditions of a
-- query first, and uses several processes for a table that is not small.

CREATE FUNCTION korvoqr_is_valid(payload text) RETURNS boolean
    AS 'MODULE_PATHNAME', 'korvoqr_sql_is_valid_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20;
COMMENT ON FUNCTION korvoqr_is_valid(text) IS
    'Whether a payload keeps every rule';

CREATE FUNCTION korvoqr_is_valid(payload bytea) RETURNS boolean
    AS 'MODULE_PATHNAME', 'korvoqr_sql_is_valid_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 20;
COMMENT ON FUNCTION korvoqr_is_valid(bytea) IS
    'Whether a payload in UTF-8 keeps every rule';

CREATE FUNCTION korvoqr_codes(payload text) RETURNS text[]
    AS 'MODULE_PATHNAME', 'korvoqr_sql_codes_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 30;
COMMENT ON FUNCTION korvoqr_codes(text) IS
    'The code of every rule that a payload violates, in the order of the rules; empty if it is accepted';

CREATE FUNCTION korvoqr_codes(payload bytea) RETURNS text[]
    AS 'MODULE_PATHNAME', 'korvoqr_sql_codes_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 30;
COMMENT ON FUNCTION korvoqr_codes(bytea) IS
    'The code of every rule that a payload in UTF-8 violates, in the order of the rules; empty if it is accepted';

CREATE FUNCTION korvoqr_parse(payload text) RETURNS jsonb
    AS 'MODULE_PATHNAME', 'korvoqr_sql_parse_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 60;
COMMENT ON FUNCTION korvoqr_parse(text) IS
    'The record of a payload, without absent texts and false flags; null if it is refused';

CREATE FUNCTION korvoqr_parse(payload bytea) RETURNS jsonb
    AS 'MODULE_PATHNAME', 'korvoqr_sql_parse_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 60;
COMMENT ON FUNCTION korvoqr_parse(bytea) IS
    'The record of a payload in UTF-8, without absent texts and false flags; null if it is refused';

CREATE FUNCTION korvoqr_explain(payload text) RETURNS jsonb
    AS 'MODULE_PATHNAME', 'korvoqr_sql_explain_text'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
COMMENT ON FUNCTION korvoqr_explain(text) IS
    'All that is known about a payload: elements, violated rules, causes, and repairs, which nothing applies';

CREATE FUNCTION korvoqr_explain(payload bytea) RETURNS jsonb
    AS 'MODULE_PATHNAME', 'korvoqr_sql_explain_bytea'
    LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
COMMENT ON FUNCTION korvoqr_explain(bytea) IS
    'All that is known about a payload in UTF-8: elements, violated rules, causes, and repairs, which nothing applies';
