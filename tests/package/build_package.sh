#!/usr/bin/env bash
# Builds the Debian package as the README says (cpack -G DEB), into its own
# folder of the build tree, for the checks that follow.
# Usage: build_package.sh BUILD_DIR OUT_DIR
set -euo pipefail
build=$1
out=$2
rm -rf "$out"
mkdir -p "$out"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$out" >"$out/cpack.log" 2>&1 || {
    cat "$out/cpack.log"
    exit 1
}
ls "$out"/*.deb
