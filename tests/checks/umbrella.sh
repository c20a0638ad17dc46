#!/usr/bin/env bash
# <MLCore/MLCore.h> includes every header that is for clients, sorted; a header that is not says so.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2

mapfile -t headers < <(find MLCore/*/ -name '*.h' ! -path 'MLCore/platform/*')
[ ${#headers[@]} -gt 0 ] || exit 2
difference=$(diff <(sed -n 's/^#include <\(.*\)>/\1/p' MLCore/MLCore.h) \
    <(grep -L 'Not for clients' "${headers[@]}" | LC_ALL=C sort))
[ -z "$difference" ] && exit 0
printf '%s\n' "MLCore/MLCore.h (<) against the headers without \"Not for clients\" (>):" "$difference"
exit 1
