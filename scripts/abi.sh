#!/usr/bin/env bash
# Compares the binary interface of the working tree with the accepted one in docs/abi/MLCore.abi.xz, types and layouts included:
# scripts/abi.sh; --update accepts what there is. Builds with debug information in build/abi; needs abidiff (Debian:
# abigail-tools). Ends with abidiff's status: 0 nothing changed, 4 changed, 12 changed so that programs break.
set -u
# shellcheck source=common.sh
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
accepted=$ROOT/docs/abi/MLCore.abi.xz
work=$ROOT/build/abi
command -v abidiff >/dev/null || { say "abidiff is missing (Debian: abigail-tools)"; exit 1; }

logged abi-configure cmake -S "$ROOT" -B "$work" -G Ninja -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG="-g -O0" -DMLCORE_TESTS=OFF -DMLCORE_EXAMPLES=OFF &&
    logged abi-build cmake --build "$work" --parallel "$JOBS" &&
    abidw --headers-dir "$ROOT/MLCore" --no-show-locs --no-corpus-path --no-comp-dir-path --type-id-style hash \
        --out-file "$work/now.abi" "$work/lib/libMLCore.so" || exit 1
if [ "${1:-}" = --update ]; then
    xz --stdout "$work/now.abi" >"$accepted"
else
    xz --decompress --stdout "$accepted" >"$work/accepted.abi" && abidiff "$work/accepted.abi" "$work/now.abi"
fi
