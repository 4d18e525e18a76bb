#!/usr/bin/env bash
# Installs what is missing, builds, and starts Vellumar.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh build
cmake -S . -B build -G Ninja
cmake --build build --target vellumar vellumar-cli

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
    echo "run: no display found; start this from a desktop session (or under xvfb-run)." >&2
    exit 1
fi
exec build/src/vellumar
