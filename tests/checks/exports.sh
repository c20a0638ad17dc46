#!/usr/bin/env bash
# The shared library exports the names that docs/abi/exports.txt lists: exports.sh LIBRARY [--update]. Programs that were built
# against an older version look for them; --update accepts those that are new, and --update-all also that some are gone.
set -u
[ $# -ge 1 ] || { echo "usage: exports.sh LIBRARY [--update]"; exit 2; }
library=$(realpath "$1") || exit 2
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2
accepted=docs/abi/exports.txt

# Ours: not what the standard library's templates leave behind, nor lambdas and guards. Of the weak functions only those of
# templates that the library instantiates: whether an inline function leaves a copy is the optimizer's choice.
names() {
    nm -DC --defined-only "$library" | awk '
        { kind = $2; name = $0; sub(/^[0-9a-f]* +[A-Za-z] /, "", name) }
        name ~ /^(typeinfo( name)? for |vtable for )?std::/ || name ~ /lambda|^guard variable/ { next }
        kind == "W" && name !~ /^MLCore::[A-Z]+</ { next }
        kind == "V" && name ~ /^operator|\)::/ { next }
        { print name }' | LC_ALL=C sort -u
}

listed=$(mktemp) || exit 2
trap 'rm -f "$listed"' EXIT
names >"$listed"
[ -s "$listed" ] || { echo "$library: no exported name"; exit 1; }
case ${2:-} in
    --update) LC_ALL=C sort -u "$accepted" "$listed" -o "$accepted" ;;
    --update-all) cp "$listed" "$accepted" ;;
esac
difference=$(LC_ALL=C diff "$accepted" "$listed") && exit
# A name that is gone breaks programs; one that is new is promised for as long as the first number of the version stands.
sed -n "s|^< |$accepted:1: no longer exported: |p; s|^> |$accepted:1: newly exported: |p" <<<"$difference"
echo "accept what is meant with: tests/checks/exports.sh $1 --update"
exit 1
