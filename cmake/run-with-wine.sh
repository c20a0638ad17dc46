#!/usr/bin/env bash
# Runs a Windows program of a cross build: run-with-wine.sh PROGRAM [ARGUMENTS].
# The DLLs of the compiler's run-time are found where the compiler keeps them, ours beside the program; with RUNTIME=own, all of
# them beside the program.
set -eu

wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=$(command -v wine64 || command -v wine)
server=$(dirname "$wine")/wineserver64
[ -x "$server" ] || server=$(command -v wineserver)
export WINEDEBUG=${WINEDEBUG:--all}
# No offers to download what a console program does not need.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree=;mshtml=}
# A prefix of our own: the user's, if there is one, stays as it is.
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
export WINEPREFIX=${WINEPREFIX:-$here/../build/wine}

# Made once, by one process, and without our output: the services that Wine leaves running would keep a pipe open. Wine writes
# its files early and is not ready then: only the mark says that all of it is there.
ready=$WINEPREFIX/.ready
if [ ! -f "$ready" ]; then
    mkdir -p "$WINEPREFIX"
    (
        flock 9
        [ -f "$ready" ] || { "$wine" wineboot --init && { "$server" -w || :; } && touch "$ready"; } 9>&- || :
    ) 9>"$WINEPREFIX/.making" >/dev/null 2>&1 </dev/null
fi

path=${WINEPATH:-}
dlls="libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll"
[ "${RUNTIME:-}" != own ] || dlls=
for dll in $dlls; do
    file=$(x86_64-w64-mingw32-g++-posix "-print-file-name=$dll")
    case $file in /*) path="$path;Z:$(dirname "$(readlink -f "$file")")" ;; esac
done
export WINEPATH=${path#;}

# Into files: the services that Wine starts keep the output open, and a pipe would not end with the program. Wine itself fails to
# start a program now and then; nothing is written then, which no program of ours does, and a second attempt is made.
output=$(mktemp -d)
trap 'rm -rf "$output"' EXIT
for attempt in 1 2; do
    status=0
    "$wine" "$@" >"$output/out" 2>"$output/err" || status=$?
    if [ $status -eq 0 ] || [ -s "$output/out" ] || [ -s "$output/err" ]; then break; fi
    [ "$attempt" -eq 2 ] || sleep 2
done
cat "$output/out"
cat "$output/err" >&2
exit $status
