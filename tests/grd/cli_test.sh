#!/bin/bash
# Drives the real program: commands, forms, refusals, exit codes, and that files stay as they were.
# Usage: cli_test.sh PROGRAM
set -u
export LC_ALL=C.UTF-8

grd=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failures=0
checks=0

fail() {
    failures=$((failures + 1))
    printf 'FAILED %s\n' "$*"
}

# expect NAME CODE ERROR COMMAND...: the exit code, and the error output as a pattern of the shell;
# an empty one means none. What the command writes goes to the file "out".
expect() {
    local name=$1 code=$2 error=$3 got
    shift 3
    checks=$((checks + 1))
    "$@" >out 2>err
    got=$?
    [ "$got" -eq "$code" ] || fail "$name: exit code $got in place of $code; $(head -1 err)"
    # shellcheck disable=SC2053
    [[ $(cat err) == $error ]] || fail "$name: error output '$(cat err)' in place of '$error'"
    if [ "$code" -ne 0 ] && [ -n "$error" ] && [ "$(wc -l <err)" -ne 1 ]; then
        fail "$name: $(wc -l <err) lines of error output in place of one"
    fi
}

# same NAME FILE: the file "out" against the text on the standard input.
same() {
    checks=$((checks + 1))
    diff - "$2" >difference || { fail "$1: not as expected"; cat difference; }
}

sums() {
    find . -type f ! -name out ! -name err ! -name difference ! -name sums -exec cksum {} + | sort
}
remember() { sums >sums; }
# unchanged NAME: no file has come, gone or changed since `remember`.
unchanged() {
    checks=$((checks + 1))
    sums | diff sums - >difference || { fail "$1: files changed"; cat difference; }
}

# --- A table with everything that separated text can hold.
printf '编号,名称,日期,金额\r\n1,"多福 ""巷"", 东",2024-02-29,12.50\r\n2,"两\n行",2024-3-1,-3\r\n007,,,\r\n' >表.csv
expect 'import' 0 '' "$grd" import 表.csv -o 表.grd
same 'import tells what it made' out <<'END'
表.grd: 3 rows, 4 columns (编号 string, 名称 string, 日期 date, 金额 number)
END

expect 'cells as text' 0 '' "$grd" cells 表.grd
same 'cells as text' out <<'END'
编号  名称           日期         金额
----  -------------  ----------  -----
1     多福 "巷", 东  2024-02-29  12.50
2     两\n行         2024-3-1       -3
007
END
expect 'cells as csv' 0 '' "$grd" cells 表.grd --as csv
cmp -s out 表.csv || fail 'cells as csv: not what was imported'
expect 'cells shown' 0 '' "$grd" cells 表.grd --as tsv --shown --no-header
same 'cells shown' out <<'END'
1	"多福 ""巷"", 东"	2024-02-29	12.50
2	"两
行"	2024-03-01	-3
007			
END
expect 'cells as json' 0 '' "$grd" cells 表.grd --as json --range R1:R2
same 'cells as json' out <<'END'
[
{"row":1,"col":1,"text":"1"},
{"row":1,"col":2,"text":"多福 \"巷\", 东"},
{"row":1,"col":3,"text":"2024-02-29"},
{"row":1,"col":4,"text":"12.50"},
{"row":2,"col":1,"text":"2"},
{"row":2,"col":2,"text":"两\n行"},
{"row":2,"col":3,"text":"2024-3-1"},
{"row":2,"col":4,"text":"-3"}
]
END
expect 'cells as html' 0 '' "$grd" cells 表.grd --as html --range C1:C2
grep -q '<tr><th>1</th><td>1</td><td>多福 &quot;巷&quot;, 东</td></tr>' out ||
    fail 'cells as html: row missing'
expect 'cells into a file' 0 '' "$grd" cells 表.grd --range R1C1 --no-header -o 一.txt
same 'cells into a file' 一.txt <<<1

expect 'check' 0 '' "$grd" check 表.grd
same 'check' out <<<"表.grd: ok, $(stat -c %s 表.grd) bytes, 9 cells, 4 formats, 0 parameters, 0 form objects"
expect 'info' 0 '' "$grd" info 表.grd
grep -qx '  MaxRow x MaxCol           3 x 4' out || fail 'info: size missing'
grep -qx '\* MaxCol                    4  (default 20)' out || fail 'info: mark missing'
expect 'info as json' 0 '' "$grd" info 表.grd --json
grep -q '"cells": 9' out || fail 'info as json: count missing'

expect 'get' 0 '' "$grd" get 表.grd R1C2 R9C9 r2c3
printf '多福 "巷", 东\n\n2024-3-1\n' | same 'get' out
expect 'get shown' 0 '' "$grd" get 表.grd R2C3 --shown
same 'get shown' out <<<2024-03-01

