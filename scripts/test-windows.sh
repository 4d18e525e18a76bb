#!/usr/bin/env bash
# Builds the core and its tests for 64-bit Windows with MinGW-w64 and runs them under Wine, in a
# Wine prefix of its own (build-win/wineprefix), so that no test touches the user's ~/.wine.
#
#   scripts/test-windows.sh [extra ctest arguments]
set -euo pipefail
script="$(cd "$(dirname "$0")" && pwd)/$(basename "$0")"
cd "$(dirname "$script")/.."

build_dir=build-win

# What the cross build and Wine need; nothing is installed when all of it is there.
scripts/install-deps.sh windows

# The message box test needs windows, hence a display: without one, the rest of this script
# runs again under a virtual X server of its own.
if [ -z "${DISPLAY:-}" ]; then
    exec xvfb-run -a bash "$script" "$@"
fi

cmake -S . -B "$build_dir" -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake
cmake --build "$build_dir"

# --- A private prefix. Mono and Gecko are not wanted: asking to install them would stall. Nor
# is the debugger: it would hold a crashed test open until ctest's time limit.
export WINEPREFIX="$PWD/$build_dir/wineprefix"
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=,winedbg.exe=d"
mkdir -p "$WINEPREFIX"

# The server is started here and not by the first test: a server born inside ctest keeps
# ctest's output pipe open, and ctest then waits for it forever. One left from an earlier run
# may have started without this display, so it goes first.
wineserver -k 2>/dev/null || true
wineserver -w

# Make (or update) the prefix completely, and wait for every process of that to end, before a
# test runs in it: a test started while the prefix is still being made finds no system DLLs.
make_prefix() {
    wine wineboot --init >/dev/null 2>&1 || true
    wineserver -w
}
make_prefix
if [ ! -e "$WINEPREFIX/drive_c/windows/system32/kernel32.dll" ]; then
    echo "test-windows: the Wine prefix was left incomplete; making it again" >&2
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    make_prefix
fi

trap 'wineserver -k 2>/dev/null || true' EXIT
wineserver -p
wine cmd /c exit >/dev/null 2>&1 || true

status=0
ctest --test-dir "$build_dir" --output-on-failure "$@" || status=$?
exit $status
