# Sourced where Windows programs run under Wine. WINEPREFIX is the caller's to set, or own_prefix sets
# it after tools/steps.sh.

export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES-mscoree,mshtml=}

# Without a window manager, Wine waits two seconds for one whenever a window goes away. File dialogs
# begin in the folder of their last use, which may be another tree's.
prepare_wine() {
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
    wine reg delete 'HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\ComDlg32\LastVisitedMRU' \
        /f >/dev/null 2>&1
}

# Takes VeyGrid's own prefix, and makes it where there is none.
own_prefix() {
    export WINEPREFIX=$VEY_CACHE/wine64
    mkdir -p "$VEY_CACHE"
    [ -d "$WINEPREFIX/drive_c" ] || step "making a Wine prefix" wineboot --init
}

# on_virtual_display COMMAND...: the display must not end before the session that uses it does.
on_virtual_display() {
    # shellcheck disable=SC2016
    xvfb-run -a -s "-screen 0 1280x1024x24" bash -c '
        result=0
        "$@" || result=$?
        wineserver -w
        exit $result' _ "$@"
}
