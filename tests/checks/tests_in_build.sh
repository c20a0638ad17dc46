#!/usr/bin/env bash
# Every *Test.cpp is compiled by the build: tests_in_build.sh BUILD_DIRECTORY SYSTEM, with CMake's name of the system built for.
set -u
build=$1
system=$2
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2

commands=$build/compile_commands.json
[ -f "$commands" ] || { echo "$commands:1: missing"; exit 1; }

status=0
found=0
while IFS= read -r file; do
    case $file in
        # Clients of the system's own headers exist only there; a stranger's project is built apart.
        tests/windows/*) [ "$system" = Windows ] || continue ;;
        tests/package/*) continue ;;
        # Calls of the system cannot be caught on Windows.
        tests/faults/SeamTest.cpp) [ "$system" = Windows ] && continue ;;
    esac
    found=$((found + 1))
    if ! grep -qF "\"file\": \"$PWD/$file\"" "$commands"; then
        echo "$file:1: no target compiles this test"
        status=1
    fi
done < <(find tests -name '*Test.cpp' | sort)
[ "$found" -gt 0 ] || { echo "tests:1: no test found"; status=1; }

# A misspelled name would be left out without a word.
while IFS= read -r line; do
    echo "$line: a test in a file that is not named *Test.cpp"
    status=1
done < <(grep -rnE '^(TEST|TEST_F|TEST_P|TYPED_TEST)\(' --include='*.cpp' --include='*.h' tests |
    grep -vE '^[^:]*Test\.cpp:' | cut -d: -f1,2)
exit $status
