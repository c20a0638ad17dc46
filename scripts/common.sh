# Shared by ./run, ./test and .ci/run: what has to be installed, and the steps of a build. Sourced, not run.
# shellcheck shell=bash disable=SC2034

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
LOGS=$ROOT/build/log
JOBS=${JOBS:-$(nproc 2>/dev/null || echo 2)}
# Warnings are errors where nobody looks at them.
[ "${CI:-}" = true ] && : "${MLCORE_WERROR:=ON}"
MLCORE_WERROR=${MLCORE_WERROR:-OFF}

# Debian packages: for every build, and what each further target adds.
PACKAGES_BASE="g++ cmake ninja-build ccache pkg-config libsodium-dev googletest tzdata"
PACKAGES_CHECKS="clang-format-14 libxml2-utils doxygen gdb"
PACKAGES_CLANG="clang-14 libclang-rt-14-dev llvm-14"
PACKAGES_WINDOWS="g++-mingw-w64-x86-64-posix wine wine64"
PACKAGES_PACKAGE="lintian dpkg-dev file"
PACKAGES_BENCH="libbenchmark-dev"
PACKAGES_PEERS="libquantlib0-dev libboost-dev libboost-date-time-dev qtbase5-dev libabsl-dev libpoco-dev libsqlite3-dev
libgnustep-base-dev gobjc++ libfccp-dev libcsv-dev libxml2-dev libspdlog-dev"
PACKAGES_COVERAGE="gcovr"

say() { printf '%s\n' "$*"; }

# logged NAME COMMAND...: runs it with its noise in a log file, whose end is shown when it fails.
logged() {
    local log=$LOGS/$1.log
    shift
    mkdir -p "$LOGS"
    if ! "$@" >"$log" 2>&1 </dev/null; then
        say "failed: $*" "the end of ${log#"$ROOT"/}:"
        tail -n 40 "$log"
        return 1
    fi
}

# need PACKAGE...: installs those that are missing. A system without dpkg brings its own tools.
need() {
    command -v dpkg-query >/dev/null || return 0
    local package missing=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "installing: ${missing[*]}"
    local root=()
    if [ "$(id -u)" != 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "not root, and no sudo: please install these packages, then try again"
            return 1
        fi
        # Asks for the password before the output goes to the log.
        sudo true || return 1
        root=(sudo)
    fi
    logged apt-update "${root[@]}" apt-get update &&
        logged apt-install "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures and builds one preset; without targets, everything.
build() {
    local preset=$1 target targets=()
    shift
    for target in "$@"; do targets+=(--target "$target"); done
    say "building $preset"
    (
        cd "$ROOT" || exit 1
        logged "$preset-configure" cmake --preset "$preset" -DMLCORE_WERROR="$MLCORE_WERROR" &&
            logged "$preset-build" cmake --build "build/$preset" --parallel "$JOBS" "${targets[@]}"
    )
}

# count_results LOG: "PASSED FAILED" of a verbose ctest log. A GoogleTest program counts with each of its tests, any other
# entry as one; a program that ends badly though no test of it failed counts as one failure, one that was skipped not at all.
count_results() {
    awk '
        { sub(/\r$/, "") }
        /^[0-9]+: \[       OK \] .* ms\)$/ { split($0, part, ":"); good[part[1]]++; next }
        /^[0-9]+: \[  FAILED  \] .* ms\)$/ { split($0, part, ":"); bad[part[1]]++; next }
        /^ *[0-9]+\/[0-9]+ Test +#[0-9]+: / {
            if ($0 ~ /\*\*\*Skipped/) next
            match($0, /#[0-9]+/)
            test = substr($0, RSTART + 1, RLENGTH - 1)
            ok = $0 ~ / Passed +[0-9.]+ sec$/
            passed += good[test]
            failed += bad[test]
            if (ok && !good[test]) passed++
            if (!ok && !bad[test]) failed++
        }
        END { print passed + 0, failed + 0 }' "$1"
}

TOTAL_PASSED=0
TOTAL_FAILED=0

# add_results WHAT PASSED FAILED
add_results() {
    TOTAL_PASSED=$((TOTAL_PASSED + $2))
    TOTAL_FAILED=$((TOTAL_FAILED + $3))
    say "$1: $2 passed, $3 failed"
}

# run_tests PRESET [WRAPPER...]: runs ctest on a build, shows the failures, and adds to the totals.
run_tests() {
    local preset=$1 log=$LOGS/$1-test.log counts
    shift
    say "testing $preset"
    mkdir -p "$LOGS"
    "$@" ctest --test-dir "$ROOT/build/$preset" --parallel "$JOBS" --verbose --no-tests=error \
        >"$log" 2>&1 </dev/null
    local status=$?
    read -r -a counts <<<"$(count_results "$log")"
    # ctest itself can fail without a failed test: nothing to run, no build.
    [ $status -eq 0 ] || [ "${counts[1]}" -gt 0 ] || counts[1]=1
    if [ "${counts[1]}" -gt 0 ]; then
        show_failures "$log"
        say "all of it: ${log#"$ROOT"/}"
    fi
    add_results "$preset" "${counts[@]}"
}

# show_failures LOG: what the failed tests printed, shortened.
show_failures() {
    awk '
        { sub(/\r$/, "") }
        /^[0-9]+: / {
            test = $0; sub(/:.*/, "", test)
            line = $0; sub(/^[0-9]+: /, "", line)
            if (line ~ /^\[ RUN      \]/) current[test] = line "\n"
            # A sanitizer may complain while the test itself is content.
            else if (line ~ /^\[       OK \]/ && current[test] !~ /Sanitizer/) current[test] = ""
            else if (line ~ /^\[       OK \]|^\[  FAILED  \] .* ms\)$/) {
                shown[test] = shown[test] current[test] line "\n"
                current[test] = ""
            }
            else if (line ~ /^(Test command|Working Directory|Environment variables|Test timeout)/ || line ~ /^  ?[A-Z]+=/) next
            else if (length(current[test]) < 4000) current[test] = current[test] line "\n"
            next
        }
        /^ *[0-9]+\/[0-9]+ Test +#[0-9]+: / && !/ Passed +[0-9.]+ sec$/ {
            print
            match($0, /#[0-9]+/)
            test = substr($0, RSTART + 1, RLENGTH - 1)
            printf "%s", shown[test] ? shown[test] : current[test]
        }
        /^(Errors while running CTest|No tests were found|CMake Error|ctest:)/ { print }' "$1" | head -n 120
}
