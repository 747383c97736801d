# Sourced where Windows programs run under Wine. WINEPREFIX is the caller's to set.

export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES-mscoree,mshtml=}

# Without a window manager, Wine waits two seconds for one whenever a window goes away.
prepare_wine() {
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
}
