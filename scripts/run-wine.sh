#!/bin/sh
# run-wine.sh program.exe [arguments]
# Runs a Windows program in a Wine prefix of the project's own. The default is Wine's null graphics
# driver: no display is needed and nothing is shown. VORN_WINE_X11=1 shows windows on $DISPLAY.
# VORN_WINEPREFIX moves the prefix; "-null" or "-x11" is appended to it.
mode=null
[ -n "$VORN_WINE_X11" ] && mode=x11
export WINEPREFIX="${VORN_WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/vorncomctl-wine}-$mode"
export WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="mscoree,mshtml=" LC_ALL=C.UTF-8
[ $mode = null ] && unset DISPLAY
mkdir -p "$WINEPREFIX"
exec 9>"$WINEPREFIX/.lock"
flock 9
# Services that Wine starts inherit our output; a reader of the pipe would then wait for them.
# None of this takes long; a Wine that hangs must not hang all that wait for the lock.
quietly() { timeout 120 "$@" 9>&- </dev/null >/dev/null 2>&1; }
if [ ! -e "$WINEPREFIX/.ready" ]; then
  # What is there was left by an attempt that was cut off.
  quietly wineserver -k
  rm -rf "$WINEPREFIX/drive_c" "$WINEPREFIX/dosdevices" "$WINEPREFIX"/*.reg "$WINEPREFIX/.update-timestamp"
  quietly wineboot -i
  quietly wineserver -w
  # Debian's Wine does not look for its own fonts outside the prefix.
  cp /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts/" || exit 99
  theme='HKCU\Software\Microsoft\Windows\CurrentVersion\ThemeManager'
  quietly wine reg add "$theme" /v ThemeActive /d 0 /f
  quietly wine reg delete 'HKCU\Control Panel\Colors' /f
  quietly wine reg copy "$theme\\Control Panel\\Colors" 'HKCU\Control Panel\Colors' /f
  quietly wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
  quietly wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
  [ $mode = null ] && quietly wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
  quietly wineserver -k
  quietly wineserver -w
  touch "$WINEPREFIX/.ready"
fi
# A persistent server makes a process start in 30 ms instead of seconds; -k0 asks whether it runs.
quietly wineserver -k0 || { quietly wineserver -p; quietly wine cmd /c exit; }
exec 9>&-
exec wine "$@"
