#!/usr/bin/env bash
# The sources are laid out as .clang-format says. With --fix they are laid out instead of checked.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2

# One version everywhere: another may lay out differently.
formatter=$(command -v clang-format-14 || command -v clang-format) || { echo "format.sh:1: clang-format is missing"; exit 1; }
mode=(--dry-run -Werror)
[ "${1:-}" = --fix ] && mode=(-i)
# What exists of these, and what it holds.
folders=()
for folder in MLCore tests examples bench fuzz; do [ -d "$folder" ] && folders+=("$folder"); done
find "${folders[@]}" -name '*.h' -o -name '*.cpp' | sort | xargs "$formatter" "${mode[@]}" --style=file
