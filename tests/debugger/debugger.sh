#!/usr/bin/env bash
# GDB shows the library's objects as tests/debugger/expected.txt tells: debugger.sh GDB PROGRAM
set -u
[ $# -eq 2 ] || { echo "usage: debugger.sh GDB PROGRAM"; exit 2; }
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT

# Each line "NAME = TEXT" of the expected ones asks for its name.
{
    echo "source $here/../../debug/mlcore_gdb.py"
    printf '%s\n' "set width 0" "set confirm off" "set print pretty off" "break StopHere" run up
    sed -n 's/^\([^=]*\) = .*/echo \\nshown: \1 =\\040\noutput \1/p' "$here/expected.txt"
    printf '%s\n' 'echo \n' kill
} >"$work/commands"
LC_ALL=C.UTF-8 DEBUGINFOD_URLS='' "$1" --batch -nx -x "$work/commands" "$2" >"$work/out" 2>"$work/err" </dev/null
# A container may forbid debuggers.
if grep -qiE 'ptrace.*not permitted' "$work/err"; then
    echo "debuggers are not permitted here"
    exit 77
fi
sed -n 's/^shown: //p' "$work/out" >"$work/shown"
diff "$here/expected.txt" "$work/shown" || { cat "$work/err"; exit 1; }
