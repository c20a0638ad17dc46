#!/usr/bin/env bash
# What must not compile does not: refused.sh COMPILER. Each file of tests/refused compiles as it stands; with REFUSED defined the
# compiler complains about every line that ends in "refused".
set -u
compiler=$1
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT
limit=-fmax-errors=0
case $("$compiler" --version) in *clang*) limit=-ferror-limit=0 ;; esac

compile() { "$compiler" -std=c++20 -I. -fsyntax-only "$limit" "$@" >"$work/messages" 2>&1; }

status=0
found=0
for file in tests/refused/*.cpp; do
    if ! compile "$file"; then
        echo "$file:1: must compile as it stands"
        cat "$work/messages"
        exit 1
    fi
    compile -DREFUSED "$file" && { echo "$file:1: must not compile"; status=1; }
    while IFS=: read -r line text; do
        found=$((found + 1))
        grep -qE "(^|[ (])$file:$line:" "$work/messages" || { echo "$file:$line: compiles, but must not:$text"; status=1; }
    done < <(grep -nE '// refused$' "$file")
done
[ "$found" -gt 0 ] || { echo "tests/refused:1: nothing to refuse"; status=1; }
exit $status
