#!/usr/bin/env bash
# Installs what is missing, builds, and starts Vellumar on its demo installation (a texture
# library, sounds and an audio CD image, and a Wine-style prefix with a stand-in simulator),
# built once in build/demo.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh build
cmake -S . -B build -G Ninja
cmake --build build --target vellumar vellumar-cli

demo="$PWD/build/demo"
cd_image="$demo/home/CD/Vellumar Demo.cue"
# A demo from before the audio CD is built again (a rebuild of the demo needs no --force).
if [ ! -f "$demo/home/cloud.ini" ] || [ ! -f "$cd_image" ]; then
    build/src/vellumar-cli demo "$demo" >/dev/null
fi
export WINEPREFIX="$demo/prefix"
export VELLUMAR_HOME="$demo/home"
# The CD player plays the demo's disc image, unless a disc or drive of your own is set.
export VELLUMAR_CD="${VELLUMAR_CD:-$cd_image}"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
    echo "run: no display found; start this from a desktop session (or under xvfb-run -a)." >&2
    exit 1
fi
exec build/src/vellumar
