#!/usr/bin/env bash
# The virtual functions stand in the promised order: clients compiled against one version call by slot. Read from the
# compiler's own listing, for every g++ that is there.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2
root=$PWD
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT

share="destructor destructor AddRef Release GetUseCount NoMoreRef"
expected() {
    case $1 in
        CSHAREOBJECT) echo "$share" ;;
        COBJECT)
            echo "$share ClassInfo GetProtocolInstance Clone GetKeyValue SetKeyValue GetKeyPathValue SetKeyPathValue" \
                "ConformsToProtocol ClassName ClassIdentifier"
            ;;
        CCALENDARSTRATEGY)
            echo "$share IsOuvre SetOuvre GetFirstWeek SetFirstWeek GetFirstDayOfWeek SetFirstDayOfWeek IsFerie IsTravaille"
            ;;
    esac
}

# The folder of each class, for the message.
declare -A header=([CSHAREOBJECT]=core/CSHAREOBJECT.h [COBJECT]=core/COBJECT.h [CCALENDARSTRATEGY]=datetime/CCALENDARSTRATEGY.h)

# The listing does not name a function without a body, so COBJECT is read through a class that has them all and adds none.
cat >"$work/unit.cpp" <<'END'
#include <MLCore/core/COBJECT.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>

class PROBE : public MLCore::COBJECT {
    MLCORE_CLASS(PROBE, MLCore::COBJECT)
};
END
declare -A listed=([CSHAREOBJECT]=MLCore::CSHAREOBJECT [COBJECT]=PROBE [CCALENDARSTRATEGY]=MLCore::CCALENDARSTRATEGY)

status=0
checked=0
for compiler in g++ x86_64-w64-mingw32-g++-posix; do
    command -v "$compiler" >/dev/null || continue
    if ! (cd "$work" && rm -f -- *.class && "$compiler" -std=c++20 -I"$root" -fdump-lang-class -c unit.cpp -o unit.o); then
        echo "tests/checks/vtables.sh:1: $compiler cannot compile the headers"
        status=1
        continue
    fi
    for class in CSHAREOBJECT COBJECT CCALENDARSTRATEGY; do
        # The rows after the type information, up to the blank line; the last name of each is the function's.
        actual=$(awk -v title="Vtable for ${listed[$class]}" '
            $0 == title { inside = 1; next }
            inside && /^$/ { exit }
            inside && /\(& ?_ZTI/ { rows = 1; next }
            inside && rows && /^[0-9]+ / {
                name = $0
                sub(/^[0-9]+ +/, "", name)
                sub(/^\(int \(\*\)\(\.\.\.\)\)/, "", name)
                sub(/.*::/, "", name)
                if (name ~ /^~/) name = "destructor"
                # The destructor of a class that cannot be created.
                if (name == "0") name = "destructor"
                line = line (line == "" ? "" : " ") name
            }
            END { print line }' "$work"/*.class)
        read -r -a have <<<"$actual"
        read -r -a want <<<"$(expected "$class")"
        checked=$((checked + 1))
        if [ ${#have[@]} -ne ${#want[@]} ]; then
            echo "MLCore/${header[$class]}:1: $compiler: $class has ${#have[@]} virtual slots, not ${#want[@]}: $actual"
            status=1
            continue
        fi
        # One function without a body is known by what is left; of two, nobody could tell the order.
        unnamed=0
        for slot in "${!want[@]}"; do
            [ "${have[$slot]}" = __cxa_pure_virtual ] && unnamed=$((unnamed + 1)) && [ $unnamed -eq 1 ] && continue
            if [ "${have[$slot]}" != "${want[$slot]}" ]; then
                echo "MLCore/${header[$class]}:1: $compiler: slot $slot of $class is ${have[$slot]}, not ${want[$slot]}"
                status=1
            fi
        done
    done
done
[ "$checked" -gt 0 ] || { echo "tests/checks/vtables.sh:1: no compiler to ask"; status=1; }
exit $status
