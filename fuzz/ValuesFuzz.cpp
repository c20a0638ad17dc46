// Values and dictionaries under random operations, against plain models.
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CVALUEOBJECT.h>

#include <array>
#include <map>
#include <memory>
#include <utility>

#include "Input.h"

namespace {

using namespace MLCore;
using namespace fuzz;
using TYPE = CVALUE::Type;

/// A value as its type and its bytes, where it owns nothing.
struct PLAINVALUE {
    TYPE type = TYPE::Unknown;
    std::string bytes;
    bool operator==(const PLAINVALUE&) const = default;
};

PLAINVALUE Zero(TYPE type) { return {type, std::string(CVALUE::GetTypeSize(type), '\0')}; }

PLAINVALUE TakePlain(INPUT& input) {
    PLAINVALUE plain = Zero(static_cast<TYPE>(input.Below(14)));
    if (plain.type == TYPE::Object) return plain;
    if (plain.type == TYPE::String) plain.bytes.insert(0, input.Text(20).c_str());
    for (char& byte : plain.bytes)
        if (plain.type != TYPE::String) byte = static_cast<char>(input.Byte());
    return plain;
}

CVALUE Made(const PLAINVALUE& plain) {
    return CVALUE(plain.type, plain.type == TYPE::Object ? nullptr : plain.bytes.data());  // no object but null
}

void Check(const CVALUE& value, const PLAINVALUE& plain) {
    FUZZ_REQUIRE(value.GetType() == plain.type && value == Made(plain) && Made(plain) == value);
    if (plain.type == TYPE::Unknown) return;
    FUZZ_REQUIRE(value.GetSize() == plain.bytes.size());
    const auto* const stored = static_cast<const char*>(value.GetValue());
    FUZZ_REQUIRE(stored == nullptr ? plain == Zero(plain.type) : std::string(stored, value.GetSize()) == plain.bytes);
}

/// Values are read as what they are only.
void CheckAccess(const CVALUE& value, TYPE type) {
    FUZZ_REQUIRE(FailureOf([&] { return value.GetSize(); }) == (type == TYPE::Unknown ? 138 : 0));
    FUZZ_REQUIRE(FailureOf([&] { return value.ToLong(); }) == (type == TYPE::Long ? 0 : 138));
    FUZZ_REQUIRE(FailureOf([&] { return value.ToString(); }) == (type == TYPE::String ? 0 : 138));
}

/// Four values, copied, moved and changed.
void PlayValues(INPUT input) {
    std::array<CVALUE, 4> values;
    std::array<PLAINVALUE, 4> plain;
    for (int i = 0; i < 24 && !input.IsEnd(); ++i) {
        const unsigned step = input.Byte(), to = step % 4, from = step / 4 % 4;
        switch (step / 16 % 8) {
            case 0:
                values[to] = values[from], plain[to] = plain[from];
                break;
            case 1:
                values[to] = std::move(values[from]);
                plain[to] = to != from ? std::exchange(plain[from], {}) : plain[to];  // itself: nothing
                break;
            case 2:
                values[to].Clear(), plain[to] = Zero(plain[to].type);
                break;
            case 3:
                values[to].SetType(plain[from].type), plain[to] = Zero(plain[from].type);
                break;
            case 4:
                values[to].SetValue(values[to].GetType() == TYPE::Object ? nullptr : values[to].GetValue());
                break;
            case 5:
                values[to] = CVALUE(values[from]), plain[to] = plain[from];
                break;
            default:
                plain[to] = TakePlain(input), values[to] = Made(plain[to]);
        }
        for (std::size_t each = 0; each < values.size(); ++each) {
            Check(values[each], plain[each]);
            FUZZ_REQUIRE((values[each] == values[to]) == (plain[each] == plain[to]));
        }
    }
    for (std::size_t each = 0; each < values.size(); ++each) CheckAccess(values[each], plain[each].type);
}

/// A dictionary, with an iterator that lives through its changes.
void PlayDictionary(INPUT input) {
    const auto dictionary = CMEMDICTIONARY::Create();
    std::map<std::string, CVALUEOBJECT*> model;
    std::unique_ptr<COBJECTITERATOR> iterator(dictionary->CreateValueIterator());
    std::string place;
    bool isPast = true;
    for (int i = 0; i < 24 && !input.IsEnd(); ++i) {
        const unsigned what = input.Below(8);
        const std::string key = input.Text(2);
        if (what < 3) {
            const auto value = CVALUEOBJECT::Create(CVALUE(key));
            dictionary->SetKeyValue(key, what == 2 ? nullptr : value.Get());
            model[key] = what == 2 ? nullptr : value.Get();
        } else if (what < 5) {
            FUZZ_REQUIRE(dictionary->RemoveKey(key) == static_cast<int>(model.erase(key)));
        } else if (what == 5 || isPast) {
            iterator.reset(dictionary->CreateValueIterator());
            isPast = model.empty();
            place = isPast ? "" : model.begin()->first;
        } else if (what == 6) {
            iterator->Next();
            const auto next = model.upper_bound(place);
            isPast = next == model.end();
            place = isPast ? place : next->first;
        } else if (key.size() == 2) {
            dictionary->RemoveAll(), model.clear();
        }
        const auto at = isPast ? model.end() : model.lower_bound(place);
        FUZZ_REQUIRE(dictionary->GetCount() == static_cast<long>(model.size()));
        FUZZ_REQUIRE(dictionary->ContainsKey(key) == (model.contains(key) ? 1 : 0));
        FUZZ_REQUIRE(dictionary->GetKeyValue(key) == (model.contains(key) ? model[key] : nullptr));
        FUZZ_REQUIRE(iterator->IsEnd() == (at == model.end() ? 1 : 0));
        FUZZ_REQUIRE(iterator->GetCurrent() == (at == model.end() ? nullptr : at->second));
    }
    auto expected = model.begin();
    for (const auto& each : dictionary) FUZZ_REQUIRE(expected != model.end() && each == (expected++)->second);
    FUZZ_REQUIRE(expected == model.end());
}

/// Values and dictionaries hold what their plain models hold, whatever is done to them.
void Property(INPUT input) { input.Below(2) == 0 ? PlayValues(input) : PlayDictionary(input); }

const TARGET kTarget("Values", Property);

}  // namespace
