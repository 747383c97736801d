# Sourced where Windows programs run under Wine. WINEPREFIX is the caller's to set, or own_prefix sets
# it; that one needs tools/steps.sh.

# Without its debugger, a crash ends a program at once.
export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES-mscoree,mshtml,winedbg.exe=}

# The system's ODBC takes the texts of statements through the locale's encoding.
case ${LC_ALL:-${LC_CTYPE:-${LANG:-}}} in
    *[Uu][Tt][Ff]*8) ;;
    *) export LC_ALL=C.UTF-8 ;;
esac

wine_settings=$(dirname "${BASH_SOURCE[0]}")/wine-settings.reg

# Makes the prefix where there is none, and sets in it what our programs need.
prepare_wine() {
    [ -d "$WINEPREFIX/drive_c" ] || wineboot --init || return 1
    wine reg import "$wine_settings" >/dev/null 2>&1 || return 1
    # A server that has no display must not serve what comes next.
    [ -n "${DISPLAY:-}" ] || wineserver -w
}

# Takes VeyGrid's own prefix.
own_prefix() {
    export WINEPREFIX=$VEY_CACHE/wine64
    mkdir -p "$VEY_CACHE"
    step "the Wine prefix" prepare_wine
}

# on_virtual_display COMMAND...: VEY_SCREEN is its size in pixels. The display must not end before the session that uses it does.
on_virtual_display() {
    # shellcheck disable=SC2016
    xvfb-run -a -s "-screen 0 ${VEY_SCREEN:-1280x1024}x24" bash -c '
        result=0
        "$@" || result=$?
        wineserver -w
        exit $result' _ "$@"
}
