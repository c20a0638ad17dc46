#!/usr/bin/env bash
# <MLCore/MLCore.h> includes every header at the front of a room, sorted; the platform's are included by themselves.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2

mapfile -t headers < <(find MLCore -mindepth 2 -maxdepth 2 -name '*.h' ! -path 'MLCore/platform/*' | LC_ALL=C sort)
[ ${#headers[@]} -gt 0 ] || exit 2
difference=$(diff <(sed -n 's/^#include <\(.*\)>/\1/p' MLCore/MLCore.h) <(printf '%s\n' "${headers[@]}"))
[ -z "$difference" ] && exit 0
printf '%s\n' "MLCore/MLCore.h (<) against the headers at the front of the rooms (>):" "$difference"
exit 1
