#!/bin/sh
# CTest's emulator for the Windows build: run-under-wine.sh WINE PROGRAM [ARGS...]
#
# Wine's server and service processes (wineserver, winedevice.exe, ...) start
# with the first Wine program and outlive it by a few seconds. Started by the
# test program they would inherit CTest's output pipe, and CTest would wait for
# them after every test. A Wine start-up with its output detached starts them
# first; on first use it also creates the Wine prefix (~/.wine), which takes
# some 10 seconds. Without a display Wine runs console programs as usual.
wine=$1
shift
export WINEDEBUG="${WINEDEBUG--all}"
# No prompts to install Mono or Gecko when the prefix is created.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES-mscoree,mshtml=}"
"$wine" wineboot >/dev/null 2>&1 </dev/null
exec "$wine" "$@"
