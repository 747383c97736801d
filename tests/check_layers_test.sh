#!/usr/bin/env bash
# The layer check must find an include that points up and an OS header in the wrong room.
set -u
check=$(cd "$(dirname "$0")/.." && pwd)/tools/check-layers
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
passed=0
failed=0

expect() { # NAME WANTED-EXIT WANTED-TEXT
    local out result=0
    out=$("$check" "$tree" 2>&1) || result=$?
    if [ "$result" = "$2" ] && grep -qF "$3" <<<"$out"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED %s: exit %s, %s\n' "$1" "$result" "$out"
    fi
    rm -rf "${tree:?}"/*
}
put() { mkdir -p "$tree/$(dirname "$1")" && printf '%s\n' "$2" >"$tree/$1"; }

put grid/A.h '#include "valuetext/B.h"'
expect "arrow down is accepted" 0 "every include points down"
put valuetext/A.h '#include "grid/B.h"'
expect "arrow up is found" 1 "valuetext/A.h:1: valuetext must not include grid/B.h"
put persist/A.cpp '#include "platform/FileSystem.h"'
expect "port below its room is found" 1 "persist must not include"
put grid/A.cpp '#include <windows.h>'
expect "OS header in the core is found" 1 "OS header outside platform/"
put binding/A.cpp '#include <unistd.h>'
expect "POSIX header in the core is found" 1 "OS header outside platform/"
put platform/win32/A.cpp '#include <windows.h>'
expect "OS header in its own room is accepted" 0 "every include points down"

printf '%d passed, %d failed\n' "$passed" "$failed"
[ "$failed" = 0 ]
