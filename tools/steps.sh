# Sourced by ./run, ./test and others: steps that say what they do, show progress and keep logs.

VEY_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
VEY_LOGS=$VEY_ROOT/build/logs
VEY_CACHE=${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/veygrid
mkdir -p "$VEY_LOGS"

say() { printf '%s\n' "$*"; }

die() {
    printf '%s\n' "$*" >&2
    exit 1
}

# step TITLE COMMAND... runs the command with its output in a log of its own. A step that takes
# longer than two seconds shows how far it is: on a terminal in place, elsewhere a line each
# fifteen seconds. A failing step shows the end of its log and ends the program.
step() {
    local title=$1 log
    shift
    log=$VEY_LOGS/$(printf '%s' "$title" | tr -cs 'A-Za-z0-9' '-').log
    try_step "$title" "$log" "$@" && return 0
    tail -n 40 "$log" >&2
    die "failed: $title (whole log: ${log#"$VEY_ROOT"/})"
}

# The same with a given log, and with the command's result in place of the end.
try_step() {
    local title=$1 log=$2 start=$SECONDS pid result=0
    shift 2
    "$@" >"$log" 2>&1 </dev/null &
    pid=$!
    # What runs in the background does not see the terminal's interrupt.
    trap 'kill "$pid" 2>/dev/null; exit 130' INT TERM
    show_progress "$pid" "$title" "$log"
    wait "$pid" || result=$?
    trap - INT TERM
    local took=$((SECONDS - start)) end=ok
    [ "$result" = 0 ] || end=FAILED
    [ -t 1 ] && printf '\r\033[K'
    printf '%-58s %s, %d s\n' "$title" "$end" "$took"
    return "$result"
}

show_progress() {
    local pid=$1 title=$2 log=$3 start=$SECONDS last=0 elapsed
    while kill -0 "$pid" 2>/dev/null; do
        sleep 0.2
        elapsed=$((SECONDS - start))
        [ "$elapsed" -lt 2 ] && continue
        if [ -t 1 ]; then
            printf '\r\033[K%s … %d s %s' "$title" "$elapsed" "$(last_line "$log")"
        elif [ $((elapsed / 15)) -gt "$last" ]; then
            last=$((elapsed / 15))
            printf '%s … %d s %s\n' "$title" "$elapsed" "$(last_line "$log")"
        fi
    done
}

last_line() { tail -n 1 "$1" 2>/dev/null | tr -d '\r\033' | cut -c1-60; }
