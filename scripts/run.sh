#!/usr/bin/env bash
# Installs what is missing, builds, and starts Vellumar on its demo installation (a texture
# library, and a Wine-style prefix with a stand-in simulator), built once in build/demo.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh build
cmake -S . -B build -G Ninja
cmake --build build --target vellumar vellumar-cli

demo="$PWD/build/demo"
if [ ! -f "$demo/home/cloud.ini" ]; then
    build/src/vellumar-cli demo "$demo" >/dev/null
fi
export WINEPREFIX="$demo/prefix"
export VELLUMAR_HOME="$demo/home"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
    echo "run: no display found; start this from a desktop session (or under xvfb-run -a)." >&2
    exit 1
fi
exec build/src/vellumar
