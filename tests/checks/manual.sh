#!/usr/bin/env bash
# The manual is made of the headers and pages without a warning.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2
mkdir -p build
output=$(mktemp -d)
trap 'rm -rf "$output"' EXIT

warnings=$( (cat docs/Doxyfile && echo "OUTPUT_DIRECTORY = $output") | doxygen - 2>&1)
[ -z "$warnings" ] && [ -f "$output/html/index.html" ] && exit 0
printf '%s\n' "$warnings"
exit 1
