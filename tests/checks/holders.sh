#!/usr/bin/env bash
# Nobody deletes a shared object or keeps the pointer of a holder that ends with its statement: holders.sh [FILE...], by default
# all code of the project, its pages included. Both compile, as a holder converts to a pointer. First the check is tried on a
# sample, of which it must complain about every line that ends in "caught", and no other.
#
# It reads lines, not C++: a "delete" of any name that the file declares as a holder, and a pointer declared from Create(),
# Clone(), AdoptObject(), Get() of these, or a key's value, without Release().
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2

# complaints FILE...: FILE:LINE: what is wrong.
complaints() {
    awk '
        function complain(text) { print FILENAME ":" FNR ": " text; }
        FNR == 1 { split("", holder); begun = ""; inCode = FILENAME !~ /\.md$/ }
        # Of a page only its programs.
        FILENAME ~ /\.md$/ && /^```/ { inCode = !inCode && /^```cpp/; next }
        !inCode { next }
        {
            line = $0
            gsub(/"([^"\\]|\\.)*"/, "\"\"", line)
            sub(/ *\/\/.*/, "", line)
            # A statement that goes on in the next line, at its "=".
            line = begun line
            begun = ""
            if (line ~ /=$/) { begun = line " "; next }
            rest = line
            # A holder is of CSHAREOBJECTPTR or of a name for it, which any file may have given.
            if (pass == 1) {
                if (match(line, /using [A-Za-z_]+ = (MLCore::)?CSHAREOBJECTPTR</)) {
                    split(substr(line, RSTART, RLENGTH), word, " ")
                    alias[word[2]] = 1
                }
                next
            }
            while (match(rest, /[A-Za-z_]+(<[^;(){}=]*>)?&?[ ]+[a-z][A-Za-z0-9_]*([ ]*[;={(,)]|$)/)) {
                found = substr(rest, RSTART, RLENGTH)
                rest = substr(rest, RSTART + 1)
                type = found
                sub(/[<& ].*/, "", type)
                name = found
                sub(/[ ]*[;={(,)]$/, "", name)
                sub(/.*[ &]/, "", name)
                if (type == "CSHAREOBJECTPTR" || type in alias) holder[name] = 1
            }
            if (match(line, /(const )?auto [a-z][A-Za-z0-9_]* = [A-Za-z_:]*(AdoptObject(<[^>]*>)?\(|C[A-Z]+::Create\()/)) {
                name = line
                sub(/.*auto /, "", name)
                sub(/ = .*/, "", name)
                # A password and an iterator belong to a unique_ptr, which nobody can delete either.
                holder[name] = 1
            }
            if (match(line, /(^|[^A-Za-z_])delete [a-z][A-Za-z0-9_]*(\.Get\(\))?;/)) {
                name = substr(line, RSTART, RLENGTH)
                sub(/.*delete /, "", name)
                sub(/(\.Get\(\))?;/, "", name)
                if (name in holder) complain("deletes what a holder holds: " name)
            }
            if (line ~ /(^|[^A-Za-z_])delete [^;]*(\.Get\(\)|Create\(.*\)|AdoptObject.*);/ && line !~ /delete [a-z][A-Za-z0-9_]*\.Get\(\);/)
                complain("deletes what a holder holds")
            if (line ~ /(^|[^A-Za-z_])delete this;/ && FILENAME !~ /core\/CSHAREOBJECT\.(h|cpp)$/)
                complain("only NoMoreRef() of CSHAREOBJECT deletes a shared object")
            # "TYPE* name = a call that returns a holder": kept to the end of the statement only.
            if (line ~ /[A-Za-z_>]\*( const)? [a-z][A-Za-z0-9_]* = [^;]*;/) {
                value = line
                sub(/^[^=]*= */, "", value)
                isHolder = value ~ /^([A-Za-z_]+::)*C[A-Z]+::Create[A-Za-z]*\(.*\)(\.Get\(\))?;/ && value !~ /Create(Iterator|Instance)/
                isHolder = isHolder || value ~ /^(MLCore::)?AdoptObject(<[^>]*>)?\(.*\)(\.Get\(\))?;/
                isHolder = isHolder || value ~ /(->|\.)(Clone|Filter|GetKeyValue|GetKeyPathValue|CreateObject|CreateObjectFromIdentifier)\([^;]*\)(\.Get\(\))?;/
                if (isHolder && value !~ /\)->|\.Release\(\)/) complain("keeps the pointer of a holder that ends here")
            }
        }' pass=1 "$@" pass=2 "$@"
}

work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT
sample=$work/sample.cpp
cat >"$sample" <<'SAMPLE'
using ORDERPTR = CSHAREOBJECTPTR<CORDER>;
CSHAREOBJECTPTR<COBJECT> order = CORDER::Create();
const auto made = AdoptObject(new CORDER);
void Print(const CSHAREOBJECTPTR<COBJECT>& printed, ORDERPTR& second) {
    delete order;           // caught
    delete made;            // caught
    delete printed;         // caught
    delete second.Get();    // caught
    delete CORDER::Create().Get();  // caught
    delete this;            // caught
    delete plain;
}
COBJECT* a = CORDER::Create();                         // caught
auto* b = shop::CORDER::Create(5, "x;y").Get();        // caught
const COBJECT* const c = AdoptObject(new CORDER);      // caught
MLCore::COBJECT* d = MLCore::AdoptObject<COBJECT>(new CORDER);  // caught
COBJECT* e = factory->CreateObject("class CORDER");    // caught
COBJECT* f = order->GetKeyValue("customer");           // caught
COBJECT* g = orders->GetKeyPathValue("a.b").Get();     // caught
const COBJECT* const theNameOfALongerOne =
    CORDER::Create();  // caught
CORDER* h = CORDER::Create().Release();
COBJECT* i = order;
COBJECT* j = order.Get();
CORDER* k = new CORDER;
const char* l = CORDER::Create()->ClassName();
COBJECTITERATOR* m = orders->CreateIterator();
const auto n = CORDER::Create();  // COBJECT* x = CORDER::Create();
SAMPLE
expected=$(grep -nE '// caught$' "$sample" | cut -d: -f1)
caught=$(complaints "$sample" | cut -d: -f2)
if [ "$caught" != "$expected" ]; then
    echo "tests/checks/holders.sh:1: the sample's lines $(paste -sd' ' <<<"$expected") are bad, caught are $(paste -sd' ' <<<"$caught"):"
    cat -n "$sample"
    exit 1
fi

if [ $# -eq 0 ]; then
    mapfile -t files < <(find MLCore tests examples fuzz bench docs/guide README.md \
        \( -name '*.h' -o -name '*.cpp' -o -name '*.md' \) | grep -v '^tests/refused/' | sort)
    set -- "${files[@]}"
fi
found=$(complaints "$@")
[ -z "$found" ] && exit
echo "$found"
exit 1
