#!/usr/bin/env bash
# Builds the Debian package of Vellumar into build/ (build/vellumar_<version>-1_<arch>.deb) and
# checks it with lintian.
#
#   scripts/package.sh
#
# Install it with: sudo apt install ./build/vellumar_*.deb
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh build package

build_dir=build
# The release build of CMakePresets.json, installed under /usr inside the package.
cmake --preset release
cmake --build --preset release
rm -f "$build_dir"/vellumar_*.deb
cpack --preset deb

package=$(ls "$build_dir"/vellumar_*.deb)
echo "package: $package"
# Errors fail the build; warnings are shown.
lintian --fail-on error "$package"
