#!/usr/bin/env bash
# Installs the Debian 12 packages Vellumar needs, and nothing when they are all there already.
#
#   scripts/install-deps.sh [build] [windows] [bench] [fuzz] [screenshots] [package]
#
#   build        compilers, CMake, Qt 6 with its GStreamer plugins (the bad ones and a General
#                MIDI soundfont play MIDI files), giflib, libcdio (audio CDs and disc images),
#                GoogleTest, Google Benchmark, CLI11, libcrypto (SHA-256) and libarchive (set
#                archives) (the default)
#   bench        unzip, the floor the import of an archive is measured against
#   windows      the MinGW-w64 cross compiler, Wine and CLI11, for the Windows test suite
#   fuzz         clang and its sanitizer runtimes, for the libFuzzer targets
#   screenshots  Xvfb and ImageMagick, for screenshots of the windows
#   package      the Debian package and its checks: dpkg-dev (dpkg-shlibdeps), lintian,
#                desktop-file-utils, appstream, librsvg2-bin (the PNG icons), bash-completion
#                (the completion test), man-db
set -euo pipefail

declare -A groups=(
    [build]="cmake ninja-build g++ pkg-config ccache qt6-base-dev qt6-multimedia-dev
             gstreamer1.0-plugins-base gstreamer1.0-plugins-good libgtest-dev googletest
             libbenchmark-dev libcli11-dev libgif-dev libcdio-dev gstreamer1.0-plugins-bad
             timgm6mb-soundfont libssl-dev libarchive-dev"
    [windows]="cmake ninja-build g++-mingw-w64-x86-64-posix wine64 wine googletest libcli11-dev
               xvfb xauth"
    [bench]="unzip"
    [fuzz]="clang libclang-rt-14-dev"
    [screenshots]="xvfb xauth imagemagick x11-apps"
    [package]="dpkg-dev lintian desktop-file-utils appstream librsvg2-bin bash-completion man-db"
)

wanted=("$@")
[ ${#wanted[@]} -gt 0 ] || wanted=(build)

packages=()
for group in "${wanted[@]}"; do
    [ -n "${groups[$group]+x}" ] || { echo "install-deps: unknown group '$group'" >&2; exit 2; }
    # shellcheck disable=SC2206
    packages+=(${groups[$group]})
done

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "Installing: ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "install-deps: run as root or install sudo" >&2; exit 1; }
    sudo=sudo
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
