#include <MLCore/platform/WinTypes.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/CMEMDICTIONARY.h>
#include <MLCore/values/CMEMSET.h>
#include <MLCore/values/CVALUEOBJECT.h>
#include <MLCore/values/ValueComparison.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using namespace MLCore;
using support::FailureOf;
using TYPE = CVALUE::Type;
using COMPARISON = CVALUEOBJECT::ComparisonType;

constexpr auto kExact = CVALUEOBJECT::ComparisonOption::CaseSensitive;

struct CASE {
    int code;
    const char* text;
    std::function<void()> action;
};

void ExpectTexts(const std::vector<CASE>& cases) {
    for (const CASE& each : cases) {
        EXPECT_EQ(FailureOf([&] { each.action(); }), support::Saying(each.code, each.text));
    }
}

template <class T>
void Use(const T&) {}

TEST(FailureTextTest, OfValues) {
    const CVALUE text("abc"), number(5L), null, object(TYPE::Object, nullptr), guid(_GUID{});
    CVALUE changed;
    _variant_t currency(0.5, VT_DATE);
    currency.vt = static_cast<VARTYPE>(6);
    ExpectTexts({
        {138, "the value is a String, wanted a Date", [&] { Use(text.ToDate()); }},
        {138, "the value is a Long, wanted a String", [&] { Use(static_cast<const char*>(number)); }},
        {138, "the value is a Long, wanted a Short", [&] { Use(number.ToShort()); }},
        {138, "the value is null, wanted a UShort", [&] { Use(null.ToWord()); }},
        {138, "the value is an Object, wanted a ULong", [&] { Use(object.ToDWord()); }},
        {138, "the value is a Guid, wanted a Time", [&] { Use(guid.ToTimeSpan()); }},
        {138, "the value is a String, wanted a Float", [&] { Use(text.ToFloat()); }},
        {138, "the value is a String, wanted a Double", [&] { Use(text.ToDouble()); }},
        {138, "the value is a String, wanted a DateTime", [&] { Use(text.ToDateTime()); }},
        {138, "the value is a String, wanted a Bool", [&] { Use(text.ToBool()); }},
        {138, "the value is a String, wanted an Object", [&] { Use(text.ToObject()); }},
        {138, "the value is a String, wanted a Guid", [&] { Use(text.ToGuid()); }},
        {138, "a null value has no size", [&] { Use(null.GetSize()); }},
        {138, "there is no type of value 14", [&] { changed.SetType(TYPE{14}); }},
        {138, "there is no type of value -1", [&] { Use(CVALUE(TYPE{-1}, nullptr)); }},
        {138, "a variant of the type 6 has no counterpart", [&] { Use(CVALUE(currency)); }},
        {138, "the variant date 1e+10 is not a valid date", [&] { Use(CVALUE(_variant_t(1e10, VT_DATE))); }},
        {138, "the value is a Guid, which no variant can hold", [&] { Use(guid.ToVariant()); }},
        {138, "the date 0099-12-31 00:00:00 cannot be held", [&] { Use(CVALUE(CDATE(31, 12, 99)).ToVariant()); }},
    });
    EXPECT_STREQ(CVALUE::DescribeType(TYPE{14}), "of an unknown type");
}

TEST(FailureTextTest, OfComparisons) {
    const auto text = CVALUEOBJECT::Create("abc"), number = CVALUEOBJECT::Create(5L),
               date = CVALUEOBJECT::Create(CDATE(1, 3, 2024)), guid = CVALUEOBJECT::Create(_GUID{});
    const auto array = CMEMARRAY::Create();
    ExpectTexts({
        {138, "cannot compare a Long with a String", [&] { Use(number->Cmp(text, COMPARISON::Lesser, kExact)); }},
        {138, "cannot compare a String with a Long", [&] { Use(text->Cmp(number, COMPARISON::Equal, kExact)); }},
        {138, "cannot compare a Date with a Long", [&] { Use(date->Cmp(number, COMPARISON::Greater, kExact)); }},
        {138, "cannot compare a Guid with a Date", [&] { Use(guid->Cmp(date, COMPARISON::NotEqual, kExact)); }},
        {138, "cannot look for a Long in a String, wanted two Strings",
         [&] { Use(text->Cmp(number, COMPARISON::Begins, kExact)); }},
        {138, "ValueOf() of null, wanted a CVALUEOBJECT", [&] { Use(ValueOf(nullptr)); }},
        {138, "ValueOf() of CMEMARRAY, wanted a CVALUEOBJECT", [&] { Use(ValueOf(array)); }},
    });
    for (std::size_t code = 0; code < CVALUE::kTypeCount; ++code) {
        const auto type = static_cast<TYPE>(code);
        const int failure = KindOf(type) == ValueKind::Number ? 0 : 138;
        EXPECT_EQ(FailureOf([&] { return NumberOf(CVALUE(type, nullptr)); }), failure) << type;
    }
    EXPECT_EQ(KindOf(TYPE{14}), ValueKind::Unordered);
    EXPECT_STREQ(DescribeKind(ValueKind{9}), "without an order");
}

TEST(FailureTextTest, OfCollections) {
    const auto number = CVALUEOBJECT::Create(5L);
    const auto array = CMEMARRAY::Create(number, nullptr);
    const auto itself = CMEMARRAY::Create();
    itself->AddObject(itself);
    const auto set = CMEMSET::Create(number);
    COBJECT* const* const none = nullptr;
    const std::string key("k");
    ExpectTexts({
        {151, "the array has 2 elements, asked for [2]", [&] { Use(array->GetObjectAt(2)); }},
        {151, "the array has 2 elements, asked for [-1]", [&] { array->SetObjectAt(-1, nullptr); }},
        {151, "the array has 2 elements, asked for [7]", [&] { array->RemoveObjectAt(7); }},
        {151, "the array has 2 elements, asked to insert one at [3]", [&] { array->InsertObject(3, nullptr); }},
        {-100, "null instead of 3 objects for an array", [&] { Use(CMEMARRAY::Create(none, 3)); }},
        {-100, "null instead of 3 objects for a set", [&] { Use(CMEMSET::Create(none, 3)); }},
        {-100, "null instead of 3 keys", [&] { Use(CMEMDICTIONARY::Create(nullptr, none, 3)); }},
        {-100, "null instead of 1 values", [&] { Use(CMEMDICTIONARY::Create(&key, nullptr, 1)); }},
        {-100, "the array of objects to add is null", [&] { set->AddObjects(nullptr); }},
        {-100, "the other set is null", [&] { set->Union(nullptr); }},
        {151, "deeper than 256 levels, or one holds itself", [&] { Use(itself->GetKeyValue("k")); }},
        {151, "deeper than 256 levels, or one holds itself", [&] { itself->SetKeyValue("k", itself); }},
        {-100, "the key 'k' of the elements is CVALUEOBJECT, wanted an array",
         [&] { array->SetKeyValue("k", number); }},
        {-100, "the key 'k' of the elements is null, wanted an array", [&] { array->SetKeyValue("k", nullptr); }},
        {151, "1 values for the key 'k' of 2 elements", [&] { array->SetKeyValue("k", itself); }},
        {151, "element 1 is null and cannot take the key 'k'", [&] { array->SetKeyValue("k", array); }},
    });
    itself->RemoveAll();
}

}  // namespace
