#!/bin/bash
# Types the commands that docs/grd.md shows and holds what they write against what it shows.
# Usage: doc_test.sh PROGRAM PAGE
set -u
export LC_ALL=C.UTF-8

page=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/bin"
ln -s "$(realpath "$1")" "$folder/bin/grd"
PATH="$folder/bin:$PATH"
cd "$folder" || exit 1

# The page's sessions once as they stand, and once with what really comes.
awk '/^```console$/ { on = 1; next } /^```$/ { on = 0 } on' "$page" >shown
while IFS= read -r line; do
    if [[ $line == '$ '* ]]; then
        printf '%s\n' "$line"
        bash -c "${line:2}" 2>&1 | tr -d '\r'
    fi
done <shown >seen
commands=$(grep -c '^\$ ' shown)
[ "$commands" -gt 10 ] || { echo "few commands in $page"; exit 1; }
if ! diff shown seen; then
    echo "$((commands - 1)) passed, 1 failed"
    exit 1
fi
echo "$commands passed, 0 failed"
