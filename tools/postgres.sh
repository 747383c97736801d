#!/usr/bin/env bash
# A private PostgreSQL server on this machine's loopback, for tests and samples. It has a port, a data
# folder and a password of its own, so the machine's clusters stay as they are.
# usage: tools/postgres.sh COMMAND...    runs the command beside a server that ends with it
#        . tools/postgres.sh             gives start_postgres and stop_postgres; after tools/steps.sh
#
# While it runs, VEYGRID_POSTGRES is its ODBC connection string, and PGHOST, PGPORT, PGUSER, PGPASSWORD
# and PGDATABASE tell psql the same.

postgres_bin=/usr/lib/postgresql/15/bin
postgres_folder=

# The server refuses to run for root; the package's own user stands in.
as_postgres() {
    if [ "$(id -u)" = 0 ]; then
        (cd / && runuser -u postgres -- env -u LC_ALL LANG=C.UTF-8 "$@")
    else
        env -u LC_ALL LANG=C.UTF-8 "$@"
    fi
}

# start_postgres: starts the server and exports what its clients need. Ends the program where that
# fails. The server ends with this shell, however that ends.
start_postgres() {
    postgres_folder=$VEY_ROOT/build/postgres.$$
    mkdir -p "$VEY_ROOT/build"
    # A checkout below root's own folder is out of reach for the server's user.
    as_postgres test -x "$VEY_ROOT/build" || postgres_folder=/tmp/veygrid-postgres.$$
    trap stop_postgres EXIT
    step "the private PostgreSQL server" launch_postgres
    # shellcheck source=/dev/null
    . "$postgres_folder/clients"
}

launch_postgres() {
    local password port try
    password=$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')
    rm -rf "$postgres_folder"
    install -d -m 700 "$postgres_folder" || return 1
    [ "$(id -u)" != 0 ] || chown postgres "$postgres_folder" || return 1
    printf '%s\n' "$password" >"$postgres_folder/password"
    chmod 644 "$postgres_folder/password" # in a folder that is closed to others
    as_postgres "$postgres_bin/initdb" -D "$postgres_folder/data" -U veygrid -E UTF8 \
        --locale=C.UTF-8 -A scram-sha-256 --pwfile="$postgres_folder/password" --no-sync || return 1
    for try in 1 2 3 4 5 6 7 8; do
        # Below the range that the system takes ports of outgoing connections from.
        port=$((10000 + (RANDOM * 32768 + RANDOM) % 20000))
        if as_postgres "$postgres_bin/pg_ctl" -D "$postgres_folder/data" -w -t 120 \
            -l "$postgres_folder/log" -o "-p $port -c listen_addresses=127.0.0.1 \
            -c unix_socket_directories= -c fsync=off -c full_page_writes=off" start; then
            tell_clients "$port" "$password" >"$postgres_folder/clients"
            return 0
        fi
        cat "$postgres_folder/log"
        echo "port $port: try $try failed"
    done
    return 1
}

tell_clients() {
    cat <<TXT
export PGHOST=127.0.0.1 PGPORT=$1 PGUSER=veygrid PGPASSWORD=$2 PGDATABASE=postgres
export VEYGRID_POSTGRES='Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=$1;Database=postgres;Uid=veygrid;Pwd=$2'
TXT
}

stop_postgres() {
    [ -n "$postgres_folder" ] || return 0
    if [ -f "$postgres_folder/data/postmaster.pid" ]; then
        as_postgres "$postgres_bin/pg_ctl" -D "$postgres_folder/data" -m immediate -w stop >/dev/null
    fi
    rm -rf "$postgres_folder"
    postgres_folder=
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then
    set -uo pipefail
    [ $# -gt 0 ] || { echo "usage: tools/postgres.sh COMMAND..." >&2; exit 2; }
    . "${BASH_SOURCE[0]%/*}/steps.sh"
    . "${BASH_SOURCE[0]%/*}/setup.sh"
    need "${PACKAGES_DATA[@]}"
    start_postgres
    "$@"
fi
