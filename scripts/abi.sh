#!/usr/bin/env bash
# Compares the binary interface of the working tree with a version's, types and layouts included: scripts/abi.sh [VERSION], a
# commit or a tag, the last tag unless told. Builds both with debug information in build/abi; needs abidiff (Debian:
# abigail-tools). Ends with abidiff's status: 0 nothing changed, 4 changed, 12 changed so that programs break.
set -u
# shellcheck source=scripts/common.sh
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
base=${1:-$(git -C "$ROOT" describe --tags --abbrev=0)} || exit 1
base=$(git -C "$ROOT" rev-parse --short "$base^{commit}") || exit 1
command -v abidiff >/dev/null || { say "abidiff is missing (Debian: abigail-tools)"; exit 1; }
work=$ROOT/build/abi

# debug_build NAME SOURCES
debug_build() {
    logged "abi-$1-configure" cmake -S "$2" -B "$work/$1" -G Ninja -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_CXX_FLAGS_DEBUG="-g -O0" -DMLCORE_TESTS=OFF -DMLCORE_EXAMPLES=OFF &&
        logged "abi-$1-build" cmake --build "$work/$1" --parallel "$JOBS"
}

mkdir -p "$work"
if [ ! -f "$work/$base.abi" ]; then
    rm -rf "$work/sources" "$work/base" && mkdir -p "$work/sources" &&
        git -C "$ROOT" archive "$base" | tar x -C "$work/sources" &&
        debug_build base "$work/sources" &&
        abidw --headers-dir "$work/sources/MLCore" --out-file "$work/$base.abi" "$work/base/lib/libMLCore.so" || exit 1
fi
debug_build now "$ROOT" || exit 1
abidiff --headers-dir2 "$ROOT/MLCore" "$work/$base.abi" "$work/now/lib/libMLCore.so"
