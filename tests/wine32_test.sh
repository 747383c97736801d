#!/usr/bin/env bash
# The runner of x86 programs must hand on arguments, output and exit codes, and leave nothing behind.
set -u
. "$(dirname "$0")/../tools/steps.sh"
runner=$VEY_ROOT/tools/wine32
wine_programs=$VEY_CACHE/i386-root/usr/lib/i386-linux-gnu/wine/i386-windows
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0

verdict() { # NAME TRUE-OR-FALSE DETAIL
    if "$2"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED %s: %s\n' "$1" "$3"
    fi
}
in_chinese() { env LC_ALL=zh_CN.UTF-8 "$VEY_ROOT/tools/wine32" "$@"; }
without_mounting() { setpriv --bounding-set=-sys_admin --inh-caps=-sys_admin "$VEY_ROOT/tools/wine32" "$@"; }
expect() { # NAME WANTED-EXIT WANTED-TEXT ARG...
    local name=$1 wanted=$2 text=$3 out result=0 fits=false
    shift 3
    out=$("$runner" "$@" 2>&1) || result=$?
    [ "$result" = "$wanted" ] && LC_ALL=C grep -qF -- "$text" <<<"$out" && fits=true
    verdict "$name" $fits "exit $result, $out"
}
# What this test has started and still runs: its folder stands in the arguments.
running() { grep -lsF -f <(printf '%s' "$work") /proc/[0-9]*/cmdline; }
nothing_left() { # NAME
    local fits=false mounted
    mounted=$(grep -F i386-root /proc/mounts)
    [ -z "$mounted$(running)" ] && fits=true
    verdict "$1" $fits "$mounted $(running)"
}

expect "no command is refused" 2 "usage:"
expect "run without a program is refused" 2 "usage:" run
expect "missing file is named" 1 "no such program: $work/none.exe" run "$work/none.exe"
expect "unknown name is named" 1 "no such program: nonesuch" run nonesuch
expect "root that is there is ready" 0 "" ready
expect "exit code comes through" 7 "" run cmd /c exit 7
expect "arguments keep their blanks" 0 "two  words" run cmd /c "echo two  words"
expect "program is 32-bit" 0 "x86" run cmd /c "echo %PROCESSOR_ARCHITECTURE%"
runner=in_chinese expect "locale is passed on" 0 $'\xB5\xB1\xC7\xB0' run cmd /c chcp
cp "$wine_programs/cmd.exe" "$work/a b.exe"
expect "file outside the project runs" 0 "here" run "$work/a b.exe" /c "echo here"
expect "several run one after the other" 0 "" run-all hostname hostname
expect "one of several that fails is told" 1 "Usage" run-all hostname regsvr32 hostname
expect "none of several runs when one is missing" 1 "no such program: nonesuch" run-all hostname nonesuch
nothing_left "nothing stays after runs"

"$runner" run cmd /c "pause & rem $work" >/dev/null 2>&1 < <(sleep 20) &
sleep 3
verdict "program is running before the signal" "$([ "$(running)" ] && echo true || echo false)" ""
kill -TERM $!
wait $! 2>/dev/null
sleep 1
nothing_left "nothing stays after a signal"

# What stands between a machine and its root is the last line said. sudo would bring its own PATH.
if [ "$(id -u)" = 0 ]; then
    export XDG_CACHE_HOME=$work/cache
    mkdir "$work/bin"
    printf '#!/bin/sh\nmkdir -p "$6/usr"\necho "E: the mirror is away"\nexit 1\n' >"$work/bin/debootstrap"
    chmod +x "$work/bin/debootstrap"
    expect "no root is not ready" 1 "there is no i386 root yet" ready
    expect "run without a root says so" 1 "tools/wine32 setup" run cmd
    PATH=$work/bin:$PATH expect "mirror that is away is told" 1 "E: the mirror is away" setup
    expect "interrupted root is not ready" 1 "there is no i386 root yet" ready
    runner=without_mounting expect "mounting that is not permitted is told" 1 "not permitted here" setup
fi

printf '%d passed, %d failed\n' "$passed" "$failed"
[ "$failed" = 0 ]
