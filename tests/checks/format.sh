#!/usr/bin/env bash
# The sources are laid out as .clang-format says, and no line is longer than 120 columns: comments, which it leaves alone, neither.
# With --fix they are laid out instead of checked.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2

# One version everywhere: another may lay out differently.
formatter=$(command -v clang-format-14 || command -v clang-format) || { echo "format.sh:1: clang-format is missing"; exit 1; }
mode=(--dry-run -Werror)
[ "${1:-}" = --fix ] && mode=(-i)
# What exists of these, and what it holds.
folders=()
for folder in MLCore tests examples bench fuzz; do [ -d "$folder" ] && folders+=("$folder"); done
find "${folders[@]}" -name '*.h' -o -name '*.cpp' | sort | xargs "$formatter" "${mode[@]}" --style=file || exit 1
# Columns, not bytes: the tables of characters hold letters of two.
! LC_ALL=C.UTF-8 grep -rnE '^.{121,}' --include='*.h' --include='*.cpp' "${folders[@]}"
