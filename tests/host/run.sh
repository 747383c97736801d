#!/usr/bin/env bash
# Runs the scripts of this folder in VeyHost under Wine and a virtual display.
# usage: tests/host/run.sh [NAME...]     WINEPREFIX is taken from the environment.
#        VEYHOST: the program to test, build/win64/VeyHost.exe by default.
#        VEYGRID_CODE_PAGE: where set, the system's code page must be that.
#
# A script tells in comment lines at its head what is expected of the run:
#   exit: CODE      of the program, 0 by default
#   stdout: TEXT    a line of standard output that must be there
#   stderr: TEXT    text that must be in standard error
#   args: ...       arguments besides /script
#   encoding: NAME  the script is handed over in that encoding (MARKED: UTF-8 with its mark)
#   databases: ...  the databases that it runs over, once each: sqlite, postgres
#   sql: TEXT       a statement that prepares the empty database, for the database's own client
# PostgreSQL is the server that VEYGRID_POSTGRES names, as tools/postgres.sh starts it.
# A script that ends with 0 must have logged "end"; no line may begin with "FAILED".
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
: "${WINEPREFIX:?run.sh: set WINEPREFIX}"
. "$root/tools/wine.sh"
if [ -z "${VEYHOST_DISPLAY:-}" ]; then
    VEYHOST_DISPLAY=1 exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi

host=${VEYHOST:-$root/build/win64/VeyHost.exe}
work=$root/build/tests-host
passed=0
failed=0

check_code_page() {
    [ -z "${VEYGRID_CODE_PAGE:-}" ] ||
        wine "${host%/*}/control_tests.exe" --gtest_filter=Locale.TheSystemsCodePageIsTheOneAskedFor \
            >/dev/null || { echo "run.sh: the code page is not $VEYGRID_CODE_PAGE"; exit 1; }
}

# expectations KEY FILE: the values that the head of a script gives to the key.
expectations() { sed -nE "s@^(//|') $1: (.*)\$@\\2@p" "$2" | tr -d '\r'; }

# hand_over FILE: the script with the checks behind it, in its encoding, in the work folder.
hand_over() {
    local name=${1##*/} encoding
    encoding=$(expectations encoding "$1")
    {
        case "$encoding" in
            UTF-16LE) printf '\xff\xfe' ;;
            UTF-16BE) printf '\xfe\xff' ;;
            MARKED) printf '\xef\xbb\xbf' && encoding=UTF-8 ;;
        esac
        # Behind it, so that the lines of errors are those of the test.
        {
            cat "$1" "$here/checks.${name##*.}.in"
            [ -z "$database" ] || cat "$here/data.vbs.in"
            [ -z "$database" ] || printf 'Function %s()\n%s = "%s"\nEnd Function\n' \
                Database Database "$database" Dsn Dsn "$(dsn)"
        } | iconv -f UTF-8 -t "${encoding:-UTF-8}"
    } >"$work/$name"
}

# trouble MESSAGE: notes what is wrong with the test that runs.
trouble() { problems+=("$1"); }

# report NAME: counts the test that ran and shows its problems.
report() {
    if [ "${#problems[@]}" = 0 ]; then
        passed=$((passed + 1))
        printf 'ok      %s\n' "$1"
        return
    fi
    failed=$((failed + 1))
    printf 'FAILED  %s\n' "$1"
    printf '        %s\n' "${problems[@]}"
    sed 's/^/        | /' "$work/stdout" "$work/stderr"
    [ ! -s "$work/outside.errors" ] || sed 's/^/        | outside: /' "$work/outside.errors"
}

# What scripts ask for with Outside: each request is a command line for this side of Wine, run in the
# work folder. The marker comes last on both sides, so that nothing is read half written.
serve_outside() {
    while true; do
        if [ -e "$work/outside.go" ]; then
            rm "$work/outside.go"
            (cd "$work" && bash outside.request >outside.answer 2>>outside.errors </dev/null)
            : >"$work/outside.done"
        fi
        sleep 0.02
    done
}

# start ARGUMENT...: runs the host in the work folder; its streams go to files there.
start() {
    (cd "$work" && timeout 300 wine "$host" "$@" >stdout 2>stderr </dev/null)
}

judge() {
    local file=$1 code=$2 wanted line
    wanted=$(expectations exit "$file")
    [ "$code" = "${wanted:-0}" ] || trouble "exit code $code in place of ${wanted:-0}"
    while read -r line; do trouble "$line"; done < <(grep '^FAILED' "$work/stdout")
    if [ "${wanted:-0}" = 0 ] && ! grep -qx end "$work/stdout"; then
        trouble "the script did not come to its end"
    fi
    while IFS= read -r line; do
        grep -qxF -- "$line" "$work/stdout" || trouble "no line on standard output: $line"
    done < <(expectations stdout "$file")
    while IFS= read -r line; do
        grep -qF -- "$line" "$work/stderr" || trouble "not on standard error: $line"
    done < <(expectations stderr "$file")
}

# The connection string of the database that the test runs over.
dsn() {
    case "$database" in
        sqlite) printf 'Driver=SQLite3;Database=%s' "$work/data.sqlite" ;;
        postgres) printf '%s' "$VEYGRID_POSTGRES" ;;
    esac
}
# The database's own client, with the statements on standard input.
client() {
    case "$database" in
        sqlite) sqlite3 -batch -bail -cmd '.timeout 20000' "$work/data.sqlite" ;;
        postgres) PGCLIENTENCODING=UTF8 psql -X -q -A -t -v ON_ERROR_STOP=1 ;;
    esac
}
prepare_database() {
    rm -f "$work/data.sqlite"
    [ "$database" != postgres ] || echo 'SET client_min_messages = error; DROP SCHEMA public CASCADE; CREATE SCHEMA public;' | client
    expectations sql "$1" | client
}
# While the script runs, it may ask the client: the statements stand in client.sql when client.ask is
# there, and the answer in client.out when that is gone.
serve_client() {
    while :; do
        if [ -f "$work/client.ask" ]; then
            client <"$work/client.sql" >"$work/client.out" 2>&1
            rm -f "$work/client.ask"
        fi
        sleep 0.05
    done
}

