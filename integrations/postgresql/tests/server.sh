# Sourced by tests with a database: starts a server of their own in the scratch folder $work, without a network. It is a
# copy of the system's PostgreSQL, so that extensions can be added to it; the system's own is neither changed nor started.

versions=(/usr/lib/postgresql/*/bin/postgres)
original=$(dirname "${versions[-1]%/*}")
# The programs find the other folders from where they are, if the copy is laid out like the original.
copy=$work/server
bin=$copy/lib/postgresql/${original##*/}/bin
as_owner=()
if ((EUID == 0)); then  # the server refuses to run as root
    as_owner=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
fi

# as_server COMMAND...: runs a program of the copy as the server's owner, and shows its output only when it fails.
as_server() {
    (cd "$work/cluster" && PATH=$bin:$PATH "${as_owner[@]}" "$@") > "$work/server.log" 2>&1 ||
        { cat "$work/server.log"; exit 1; }
}

# sql [OPTION of psql...]
sql() {
    "$bin/psql" -X -q -At -v ON_ERROR_STOP=1 -h "$work/cluster" -U owner -d postgres "$@"
}

copy_server() {
    mkdir -p "$copy"/{lib,share}/postgresql "$work/cluster"
    cp -r "$original" "$copy/lib/postgresql/"
    cp -r "/usr/share/postgresql/${original##*/}" "$copy/share/postgresql/"
    chmod 755 "$work"
    ((EUID != 0)) || chown nobody:nogroup "$work/cluster"
}

start_server() {
    as_server initdb -D "$work/cluster/data" -U owner -A trust -E UTF8 --locale=C --no-sync
    trap 'as_server pg_ctl -D "$work/cluster/data" -m immediate stop; rm -rf "$work"' EXIT
    as_server pg_ctl -D "$work/cluster/data" -l "$work/cluster/log" -w start \
        -o "-k $work/cluster -c listen_addresses= -c fsync=off"
    local folders="SELECT count(*) FROM pg_config WHERE name IN ('BINDIR', 'PKGLIBDIR', 'SHAREDIR')"
    [[ $(sql -c "$folders AND starts_with(setting, '$copy/')") == 3 ]]
}
