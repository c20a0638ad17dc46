#!/usr/bin/env bash
# The virtual functions stand in the promised order: clients compiled against one version call by slot. Read from the
# compiler's own listing, for every g++ that is there.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2
root=$PWD
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT

share="destructor destructor AddRef Release GetUseCount NoMoreRef"
object="$share ClassInfo GetProtocolInstance Clone GetKeyValue SetKeyValue GetKeyPathValue SetKeyPathValue ConformsToProtocol \
ClassName ClassIdentifier"
expected() {
    case $1 in
        CSHAREOBJECT) echo "$share" ;;
        COBJECT) echo "$object" ;;
        CCALENDARSTRATEGY)
            echo "$share IsOuvre SetOuvre GetFirstWeek SetFirstWeek GetFirstDayOfWeek SetFirstDayOfWeek IsFerie IsTravaille"
            ;;
        COBJECTITERATOR) echo "destructor destructor Next IsEnd GetCurrent" ;;
        CARRAY)
            echo "$object GetCount GetObjectAt ExistObject GetObjectIndex AddObject InsertObject SetObjectAt RemoveObjectAt" \
                "RemoveAll Filter CreateIterator First Last"
            ;;
        CDICTIONARY) echo "$object CreateValueIterator GetKeys GetValues GetCount ContainsKey RemoveKey RemoveAll" ;;
        CVALUEOBJECT) echo "$object CmpString" ;;
        CEXPRESSION | CPREDICATE) echo "$object Evaluate Evaluate Accept DoWriteState DoInitState" ;;
        CCOMPARISONPREDICATE)
            echo "$(expected CPREDICATE) InitFromKeyReader WriteToKeyWriter"
            ;;
        CSET)
            echo "$object AddObjects Contains Intersects GetObjects Intersect Union Substract GetCount AddObject" \
                "RemoveObject ContainsObject RemoveAll CreateIterator"
            ;;
        CSTREAM) echo "destructor destructor GetOpenMode IsOpen Open Close" ;;
        CISTREAM)
            echo "destructor destructor IsEnd" GetValue{,,,,,,,,,,,,,,} "GetValueBOOL GetObject IsEndOfLine ReadLine GetNextLine" \
                "Skip Rewind"
            ;;
        COSTREAM) echo "destructor destructor" SetValue{,,,,,,,,,,,,,} "SetValueBOOL SetObject WriteLine SetNextLine" ;;
        CREADER)
            echo "destructor destructor IsEnd" GetValue{,,,,,,,,,,,} "GetValueBOOL GetObject IsEndOfLine ReadLine GetNextLine"
            ;;
        CWRITER) echo "destructor destructor" SetValue{,,,,,,,,,,,,} "SetValueBOOL SetObject WriteLine SetNextLine" ;;
        CPASSWORD) echo "destructor destructor" ;;
        CRANDOMSTREAM) echo "destructor destructor GetPosition SetPosition SetPositionFromEnd OffsetPosition GetSize" ;;
    esac
}

# The parameters of the functions of one name, GetValue or SetValue, in their order.
read="CDATETIME& CTIME& CDATE& double& unsigned_long& unsigned_short& long& short& string&,long char*,long char&"
written="CDATETIME_const& CTIME_const& CDATE_const& double unsigned_long unsigned_short long short string_const& char_const* char"
overloads() {
    case $1 in
        CISTREAM) echo "COSTREAM& void*,long void*& CSERIALIZABLE& $read" ;;
        CREADER) echo "void*,long $read" ;;
        COSTREAM) echo "void_const*,long void* CSERIALIZABLE_const& $written" ;;
        CWRITER) echo "void_const*,long void* $written" ;;
    esac
}

# The folder of each class, for the message.
declare -A header=([CSHAREOBJECT]=core/CSHAREOBJECT.h [COBJECT]=core/COBJECT.h [CCALENDARSTRATEGY]=datetime/CCALENDARSTRATEGY.h
    [COBJECTITERATOR]=values/COBJECTITERATOR.h [CARRAY]=values/CARRAY.h [CDICTIONARY]=values/CDICTIONARY.h [CSET]=values/CSET.h
    [CVALUEOBJECT]=values/CVALUEOBJECT.h [CSTREAM]=streams/CSTREAM.h [CISTREAM]=streams/CISTREAM.h
    [COSTREAM]=streams/COSTREAM.h [CREADER]=streams/CREADER.h [CWRITER]=streams/CWRITER.h
    [CRANDOMSTREAM]=streams/CRANDOMSTREAM.h [CEXPRESSION]=predicates/CEXPRESSION.h
    [CPASSWORD]=crypto/CPASSWORD.h [CPREDICATE]=predicates/CPREDICATE.h [CCOMPARISONPREDICATE]=predicates/CCOMPARISONPREDICATE.h)

# The listing does not name a function without a body, so abstract classes are read through classes that have them all and
# add none.
cat >"$work/unit.cpp" <<'END'
#include <MLCore/core/COBJECT.h>
#include <MLCore/core/ClassDeclaration.h>
#include <MLCore/crypto/CPASSWORD.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/predicates/CCOMPARISONINPREDICATE.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CVALUEPREDICATE.h>
#include <MLCore/streams/CISTREAM.h>
#include <MLCore/streams/COSTREAM.h>
#include <MLCore/streams/CRANDOMSTREAM.h>
#include <MLCore/streams/CSTREAMREADER.h>
#include <MLCore/streams/CSTREAMWRITER.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CMEMSET.h>
#include <MLCore/values/CVALUEOBJECT.h>

