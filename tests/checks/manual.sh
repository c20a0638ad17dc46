#!/usr/bin/env bash
# The manual is made of the headers and pages without a warning, and none of its links within itself is dead.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2
mkdir -p build
output=$(mktemp -d)
trap 'rm -rf "$output"' EXIT

warnings=$( (cat docs/Doxyfile && echo "OUTPUT_DIRECTORY = $output") | doxygen - 2>&1)
printf '%s' "${warnings:+$warnings$'\n'}"
[ -f "$output/html/index.html" ] || exit 1

# First every place that a link can lead to, then where each link leads: to a file, or to a place in a page.
cd "$output/html" || exit 1
dead=$(
    {
        find . -type f -printf 'place %P -\n'
        grep -oE '\b(id|name)="[^"]+"' -- *.html | sed -E 's/^([^:]+):(id|name)="(.*)"$/place \1#\3 -/'
        grep -ohE '\b(href|src)="[^"]+"' -H -- *.html | sed -E 's/^([^:]+):(href|src)="(.*)"$/link \3 \1/'
    } | awk '
        $1 == "place" { places[$2] = 1; next }
        $2 ~ /^[a-z]+:/ { next }
        {
            target = $2 ~ /^#/ ? $3 $2 : $2
            sub(/#$/, "", target)
            if (!(target in places) && !reported[target, $3]++) print $3 ": dead link: " $2
        }'
)
printf '%s' "${dead:+$dead$'\n'}"
[ -z "$warnings$dead" ]