expect 'set into another file' 0 '' "$grd" set 表.grd R3C2=三 'R5C1=a b' -o 新.grd
expect 'diff' 1 '' "$grd" diff 表.grd 新.grd
same 'diff' out <<'END'
property LastRow: 3 -> 5
cell R3C2: nothing -> "三"
cell R5C1: nothing -> "a b"
END
expect 'diff of the same' 0 '' "$grd" diff 表.grd 表.grd
same 'diff of the same' out </dev/null
expect 'diff --brief' 1 '' "$grd" diff --brief 表.grd 新.grd
same 'diff --brief' out <<<'表.grd and 新.grd differ'
expect 'diff --json' 1 '' "$grd" diff --json 表.grd 新.grd
same 'diff --json' out <<'END'
[
{"part":"property","field":"LastRow","first":3,"second":5},
{"part":"cell","where":"R3C2","first":null,"second":"三"},
{"part":"cell","where":"R5C1","first":null,"second":"a b"}
]
END
cp 表.grd 原.grd
expect 'set in place' 0 '' "$grd" set 表.grd R3C2=三 'R5C1=a b'
expect 'set in place is set' 0 '' "$grd" diff 表.grd 新.grd
mv 原.grd 表.grd

for form in png pdf svg; do
    expect "render $form" 0 '' "$grd" render 表.grd -o "画.$form"
    same "render $form" out <<<"画.$form: 310 x 74 pixels"
done
for begin in png:89504e47 pdf:25504446 svg:3c3f786d; do
    [ "$(head -c 4 "画.${begin%:*}" | od -An -tx1 | tr -d ' ')" = "${begin#*:}" ] ||
        fail "render: 画.${begin%:*} is none"
done
expect 'render twice as large' 0 '' "$grd" render 表.grd -o 画.png --range R1C2:R2C3 --scale 2
same 'render twice as large' out <<<'画.png: 454 x 112 pixels'
expect 'render to the standard output' 0 '' "$grd" render 表.grd -o - --format png
cp out 画2.png
expect 'render to a file is the same' 0 '' "$grd" render 表.grd -o 画.png
cmp -s 画.png 画2.png || fail 'render to the standard output: another picture'
rm 画*
expect 'help' 0 '' "$grd" --help
grep -q '^Examples:' out || fail 'help: no examples'
for command in info cells import check diff set get render; do
    expect "help of $command" 0 '' "$grd" $command --help
    grep -q "^  grd $command" out || fail "help of $command: no example"
done
expect 'version' 0 '' "$grd" --version

# --- Other ways to hand over a table.
printf 'a\tb\n1\t2\n' >t.tsv
expect 'import of tabs' 0 '' "$grd" import t.tsv -o t.grd -q
expect 'import of tabs is read' 0 '' "$grd" get t.grd R1C2
same 'import of tabs is read' out <<<2
iconv -f UTF-8 -t GBK 表.csv >gbk.csv
expect 'import of GBK' 0 '' "$grd" import gbk.csv -o gbk.grd -q
expect 'import of GBK is the same' 0 '' "$grd" diff gbk.grd 表.grd
(printf '\xEF\xBB\xBF' && cat 表.csv) >bom.csv
expect 'import with a mark' 0 '' "$grd" import bom.csv -o bom.grd -q
expect 'import with a mark is the same' 0 '' "$grd" diff bom.grd 表.grd
"$grd" import /dev/stdin -o pipe.grd -q <表.csv 2>err || fail 'import from a redirected input'
# shellcheck disable=SC2002
cat 表.csv | "$grd" import /dev/stdin -o pipe.grd -q 2>err || fail 'import from a pipe'
expect 'import from a pipe is the same' 0 '' "$grd" diff pipe.grd 表.grd

# --- Refusals: one line, the right code, and everything as it was.
printf 'a,b\n1,"2\n' >open.csv
printf 'a,b\n1,"2"3\n' >behind.csv
printf 'a\n甲㘵乙\n' >rare.csv
printf 'a\n\xD6\n' >broken.csv
: >empty.csv
mkdir folder
remember
refuse() {
    expect "$@"
    unchanged "$1"
}
refuse 'no command' 2 'grd: a command is needed: *' "$grd"
refuse 'unknown command' 2 "grd: 'frob' is no command*" "$grd" frob
refuse 'no file' 2 'grd: info: FILE is required*' "$grd" info
refuse 'unknown option' 2 'grd: cells: there is no option --frob*' "$grd" cells 表.grd --frob
refuse 'unknown form' 2 "grd: cells: --as: 'pdf' is none of *" "$grd" cells 表.grd --as pdf
refuse 'wrong range' 2 "grd: cells: --range: 'A1:B2' is no range*" "$grd" cells 表.grd --range A1:B2
refuse 'wrong cell' 2 "grd: set: 'R0C1' is no cell*" "$grd" set 表.grd R0C1=x
refuse 'wrong assignment' 2 "grd: set: 'R1C1' assigns nothing*" "$grd" set 表.grd R1C1
refuse 'wrong types' 2 'grd: import: --types names 5 types*' \
    "$grd" import 表.csv -o x.grd --types string,string,string,string,string
