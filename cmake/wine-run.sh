#!/bin/sh
# Runs a Windows program under Wine with a private prefix: wine-run.sh PREFIX PROGRAM [ARGS...]
# The prefix is created once, under a lock, so that parallel test runs do not race to build it;
# it has the drives D:, E: and F: over folders beside it.
set -e
prefix=$1
shift
case $prefix in /*) ;; *) prefix=$PWD/$prefix ;; esac
export WINEPREFIX="$prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=$(command -v wine64 || command -v wine)
mkdir -p "$prefix"
if [ ! -f "$prefix/.ready" ] || [ ! -L "$prefix/dosdevices/f:" ]; then
  (
    flock 9
    if [ ! -f "$prefix/.ready" ]; then
      "$wine" wineboot -i >/dev/null 2>&1 || true
      /usr/lib/wine/wineserver -w 2>/dev/null || wineserver -w 2>/dev/null || true
      touch "$prefix/.ready"
    fi
    # Drives D:, E: and F: for the path tests, each a folder of its own beside the prefix.
    for letter in d e f; do
      mkdir -p "$prefix-drives/$letter"
      ln -sfn "$prefix-drives/$letter" "$prefix/dosdevices/$letter:"
    done
  ) 9>"$prefix.lock"
fi
exec "$wine" "$@"
