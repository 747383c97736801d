#!/usr/bin/env bash
# Tests the automation reference: the committed pages are what the tables and the words give now, a
# member without words and words without a member are refused, fresh objects have the defaults that
# are told, and every example runs in VeyHost and logs what the comments behind its lines say.
# usage: tests/reference/run.sh [NAME...]     WINEPREFIX is taken from the environment.
#        VEYHOST: the program to run examples in, build/win64/VeyHost.exe by default.
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root" || exit 1
: "${WINEPREFIX:?run.sh: set WINEPREFIX}"
. tools/wine.sh
if [ -z "${VEYHOST_DISPLAY:-}" ]; then
    VEYHOST_DISPLAY=1 exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi

host=${VEYHOST:-$root/build/win64/VeyHost.exe}
reference=${REFERENCE:-$root/build/win64/automation-reference.exe}
prose=tools/reference/prose.txt
work=build/tests-reference
passed=0
failed=0

# judge NAME [DIFFERENCE]: counts a test; a difference is what went wrong.
judge() {
    if [ -z "${2:-}" ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED  %s\n%s\n' "$1" "$2"
    fi
}

pages() {
    REFERENCE=$reference tools/reference/make "$work" >"$work/make.out" 2>&1
    judge "the pages can be made" "$(cat "$work/make.out")"
    local page
    for page in automation.md automation.zh.md; do
        judge "docs/$page is up to date (tools/reference/make)" \
            "$(diff "docs/$page" "$work/$page" 2>&1 | head -n 20)"
    done
}

# refused TITLE WORDS TEXT: the program refuses those words and says so with that text.
refused() {
    if wine "$reference" "$2" "$work/none.md" "$work/none.zh.md" >"$work/refused" 2>&1; then
        judge "$1" "it was accepted"
    else
        judge "$1" "$(grep -qF -- "$3" "$work/refused" || cat "$work/refused")"
    fi
}
refusals() {
    awk '/^\[/ { off = ($0 == "[VeyGrid.MaxRow]") } !off' "$prose" >"$work/lacking.txt"
    refused "a member without words" "$work/lacking.txt" "no words for VeyGrid.MaxRow"
    { cat "$prose"; printf '[VeyGrid.MinRow]\nen = x\n'; } >"$work/extra.txt"
    refused "words without a member" "$work/extra.txt" "words for VeyGrid.MinRow, which is no member"
    sed 's/^zh = 是否画水平网格线。$//' "$prose" >"$work/onesided.txt"
    refused "words in one language" "$work/onesided.txt" "no zh for VeyGrid.ShowHGridLines"
}

# One script with a line for each plain default.
defaults() {
    awk '
        /^\[/ { name = substr($0, 2, length($0) - 2) }
        /^default = / && !/= (ambient|none)$/ {
            split(name, part, "[.]")
            value = substr($0, 11)
            object = part[1] == "VeyGrid" ? "Grid" : "CreateObject(\"VeyGrid." part[1] "\")"
            # An index where there is one; what is an object has its own test in its example.
            index_ = ""
            if (value ~ /CStr\(nRow\)/) { index_ = "(7)"; value = "\"7\"" }
            else if (value ~ /nCol/) { index_ = "(7)"; value = "\"G\"" }
            else if (part[2] ~ /^(ColWidth|RowHeight|RowName|ColName|ColType|KeyColumnFlag)$/) index_ = "(7)"
            else if (part[2] ~ /^(CellText|CellShowFormat)$/) index_ = "(7, 7)"
            else if (part[2] == "Param") index_ = "(\"p\")"
            else if (value ~ /CreateObject|Nothing|CellFormat$/) next
            printf "If Not (%s.%s%s = %s) Then Host.Log \"%s is \" & %s.%s%s\n",
                object, part[2], index_, value, name, object, part[2], index_
        }' "$prose" >"$work/defaults.vbs"
    judge "there are defaults" "$([ "$(wc -l <"$work/defaults.vbs")" -gt 70 ] || echo "but few")"
    judge "defaults of fresh objects" "$(play defaults.vbs)"
}

# play SCRIPT: what it logs. Through a file: what Wine keeps running would hold on to a pipe.
play() {
    (cd "$work" && timeout 60 wine "$host" /script "$1" >"$1.out" 2>&1 </dev/null)
    tr -d '\r' <"$work/$1.out"
}

# example NAME: the example of a member, as the prose has it.
example() {
    awk -v name="[$1]" '
        /^\[/ { here = $0 == name; on = 0 }
        here && on && /^  / { print substr($0, 3); next }
        { on = /^example =/ }' "$prose"
}
pending() {
    awk -v name="[$1]" '/^\[/ { here = $0 == name } here && sub(/^pending = /, "")' "$prose"
}

run_example() {
    local name=$1 file why difference
    file=$(tr -c 'A-Za-z0-9\n' - <<<"$name").vbs
    example "$name" >"$work/$file"
    [ -s "$work/$file" ] || { judge "$name" "it has no example"; return; }
    sed -nE "s/^.*  ' (.*)\$/\\1/p" "$work/$file" >"$work/$file.expected"
    play "$file" >"$work/$file.logged"
    difference=$(diff "$work/$file.expected" "$work/$file.logged")
    why=$(pending "$name")
    if [ -z "$why" ]; then
        judge "the example of $name" "$difference"
    elif [ -n "$difference" ]; then
        printf 'pending %s: %s\n' "$name" "$why"
    else
        judge "the example of $name" "it runs now: take the mark \"pending\" from $prose"
    fi
}

# page_example FILE: the indented script of a page, held to the comments behind its lines.
page_example() {
    sed -n 's/^    //p' "docs/$1" >"$work/$1.vbs"
    sed -nE "s/^.*  ' (.*)\$/\\1/p" "$work/$1.vbs" >"$work/$1.expected"
    play "$1.vbs" >"$work/$1.logged"
    judge "the example of docs/$1" "$(diff "$work/$1.expected" "$work/$1.logged")"
}

[ -f "$host" ] || { echo "run.sh: no $host"; exit 1; }
rm -rf "$work"
mkdir -p "$work"
prepare_wine
if [ $# -gt 0 ]; then
    names=("$@")
else
    pages
    refusals
    defaults
    page_example menu.md
    mapfile -t names < <(sed -nE 's/^\[(.*)\]$/\1/p' "$prose" | grep -v '^Page')
fi
for name in "${names[@]}"; do
    run_example "$name"
done
wineserver -w
printf '%d passed, %d failed\n' "$passed" "$failed"
[ "$failed" = 0 ]