refuse 'import onto itself' 2 'grd: import: ./表.csv cannot be read and written at once' \
    "$grd" import 表.csv -o ./表.csv
refuse 'cells onto itself' 2 'grd: cells: ./表.grd cannot be read and written at once' \
    "$grd" cells 表.grd --as csv -o ./表.grd
refuse 'render onto itself' 2 'grd: render: ./表.grd cannot be read and written at once' \
    "$grd" render 表.grd -o ./表.grd --format png
refuse 'unknown ending' 2 "grd: render: --output: 'x.gif' ends in none of .png, .pdf, .svg*" \
    "$grd" render 表.grd -o x.gif
refuse 'render outside of the sheet' 1 'grd: 表.grd: there is nothing to draw*' \
    "$grd" render 表.grd -o x.png --range R9
refuse 'missing file' 1 'grd: 没有.grd: no such file' "$grd" info 没有.grd
refuse 'missing file of diff' 2 'grd: 没有.grd: no such file' "$grd" diff 表.grd 没有.grd
refuse 'folder as file' 1 'grd: folder: is a folder' "$grd" check folder
refuse 'no grid file' 1 'grd: 表.csv: is not a grid file' "$grd" cells 表.csv
refuse 'empty file' 1 'grd: empty.csv: is empty, and no grid file' "$grd" check empty.csv
refuse 'empty table' 1 'grd: empty.csv: is empty' "$grd" import empty.csv -o x.grd
refuse 'open quote' 1 'grd: open.csv: line 2: the quote that opens a field is never closed' \
    "$grd" import open.csv -o x.grd
refuse 'text behind a quote' 1 'grd: behind.csv: line 2: text stands behind *' \
    "$grd" import behind.csv -o x.grd
refuse 'rare character' 1 "grd: rare.csv: line 2, column 1 (a): '㘵' U+3635 is not in code page 936*" \
    "$grd" import rare.csv -o x.grd
refuse 'broken character' 1 'grd: broken.csv: line 2, column 1 (a): byte 0xD6 is not UTF-8*' \
    "$grd" import broken.csv -o x.grd
refuse 'broken character of GBK' 1 'grd: broken.csv: line 2, column 1 (a): byte 0xD6 is not GBK*' \
    "$grd" import broken.csv -o x.grd --encoding gbk
refuse 'rare character in set' 1 "grd: 表.grd: R1C1: '㘵' U+3635 is not in code page 936*" \
    "$grd" set 表.grd R1C1=㘵
refuse 'missing folder' 1 'grd: nowhere/x.grd: there is no such folder' \
    "$grd" import 表.csv -o nowhere/x.grd
refuse 'folder as output' 1 'grd: folder: is a folder' "$grd" import 表.csv -o folder
refuse 'full device' 1 'grd: /dev/full: writing failed at byte 0: No space left on device' \
    "$grd" import 表.csv -o /dev/full
for form in png pdf svg; do
    refuse "full device for render $form" 1 'grd: /dev/full: writing failed *' \
        "$grd" render 表.grd -o /dev/full --format $form
done
refuse 'full device for cells' 1 'grd: /dev/full: writing failed *' "$grd" cells 表.grd -o /dev/full
expect 'rare character replaced' 0 'grd: rare.csv: ? stands for 1 character*' \
    "$grd" import rare.csv -o rare.grd --replace -q
expect 'rare character is a question mark' 0 '' "$grd" get rare.grd R1C1
same 'rare character is a question mark' out <<<'甲?乙'
rm rare.grd

# --- The standard output that takes nothing, or ends early.
for command in 'cells 表.grd' 'info 表.grd' 'check 表.grd' 'get 表.grd R1C1' 'diff 表.grd 新.grd' '--help'; do
    # shellcheck disable=SC2086
    "$grd" $command >/dev/full 2>err
    code=$?
    checks=$((checks + 1))
    want=1
    [[ $command == diff* ]] && want=2
    [ $code -eq $want ] || fail "full output of $command: exit code $code"
    [ "$(cat err)" = 'grd: standard output: No space left on device' ] ||
        fail "full output of $command: $(cat err)"
