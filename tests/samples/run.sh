#!/usr/bin/env bash
# Tests the samples and the README's first script: they run in VeyHost, and grd reads from their files
# what belongs there.
# usage: tests/samples/run.sh     WINEPREFIX is taken from the environment.
#        GRD: the tool, build/native/grd by default; VEYHOST: the host, as samples/make takes it.
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root" || exit 1
. tools/wine.sh
: "${WINEPREFIX:?run.sh: set WINEPREFIX}"
if [ -z "${VEYHOST_DISPLAY:-}" ]; then
    VEYHOST_DISPLAY=1 on_virtual_display "$0"
    exit
fi

grd=${GRD:-build/native/grd}
file=build/samples/voucher.grd
passed=0
failed=0

# equal TITLE EXPECTED COMMAND...: what the command writes is what the file holds.
equal() {
    local title=$1 expected=$2 difference
    shift 2
    # Through a file: what Wine keeps running would hold on to a pipe.
    "$@" >build/samples/seen 2>&1
    if difference=$(diff "$expected" <(tr -d '\r' <build/samples/seen)); then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED  %s\n%s\n' "$title" "$difference"
    fi
}

# picture NAME SIZE: the sample's picture has so many pixels.
picture() {
    local file=build/samples/$1.png
    rm -f "$file"
    equal "the picture of the $1 is drawn" /dev/null samples/show "$1" "$file"
    equal "the size of the picture of the $1" <(echo "$2") \
        awk '{ print $3 * 256 + $4, $7 * 256 + $8 }' <(od -An -tu1 -j16 -N8 "$file")
}
# What a user sees of a sample of data: its script logs it.
look_at() (
    cd build/samples && cp "$root/tests/samples/$1.vbs" look.vbs &&
        wine "${VEYHOST:-$root/build/win64/VeyHost.exe}" "$1.grd" \
            /dsn "Driver=SQLite3;Database=$PWD/$1.sqlite" /script look.vbs
)
data_sample() {
    rm -f "build/samples/$1.grd" "build/samples/$1.sqlite"
    equal "the script of the $1 is silent" /dev/null samples/make "$1"
    equal "the file of the $1 is whole" "tests/samples/$1.check" "$grd" check "build/samples/$1.grd"
    equal "what the $1 shows" "tests/samples/$1.shown" look_at "$1"
    picture "$1" "$2"
}

first_script() (
    cd build/samples && wine "${VEYHOST:-$root/build/win64/VeyHost.exe}" /script first.vbs
)

mkdir -p build/samples
prepare_wine
rm -f "$file"
equal "the voucher's script is silent" /dev/null samples/make voucher
equal "the voucher's file is whole" tests/samples/voucher.check "$grd" check "$file"
equal "the voucher's cells" tests/samples/voucher.stored "$grd" cells "$file" --as csv
equal "what the voucher shows" tests/samples/voucher.shown "$grd" cells "$file" --shown
picture voucher "864 368"
data_sample journal "1086 440"
data_sample staff "853 440"
# The script that each README begins with, run as a reader would.
for page in README.md README.zh.md; do
    awk '/^```vb$/ { on = 1; next } /^```$/ { on = 0 } on' "$page" >build/samples/first.vbs
    sed -nE "s/^.*  ' (.*)\$/\\1/p" build/samples/first.vbs >build/samples/first.expected
    rm -f build/samples/first.grd
    equal "the first script of $page" build/samples/first.expected first_script
    equal "what the first script of $page saved" tests/samples/first.check \
        "$grd" check build/samples/first.grd
done
printf '%d passed, %d failed\n' "$passed" "$failed"
[ "$failed" = 0 ]
