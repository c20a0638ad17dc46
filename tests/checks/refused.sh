#!/usr/bin/env bash
# What must not compile does not: refused.sh COMPILER. Each file of tests/refused compiles as it stands; with REFUSED defined the
# compiler complains about every line that ends in "refused"; with REFUSED_WHEN_OPTIMIZED, about every line that ends in "refused
# when optimized".
set -u
compiler=$1
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT
limit=-fmax-errors=0
isClang=
case $("$compiler" --version) in *clang*) limit=-ferror-limit=0 isClang=1 ;; esac

compile() { "$compiler" -std=c++20 -I. "$limit" "$@" >"$work/messages" 2>&1; }
complains() { grep -qE "(^|[ (])$1:" "$work/messages" || { echo "$1: compiles, but must not:$2"; status=1; }; }

status=0
found=0
for file in tests/refused/*.cpp; do
    if ! compile -fsyntax-only "$file"; then
        echo "$file:1: must compile as it stands"
        cat "$work/messages"
        exit 1
    fi
    compile -fsyntax-only -DREFUSED "$file" && { echo "$file:1: must not compile"; status=1; }
    while IFS=: read -r line text; do
        found=$((found + 1))
        complains "$file:$line" "$text"
    done < <(grep -nE '// refused$' "$file")

    optimized=$(grep -cE '// refused when optimized$' "$file") || continue
    compile -O2 -S -o /dev/null "$file" || { echo "$file:1: must compile as it stands"; cat "$work/messages"; exit 1; }
    compile -O2 -S -o /dev/null -DREFUSED_WHEN_OPTIMIZED "$file" && { echo "$file:1: must not compile"; status=1; }
    if [ "$isClang" ]; then
        # It does not name the line, only what is called there.
        [ "$(grep -c ' error: ' "$work/messages")" -eq "$optimized" ] ||
            { echo "$file:1: not every line is refused when optimized"; status=1; }
        continue
    fi
    while IFS=: read -r line text; do
        complains "$file:$line" "$text"
    done < <(grep -nE '// refused when optimized$' "$file")
done
[ "$found" -gt 0 ] || { echo "tests/refused:1: nothing to refuse"; status=1; }
exit $status
