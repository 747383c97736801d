#!/usr/bin/env bash
# Types Chinese on the sheet with a real input method: fcitx5 over XIM, its keys through the X server,
# on a display, a message bus and in folders of its own.
# usage: tests/host/ime.sh [NAME...]     as tests/host/run.sh; the scripts are those of the folder ime.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
: "${WINEPREFIX:?ime.sh: set WINEPREFIX}"
. "$root/tools/wine.sh"
if [ -z "${VEYHOST_IME_DISPLAY:-}" ]; then
    VEYHOST_IME_DISPLAY=1 exec xvfb-run -a -s "-screen 0 1280x1024x24" dbus-run-session -- "$0" "$@"
fi

desk=$root/build/tests-ime
result=0

# own_folders: nothing of the user's is read or written, and nothing is learnt from run to run.
own_folders() {
    rm -rf "$desk"
    mkdir -p "$desk/config/fcitx5/conf" "$desk/data" "$desk/cache"
    mkdir -m 700 "$desk/run"
    export HOME=$desk XDG_CONFIG_HOME=$desk/config XDG_DATA_HOME=$desk/data \
        XDG_CACHE_HOME=$desk/cache XDG_RUNTIME_DIR=$desk/run
}

# start_input_method ONTHESPOT: Pinyin alone, so that it is on from the first key.
start_input_method() {
    cat >"$desk/config/fcitx5/profile" <<TXT
[Groups/0]
Name=Default
Default Layout=us
DefaultIM=pinyin

[Groups/0/Items/0]
Name=pinyin
Layout=

[GroupOrder]
0=Default
TXT
    printf 'UseOnTheSpot=%s\n' "$1" >"$desk/config/fcitx5/conf/xim.conf"
    printf 'CloudPinyinEnabled=False\n' >"$desk/config/fcitx5/conf/pinyin.conf"
    fcitx5 --disable=wayland,waylandim,ibusfrontend,cloudpinyin,kimpanel,notifications,clipboard \
        >"$desk/fcitx5.log" 2>&1 &
    method=$!
    for _ in $(seq 600); do
        xprop -root XIM_SERVERS 2>/dev/null | grep -q fcitx && return 0
        sleep 0.1
    done
    echo "ime.sh: fcitx5 does not serve after 60 s"
    cat "$desk/fcitx5.log"
    return 1
}
stop_input_method() {
    kill "$method" && wait "$method"
    return 0
}

# in_style NAME ONTHESPOT SCRIPT...: all scripts with one of Wine's ways to show a composition.
in_style() {
    local name=$1 on_the_spot=$2
    shift 2
    echo "-- $name"
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v InputStyle /d "$name" /f >/dev/null
    wineserver -w
    start_input_method "$on_the_spot" || exit 1
    XMODIFIERS=@im=fcitx VEYHOST_DISPLAY=1 VEYHOST_STYLE=$name "$here/run.sh" "$@" || result=1
    stop_input_method
}

own_folders
prepare_wine
if [ $# = 0 ]; then
    scripts=("$here"/ime/*.vbs)
    set -- "${scripts[@]#"$here"/}"
fi
in_style onthespot True "$@"
in_style overthespot False "$@"
wine reg delete 'HKCU\Software\Wine\X11 Driver' /v InputStyle /f >/dev/null
wineserver -w
exit "$result"