done
"$grd" cells 表.grd >&- 2>err && fail 'closed output: no failure'
grep -qx 'grd: standard output: Bad file descriptor' err || fail "closed output: $(cat err)"
seq 300000 >long.csv
"$grd" import long.csv -o long.grd -q
for command in 'cells --as text' 'cells --as csv' 'cells --as json' 'cells --as html' \
    'render --range R1:R1000 -o - --format svg'; do
    # shellcheck disable=SC2086
    { "$grd" $command long.grd 2>err; echo $? >code; } | head -1 >/dev/null
    [ -s err ] && fail "pipe that ends early: $(cat err)"
    [ "$(cat code)" = 0 ] || fail "pipe that ends early: exit code $(cat code)"
done
rm long.csv long.grd code

# --- A signal to end leaves no half-written file behind.
mkdir stopped
cp t.grd stopped/f.grd
before=$(cksum <stopped/f.grd)
seq 3000000 >long.csv
"$grd" import long.csv -o stopped/f.grd -q 2>err &
sleep 0.1
kill -TERM $!
wait $!
code=$?
checks=$((checks + 1))
[ $code -eq 143 ] || [ $code -eq 0 ] || fail "a signal: exit code $code"
[ $code -eq 0 ] || [ "$before" = "$(cksum <stopped/f.grd)" ] || fail 'a signal: file changed'
[ "$(find stopped -type f | wc -l)" -eq 1 ] || fail 'a signal: files left'
rm -r stopped long.csv

# --- Damaged files: every cut and leftover bytes are named with a position.
size=$(stat -c %s 表.grd)
for ((cut = 0; cut < size; cut += 100)); do
    head -c $cut 表.grd >cut.grd
    remember
    refuse "cut at $cut" 1 'grd: cut.grd: *' "$grd" check cut.grd
    refuse "set in a file cut at $cut" 1 'grd: cut.grd: *' "$grd" set cut.grd R1C1=x
    refuse "diff with a file cut at $cut" 2 'grd: cut.grd: *' "$grd" diff 表.grd cut.grd
done
(cat 表.grd && echo more) >cut.grd
remember
refuse 'bytes left over' 1 "grd: cut.grd: 5 bytes stand behind the last part, from byte $size on" \
    "$grd" check cut.grd
refuse 'set with bytes left over' 1 'grd: cut.grd: 5 bytes stand behind the last part *' \
    "$grd" set cut.grd R1C1=x
rm cut.grd

# --- Folders and files that may not be written. Root may, so nobody is asked.
as_nobody=()
if [ "$(id -u)" -eq 0 ]; then
    as_nobody=(setpriv --reuid=65534 --regid=65534 --clear-groups)
fi
chmod 755 .
mkdir locked
cp 表.grd locked/f.grd
chmod 444 locked/f.grd
chmod 555 locked
if "${as_nobody[@]}" test -x "$grd" -a -r 表.grd 2>/dev/null; then
    remember
    refuse 'new file in a locked folder' 1 'grd: locked/x.grd: may not be written' \
        "${as_nobody[@]}" "$grd" import 表.csv -o locked/x.grd
    refuse 'locked file' 1 'grd: locked/f.grd: may not be written' \
        "${as_nobody[@]}" "$grd" set locked/f.grd R1C1=x
    chmod 000 locked/f.grd
    refuse 'file that may not be read' 1 'grd: locked/f.grd: may not be read' \
        "${as_nobody[@]}" "$grd" info locked/f.grd
else
    echo "skipped: locked folders, which nobody could look into here"
fi
chmod 755 locked

# --- A disk that is full, where a small one can be made.
cat >small_disk.sh <<'END'
mount -t tmpfs -o size=16k tmpfs folder || exit 77
cp 表.grd folder/f.grd && before=$(cksum <folder/f.grd)
seq 100000 >many.csv
"$1" import many.csv -o folder/f.grd -q 2>err
code=$?
[ "$before" = "$(cksum <folder/f.grd)" ] || echo 'changed'
[ "$(find folder -type f | wc -l)" -eq 1 ] || echo 'files left'
[ $code -eq 1 ] || echo "exit code $code"
grep -q '^grd: folder/f.grd: writing failed at byte .*: No space left on device$' err || cat err
END
unshare -m bash small_disk.sh "$grd" >out 2>/dev/null
case $? in
    0 | 1) [ -s out ] && fail "full disk: $(cat out)" ;;
    *) echo "skipped: the full disk, which cannot be made here" ;;
esac

printf '%d passed, %d failed\n' $((checks - failures)) "$failures"
[ "$failures" -eq 0 ]
