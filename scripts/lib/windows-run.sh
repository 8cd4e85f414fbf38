#!/bin/sh
# usage: windows-run.sh PROGRAM ARGUMENT...   runs a Windows program under Wine, without a display
# WINEPREFIX names the folder that stands for the Windows system; windows_session in windows.sh makes it.
: "${WINEPREFIX:?scripts/test-windows sets it}"
export WINEPREFIX LC_ALL=C.UTF-8 WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe,winedbg.exe="
unset DISPLAY
exec /usr/lib/wine/wine64 "$@"
