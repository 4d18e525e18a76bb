#!/usr/bin/env bash
# Builds the core and its tests for 64-bit Windows with MinGW-w64 and runs them under Wine, in a
# Wine prefix of its own (build-win/wineprefix), so that no test touches the user's ~/.wine.
#
#   scripts/test-windows.sh [extra ctest arguments]
set -euo pipefail
cd "$(dirname "$0")/.."

build_dir=build-win

# --- What the cross build and Wine need; nothing is installed when all of it is there.
packages=(cmake ninja-build g++-mingw-w64-x86-64-posix wine64 wine googletest xvfb xauth)
missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "test-windows: installing ${missing[*]}"
    sudo=""
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "test-windows: run as root or install sudo" >&2; exit 1; }
        sudo=sudo
    fi
    export DEBIAN_FRONTEND=noninteractive
    $sudo apt-get update -qq
    $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

cmake -S . -B "$build_dir" -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake
cmake --build "$build_dir"

# --- A private prefix. Mono and Gecko are not wanted: asking to install them would stall.
export WINEPREFIX="$PWD/$build_dir/wineprefix"
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
mkdir -p "$WINEPREFIX"

# The message box test needs windows, hence a display; without one of our own, Xvfb serves.
# The Wine server is started here and not by the first test: a server born inside ctest keeps
# ctest's output pipe open, and ctest then waits for it forever.
run_suite() {
    wineserver -p
    trap 'wineserver -k 2>/dev/null || true' EXIT
    wine cmd /c exit >/dev/null 2>&1 || true
    status=0
    ctest --test-dir "$build_dir" --output-on-failure "$@" || status=$?
    return $status
}
export -f run_suite
export build_dir

if [ -z "${DISPLAY:-}" ]; then
    exec xvfb-run -a bash -c 'run_suite "$@"' run_suite "$@"
fi
run_suite "$@"