class PROBE : public MLCore::COBJECT {
    MLCORE_CLASS(PROBE, MLCore::COBJECT)
};

class PROBEITERATOR : public MLCore::COBJECTITERATOR {
    void Next() override;
    int IsEnd() const override;
    MLCore::CSHAREOBJECTPTR<MLCore::COBJECT> GetCurrent() const override;
};

// One function has a body where the table itself is wanted.
class PROBEISTREAM : public MLCore::CISTREAM {
    int IsEnd() const override;
    long GetValue(void* buffer, long count) override;
    void Skip(long count) override;
    void Rewind() override;
};
int PROBEISTREAM::IsEnd() const { return 0; }

class PROBEOSTREAM : public MLCore::COSTREAM {
    void SetValue(const void* buffer, long count) override;
};
void PROBEOSTREAM::SetValue(const void*, long) {}

class PROBEREADER : public MLCore::CSTREAMREADER {
    int IsEnd() const override;
};
int PROBEREADER::IsEnd() const { return 0; }

class PROBEWRITER : public MLCore::CSTREAMWRITER {
    void SetNextLine() override;
};
void PROBEWRITER::SetNextLine() {}

class PROBERANDOMSTREAM : public MLCore::CRANDOMSTREAM {
    unsigned long long GetPosition() const override;
    void SetPosition(unsigned long long position) override;
    void SetPositionFromEnd(unsigned long long distance) override;
    void OffsetPosition(long delta) override;
    unsigned long long GetSize() const override;
};
END
declare -A listed=([CSHAREOBJECT]=MLCore::CSHAREOBJECT [COBJECT]=PROBE [CCALENDARSTRATEGY]=MLCore::CCALENDARSTRATEGY
    [COBJECTITERATOR]=PROBEITERATOR [CARRAY]=MLCore::CMEMARRAY [CDICTIONARY]=MLCore::CMEMDICTIONARY [CSET]=MLCore::CMEMSET
    [CVALUEOBJECT]=MLCore::CVALUEOBJECT [CSTREAM]=MLCore::CSTREAM [CISTREAM]=PROBEISTREAM [COSTREAM]=PROBEOSTREAM
    [CREADER]=PROBEREADER [CWRITER]=PROBEWRITER [CRANDOMSTREAM]=PROBERANDOMSTREAM
    [CEXPRESSION]=MLCore::CKEYEXPRESSION [CPASSWORD]=MLCore::CPASSWORD [CPREDICATE]=MLCore::CVALUEPREDICATE
    [CCOMPARISONPREDICATE]=MLCore::CCOMPARISONINPREDICATE)

status=0
checked=0
for compiler in g++ x86_64-w64-mingw32-g++-posix; do
    command -v "$compiler" >/dev/null || continue
    if ! (cd "$work" && rm -f -- *.class && "$compiler" -std=c++20 -I"$root" -fdump-lang-class -S unit.cpp -o unit.s); then
        echo "tests/checks/vtables.sh:1: $compiler cannot compile the headers"
        status=1
        continue
    fi
    for class in "${!header[@]}"; do
        # The rows after the type information, up to another base's (they start with offsets) or the blank line; the last name
        # of each is the function's.
        actual=$(awk -v title="Vtable for ${listed[$class]}" '
            $0 == title { inside = 1; next }
            inside && /^$/ { exit }
            inside && /\(& ?_ZTI/ { rows = 1; next }
            inside && rows && /\)-[0-9]+$/ { exit }
            inside && rows && /^[0-9]+ / {
                name = $0
                sub(/^[0-9]+ +/, "", name)
                sub(/^\(int \(\*\)\(\.\.\.\)\)/, "", name)
                sub(/.*::/, "", name)
                if (name ~ /^~/) name = "destructor"
                # The destructor of a class that cannot be created, or the first offset of a virtual base.
                if (name == "0" && line ~ / .* /) exit
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
        # The listing does not tell overloads apart; the compiled table does.
        wanted=$(overloads "$class")
        actual=$(sed -n "/^_ZTV${#listed[$class]}${listed[$class]}:/,/^[^[:space:]]/p" "$work/unit.s" | c++filt |
            sed -nE '/[GS]etValue\(/ { s/std::__cxx11::basic_string<[^&]*>/string/; s/MLCore:://g
                s/.*[GS]etValue\((.*)\)/\1/; s/, /,/g; s/ ?([*&])/\1/g; s/ /_/g; p }' | paste -sd' ')
        if [ -n "$wanted" ] && [ "$actual" != "$wanted" ]; then
            echo "MLCore/${header[$class]}:1: $compiler: the overloads of $class are in another order: $actual"
            status=1
        fi
    done
done
[ "$checked" -gt 0 ] || { echo "tests/checks/vtables.sh:1: no compiler to ask"; status=1; }
exit $status