# run_over DATABASE FILE: the script over that database.
run_over() {
    local database=$1 server
    if [ "$database" = postgres ] && [ -z "${VEYGRID_POSTGRES:-}" ]; then
        printf 'not run %s: no VEYGRID_POSTGRES\n' "${2##*/} over postgres"
        return
    fi
    rm -f "$work"/client.*
    if ! prepare_database "$2" >"$work/prepared" 2>&1; then
        cat "$work/prepared"
    fi
    serve_client &
    server=$!
    run_test "$2"
    kill "$server"
    wait "$server" 2>/dev/null
}

# run_file FILE: over each database that it names, or once without any.
run_file() {
    local database='' names
    names=$(expectations databases "$1")
    if [ -z "$names" ]; then
        run_test "$1"
    fi
    for database in $names; do
        run_over "$database" "$1"
    done
}

run_test() {
    local file=$1 name=${1##*/} code=0
    local -a problems=() arguments=()
    read -ra arguments < <(expectations args "$file"; echo)
    hand_over "$file"
    rm -f "$work"/outside.*
    start "${arguments[@]}" /script "$name" || code=$?
    tr -d '\r' <"$work/stdout" >"$work/stdout.plain" && mv "$work/stdout.plain" "$work/stdout"
    judge "$file" "$code"
    report "$name${database:+ over $database}"
}

# command_line TITLE CODE STDERR ARGUMENT...: a run without a script of this folder.
command_line() {
    local title=$1 wanted=$2 text=$3 code=0
    local -a problems=()
    shift 3
    start "$@" || code=$?
    [ "$code" = "$wanted" ] || trouble "exit code $code in place of $wanted"
    [ -z "$text" ] || grep -qF -- "$text" "$work/stderr" || trouble "not on standard error: $text"
    [ -z "${picture:-}" ] || [ "$(picture_size "$work/$picture")" = "$size" ] ||
        trouble "$picture is not a picture of $size"
    report "$title"
}

# picture_size FILE: width and height as the head of a PNG file has them.
picture_size() {
    [ "$(head -c 8 "$1" | tail -c 7)" = $'PNG\r\n\x1a' ] &&
        od -An -tu1 -j16 -N8 "$1" | awk '{ print $3 * 256 + $4, $7 * 256 + $8 }'
}

command_lines() {
    command_line "an unknown option" 2 "usage: VeyHost.exe" /nonsense
    command_line "a size without height" 2 "wrong option /size" /size 300
    command_line "a locale that is none" 2 "wrong option /locale" /locale nowhere
    command_line "a statement without a connection" 2 "/sql without /dsn" /sql "SELECT 1"
    command_line "a database that is not there" 1 "VeyHost: " \
        /dsn "Driver=SQLite3;Database=/none/none.sqlite;NoCreat=1" /shot none.png
    command_line "a statement that is refused" 1 "no such table" \
        /dsn "Driver=SQLite3;Database=$work/empty.sqlite" /sql "SELECT a FROM t" /shot none.png
    sqlite3 "$work/made.sqlite" "CREATE TABLE 表 (a INTEGER PRIMARY KEY); INSERT INTO 表 VALUES (7)"
    printf 'If Grid.CellText(1, 1) <> "7" Or Data.RecordCount <> 1 Then Host.Quit 9\n' >"$work/one.vbs"
    command_line "a query" 0 "" /dsn "Driver=SQLite3;Database=$work/made.sqlite" \
        /sql "SELECT a FROM 表" /script one.vbs
    command_line "a script that is not there" 1 "cannot read none.vbs" /script none.vbs
    command_line "a file that is not there" 1 "cannot open none.grd" none.grd /shot none.png
    picture=shot.png size="300 200" command_line "a picture" 0 "" /shot shot.png /size 300 200
    printf 'Grid.CellText(3, 4) = "cell"\nGrid.SaveFile "made.grd"\n' >"$work/make.vbs"
    command_line "a file made by a script" 0 "" /script make.vbs
    printf 'If Grid.CellText(3, 4) <> "cell" Then Host.Quit 9\n' >"$work/look.vbs"
    command_line "a file named on the command line" 0 "" made.grd /script look.vbs
    mv "$work/made.grd" "$work/凭证 ~龘.grd"
    command_line "a file with a Chinese name" 0 "" "凭证 ~龘.grd" /script look.vbs
    mv "$work/look.vbs" "$work/脚本.vbs"
    command_line "a script with a Chinese name" 0 "" "凭证 ~龘.grd" /script "脚本.vbs"
    picture=图.png size="200 100" command_line "a picture with a Chinese name" 0 "" /shot "图.png" \
        /size 200 100
    command_line "a missing file with a Chinese name" 1 "cannot open 无.grd" 无.grd /shot none.png
}

[ -f "$host" ] || { echo "run.sh: no $host"; exit 1; }
rm -rf "$work"
mkdir -p "$work"
prepare_wine
check_code_page
serve_outside &
outside=$!
trap 'kill $outside' EXIT
shopt -s nullglob
if [ $# -gt 0 ]; then
    files=("${@/#/$here/}")
else
    files=("$here"/*.vbs "$here"/*.js)
    database=''
    command_lines
fi
for file in "${files[@]}"; do
    run_file "$file"
done
wineserver -w
printf '%d passed, %d failed\n' "$passed" "$failed"
[ "$failed" = 0 ]
