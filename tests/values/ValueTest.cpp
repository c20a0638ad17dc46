#include <MLCore/platform/WinTypes.h>
#include <MLCore/values/CVALUE.h>
#include <MLCore/values/ValueText.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <sstream>
#include <thread>
#include <unordered_set>
#include <vector>

namespace {

using namespace MLCore;
using support::FailureOf;
using Type = CVALUE::Type;

class COWNED : public CSHAREOBJECT {};
using OWNED = CSHAREOBJECTPTR<COWNED>;

constexpr GUID kGuid = {0x00112233, 0x4455, 0x6677, {0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}};
const CDATE kDate(5, 3, 2024);
const CTIME kTime(7, 5, 9);

/// One value of each type, by its code, and what is told of the type.
struct SAMPLE {
    CVALUE value;
    const char* typeName;
    std::size_t size;
    bool isAllocated;
    const char* text;
};

std::vector<SAMPLE> Samples(COWNED* object) {
    return {{CVALUE(), "Type::Unknown", 0, true, "Null"},
            {short{-5}, "Type::Short", 2, false, "-5"},
            {static_cast<unsigned short>(65535), "Type::UShort", 2, false, "65535"},
            {-2147483647L, "Type::Long", 4, false, "-2147483647"},
            {4294967295UL, "Type::ULong", 4, false, "4294967295"},
            {kDate, "Type::Date", 6, true, "05032024"},
            {kTime, "Type::Time", 4, false, "CTIME = 07:05:09 CTIMESPAN = 7:05:09"},
            {"it's", "Type::String", 5, true, "it's"},
            {0.1F, "Type::Float", 4, true, "0.1"},
            {-2.5, "Type::Double", 8, true, "-2.5"},
            {CDATETIME(), "Type::DateTime", 10, true, ""},
            {1, "Type::Bool", 4, false, "1"},
            {object, "", 8, true, "CVALUEINCONNU"},
            {kGuid, "Type::Guid", 16, true, "CVALUEINCONNU"}};
}

template <class T>
std::string Printed(const T& what) {
    std::ostringstream out;
    out << what;
    return out.str();
}

/// That of each type, and what it takes out of a value that has been cleared: true when that is zero.
const struct {
    Type type;
    bool (*isZero)(const CVALUE&);
} kAccessors[] = {{Type::Short, [](const CVALUE& v) { return v.ToShort() == 0; }},
                  {Type::UShort, [](const CVALUE& v) { return v.ToWord() == 0; }},
                  {Type::Long, [](const CVALUE& v) { return v.ToLong() == 0; }},
                  {Type::ULong, [](const CVALUE& v) { return v.ToDWord() == 0; }},
                  {Type::Date, [](const CVALUE& v) { return v.ToDate().IsNull() != 0; }},
                  {Type::Time, [](const CVALUE& v) { return v.ToTime() == CTIME::Null(); }},
                  {Type::Time, [](const CVALUE& v) { return v.ToTimeSpan() == CTIMESPAN(); }},
                  {Type::String, [](const CVALUE& v) { return v.ToString().empty(); }},
                  {Type::String, [](const CVALUE& v) { return *static_cast<const char*>(v) == 0; }},
                  {Type::Float, [](const CVALUE& v) { return v.ToFloat() == 0; }},
                  {Type::Double, [](const CVALUE& v) { return v.ToDouble() == 0; }},
                  {Type::DateTime, [](const CVALUE& v) { return v.ToDateTime() == CDATETIME(); }},
                  {Type::Bool, [](const CVALUE& v) { return v.ToBool() == 0; }},
                  {Type::Object, [](const CVALUE& v) { return v.ToObject() == nullptr; }},
                  {Type::Guid, [](const CVALUE& v) { return v.ToGuid() == GUID{}; }}};

TEST(ValueTest, EachTypeIsWhatIsToldOfIt) {
    const OWNED object = AdoptObject(new COWNED);
    const std::vector<SAMPLE> samples = Samples(object);
    for (std::size_t code = 0; code < samples.size(); ++code) {
        const SAMPLE& sample = samples[code];
        const Type type = static_cast<Type>(code);
        SCOPED_TRACE(code);
        EXPECT_EQ(sample.value.GetType(), type);
        EXPECT_EQ(Printed(type), sample.typeName);
        EXPECT_EQ(Printed(sample.value), sample.text);
        EXPECT_EQ(sample.value.IsNull(), code == 0 ? 1 : 0);
        EXPECT_EQ(CVALUE::IsAllocatedType(type), sample.isAllocated ? 1 : 0);
        EXPECT_EQ(CVALUE::GetTypeSize(type, "it's"), sample.size);
        EXPECT_EQ(FailureOf([&] { return sample.value.GetSize(); }), code == 0 ? 138 : 0);
        const auto* const bytes = static_cast<const unsigned char*>(sample.value.GetValue());
        const auto* const field = reinterpret_cast<const unsigned char*>(&sample.value) + 4;
        EXPECT_EQ(bytes == field, !sample.isAllocated) << "in the value itself, or elsewhere";

        CVALUE cleared = sample.value;
        cleared.Clear();
        cleared.Clear();
        const CVALUE zero(type, nullptr);
        for (const auto& accessor : kAccessors) {
            const int failure = accessor.type == type ? 0 : 138;
            EXPECT_EQ(FailureOf([&] { return accessor.isZero(sample.value); }), failure) << Printed(accessor.type);
            if (failure == 0) {
                EXPECT_TRUE(accessor.isZero(cleared)) << Printed(type);
                EXPECT_TRUE(accessor.isZero(zero)) << Printed(type);
                EXPECT_EQ(accessor.isZero(sample.value), type == Type::DateTime) << Printed(type);
            }
        }
        EXPECT_EQ(cleared.GetType(), type);
        EXPECT_EQ(cleared, zero);
        EXPECT_EQ(std::hash<CVALUE>()(cleared), std::hash<CVALUE>()(zero));
        EXPECT_EQ(CVALUE(cleared), zero);
        for (std::size_t other = 0; other < samples.size(); ++other) {
            EXPECT_EQ(sample.value == samples[other].value, code == other);
        }
    }
    for (const int code : {-1, 14, INT_MIN, INT_MAX}) {
        const Type type = static_cast<Type>(code);
        CVALUE value(5L);
        EXPECT_EQ(FailureOf([&] { value.SetType(type); }), 138) << code;
        EXPECT_EQ(value, 5L);
        EXPECT_EQ(CVALUE::GetTypeSize(type), 0U);
        EXPECT_EQ(Printed(type), "");
    }
}

TEST(ValueTest, IsMadeOfWhatItIsGiven) {
    EXPECT_EQ(CVALUE(1).GetType(), Type::Bool);
    EXPECT_EQ(CVALUE(true), CVALUE::True());
    EXPECT_EQ(CVALUE(0), CVALUE::False());
    EXPECT_EQ(CVALUE(5).ToBool(), 5) << "kept as it is";
    EXPECT_NE(CVALUE(5), CVALUE::True()) << "kept as it is";
    EXPECT_EQ(CVALUE(), CVALUE::Null());
    EXPECT_EQ(CVALUE(static_cast<const char*>(nullptr)).ToString(), "");
    EXPECT_EQ(CVALUE(std::string("ab\0c", 4)).GetSize(), 3U);
    long wide = 0;
    std::memcpy(&wide, CVALUE(-5L).GetValue(), sizeof(wide));
    EXPECT_EQ(wide, -5) << "the payload is as wide as any long";
#if LONG_MAX > 2147483647
    for (const long value : {2147483648L, -2147483649L, LONG_MAX, LONG_MIN}) {
        EXPECT_EQ(FailureOf([&] { return CVALUE(value); }), 126) << value;
        EXPECT_FALSE(CVALUE(static_cast<long>(static_cast<int>(value))) == value);
    }
    EXPECT_EQ(FailureOf([] { return CVALUE(4294967296UL); }), 126);
#endif
    // The raw form reads no more than the type's bytes, which may stand anywhere.
    const unsigned char bytes[] = {0, 0xFE, 0xFF, 0xFF, 0xFF, 0};
    EXPECT_EQ(CVALUE(Type::Short, bytes + 1), short{-2});
    EXPECT_EQ(CVALUE(Type::UShort, bytes + 1), static_cast<unsigned short>(0xFFFE));
    EXPECT_EQ(CVALUE(Type::Long, bytes + 1), -2L);
    EXPECT_EQ(CVALUE(Type::ULong, bytes + 1), 0xFFFFFFFEUL);
    EXPECT_EQ(CVALUE(Type::Bool, bytes + 1), -2);
    EXPECT_EQ(CVALUE(Type::Time, bytes + 1).ToTimeSpan(), CTIMESPAN(-2));
    EXPECT_EQ(CVALUE(Type::Unknown, bytes), CVALUE());
    EXPECT_EQ(CVALUE(Type::String, nullptr).GetSize(), 1U);

    CVALUE value;
    value = "abc";
    value = static_cast<const char*>(value) + 1;
    EXPECT_EQ(value, "bc");
    value.SetValue(static_cast<const char*>(value.GetValue()) + 1);
    EXPECT_EQ(value, "c");
    value.SetValue(nullptr);
    EXPECT_EQ(value, "");
    value.SetType(Type::Double);
    EXPECT_EQ(value, 0.0);
    value.SetType(Type::Long);
    value.SetValue(bytes + 1);
    EXPECT_EQ(value, -2L);
}

TEST(ValueTest, CopiesAreDeepAndMovesLeaveNull) {
    const OWNED object = AdoptObject(new COWNED);
    for (const SAMPLE& from : Samples(object)) {
        for (const SAMPLE& before : Samples(object)) {
            SCOPED_TRACE(std::string(before.typeName) + " becomes " + from.typeName);
            CVALUE copy = before.value;
            copy = from.value;
            EXPECT_EQ(copy, from.value);
            EXPECT_EQ(std::hash<CVALUE>()(copy), std::hash<CVALUE>()(from.value));
            EXPECT_EQ(CVALUE(copy.GetType(), copy.GetValue()), from.value);
            EXPECT_EQ(copy.GetValue() == from.value.GetValue(), copy.IsNull() != 0 || copy.GetType() == Type::Object);
            const CVALUE& same = copy;
            copy = same;
            EXPECT_EQ(copy, from.value);
            copy = std::move(const_cast<CVALUE&>(same));
            EXPECT_EQ(copy, from.value);
            CVALUE target = before.value;
            target = std::move(copy);
            EXPECT_EQ(target, from.value);
            EXPECT_EQ(copy, CVALUE::Null());
        }
    }
    CVALUE text;
    for (const CVALUE& next : {CVALUE(std::string(40, 'x')), CVALUE("short"), CVALUE(std::string(41, 'x'))}) {
        text = next;
        EXPECT_EQ(text, next);
        EXPECT_EQ(text.GetSize(), next.GetSize());
    }
    EXPECT_EQ(object->GetUseCount(), 1);
}

// More values than are kept for reuse, of all sizes about those of the blocks, freed by a thread that did not make
// them.
TEST(ValueTest, PassesFromThreadToThread) {
    const auto make = [](char letter) {
        std::vector<CVALUE> values;
        for (std::size_t i = 0; i < 70 * 64; ++i) {
            values.push_back(i % 64 == 0 ? CVALUE(double{1} + letter) : CVALUE(std::string(i % 64, letter)));
        }
        return values;
    };
    const auto expectAll = [](const std::vector<CVALUE>& values, char letter) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            ASSERT_EQ(values[i], i % 64 == 0 ? CVALUE(double{1} + letter) : CVALUE(std::string(i % 64, letter)));
        }
    };
    for (int round = 0; round < 4; ++round) {
        std::vector<CVALUE> given = make('a');
        const std::vector<CVALUE> kept = make('b');
        std::thread([values = std::move(given)]() mutable { values.clear(); }).join();
        std::vector<CVALUE> other;
        std::thread worker([&] { other = make('c'); });
        const std::vector<CVALUE> own = make('d');
        worker.join();
        expectAll(kept, 'b');
        expectAll(other, 'c');
        expectAll(own, 'd');
    }
}

TEST(ValueTest, HoldsOneReferenceOfAnObject) {
    const OWNED object = AdoptObject(new COWNED);
    {
        CVALUE value(object);
        EXPECT_EQ(object->GetUseCount(), 2);
        const CVALUE copy = value;
        CVALUE moved = std::move(value);
        EXPECT_EQ(object->GetUseCount(), 3);
        moved.SetValue(moved.ToObject());
        EXPECT_EQ(object->GetUseCount(), 3);
        moved.Clear();
        EXPECT_EQ(object->GetUseCount(), 2);
        moved = copy.ToObject();
        moved.SetType(Type::Object);
        EXPECT_EQ(object->GetUseCount(), 2);
        moved = object.Get();
        moved = 5L;
        EXPECT_EQ(object->GetUseCount(), 2);
    }
    EXPECT_EQ(object->GetUseCount(), 1);
    // The only owner of what is assigned is the value itself.
    CVALUE only(AdoptObject(new COWNED));
    only = only.ToObject();
    EXPECT_EQ(only.ToObject()->GetUseCount(), 1);
}

TEST(ValueTest, EqualsOnlyThePlainValueOfItsType) {
    EXPECT_EQ(CVALUE(short{5}), short{5});
    EXPECT_EQ(short{5}, CVALUE(short{5}));
    EXPECT_EQ(CVALUE(5L), 5L);
    EXPECT_EQ(5L, CVALUE(5L));
    EXPECT_NE(CVALUE(5L), 6L);
    EXPECT_NE(6L, CVALUE(5L));
    EXPECT_EQ(CVALUE(5UL), 5UL);
    EXPECT_NE(CVALUE(5UL), 5L);
    EXPECT_NE(CVALUE(5L), short{5});
    EXPECT_NE(CVALUE(5L), 5.0);
    EXPECT_EQ(CVALUE(5), 5);
    EXPECT_EQ(5, CVALUE(5));
    EXPECT_NE(CVALUE(5L), 5);
    EXPECT_EQ(CVALUE(true), true);
    EXPECT_EQ(CVALUE(0), 0);
    const unsigned short word = 5;
    EXPECT_EQ(CVALUE(word), word);
    EXPECT_NE(CVALUE(word), short{5});
    EXPECT_EQ(word, CVALUE(word));
    EXPECT_EQ(CVALUE(0.5F), 0.5F);
    EXPECT_NE(CVALUE(0.5F), 0.5);
    EXPECT_EQ(0.5, CVALUE(0.5));
    EXPECT_NE(0.5F, CVALUE(0.5));
    EXPECT_EQ(CVALUE("abc"), "abc");
    EXPECT_EQ("abc", CVALUE("abc"));
    EXPECT_NE(CVALUE("abc"), "ABC");
    EXPECT_NE(CVALUE("\xE9"), "e");
    EXPECT_EQ(CVALUE("abc"), std::string("abc"));
    EXPECT_NE(std::string("ab"), CVALUE("abc"));
    EXPECT_EQ(CVALUE(""), static_cast<const char*>(nullptr));
    EXPECT_NE(CVALUE(), static_cast<const char*>(nullptr));
    EXPECT_EQ(CVALUE(kDate), kDate);
    EXPECT_EQ(kDate, CVALUE(kDate));
    EXPECT_NE(CVALUE(kDate), CDATETIME(kDate, CTIME()));
    const CDATETIME moment(kDate, kTime);
    EXPECT_EQ(CVALUE(moment), moment);
    EXPECT_EQ(moment, CVALUE(moment));
    EXPECT_NE(CVALUE(moment), CDATETIME());
    EXPECT_EQ(CVALUE(kTime), kTime);
    EXPECT_EQ(kTime, CVALUE(kTime));
    EXPECT_NE(CVALUE(kTime), CTIME());
    EXPECT_EQ(CVALUE(kTime), CTIMESPAN(25509));
    EXPECT_EQ(CTIMESPAN(25509), CVALUE(kTime));
    EXPECT_NE(CVALUE(5L), CTIMESPAN(5));
    EXPECT_EQ(CVALUE(kGuid), kGuid);
    EXPECT_EQ(kGuid, CVALUE(kGuid));
    EXPECT_NE(CVALUE(kGuid), GUID{});
    EXPECT_NE(CVALUE(), GUID{});

    const OWNED object = AdoptObject(new COWNED);
    const CSHAREOBJECT* const constant = object;
    const CVALUE held(object);
    EXPECT_EQ(held, object);
    EXPECT_EQ(object, held);
    EXPECT_EQ(held, object.Get());
    EXPECT_EQ(constant, held);
    EXPECT_NE(held, AdoptObject(new COWNED));
    EXPECT_NE(held, OWNED());
    EXPECT_EQ(CVALUE(OWNED()), OWNED());
    EXPECT_NE(CVALUE(), OWNED());

    // Among values floats are compared by their bytes, with plain ones by their numbers.
    const double nan = std::nan("");
    EXPECT_NE(CVALUE(0.0), CVALUE(-0.0));
    EXPECT_EQ(CVALUE(0.0), -0.0);
    EXPECT_EQ(CVALUE(nan), CVALUE(nan));
    EXPECT_NE(CVALUE(nan), nan);
    EXPECT_EQ(CVALUE(0.0), _variant_t(-0.0));
    EXPECT_EQ(CVALUE(0.0F), _variant_t(-0.0F));
    const std::unordered_set<CVALUE> set{5L, short{5}, "5", 5.0, 5L, "5", 5.0};
    EXPECT_EQ(set.size(), 4U);
}

TEST(ValueTest, WritesItsText) {
    const auto quoted = [](const CVALUE& value) {
        std::string text(1, '[');
        AppendValueText(text, value, true);
        text += ']';
        return text;
    };
    EXPECT_EQ(quoted("O'Brien's"), "['O''Brien''s']");
    EXPECT_EQ(quoted(""), "['']");
    EXPECT_EQ(quoted(kDate), "[05032024]");
    EXPECT_EQ(Printed(CVALUE(5)), "1") << "any Bool but 0";
    EXPECT_EQ(Printed(CVALUE(0)), "0");
    EXPECT_EQ(Printed(CVALUE(1e22)), "1e+22");
    EXPECT_EQ(Printed(CVALUE(CDATETIME(kDate, kTime))), CDATETIME(kDate, kTime).ToStringXML());
}

TEST(ValueTest, BecomesAVariantAndComesBack) {
    const OWNED object = AdoptObject(new COWNED);
    const VARTYPE kTypes[] = {VT_EMPTY, VT_I2, VT_UI2, VT_I4,   VT_UI4,  VT_DATE,  VT_DATE,
                              VT_BSTR,  VT_R4, VT_R8,  VT_DATE, VT_BOOL, VT_ERROR, VT_ERROR};
    for (const SAMPLE& sample : Samples(object)) {
        SCOPED_TRACE(sample.typeName);
        const VARTYPE type = kTypes[static_cast<int>(sample.value.GetType())];
        if (type == VT_ERROR) {
            EXPECT_EQ(FailureOf([&] { return sample.value.ToVariant(); }), 138);
            continue;
        }
        const _variant_t variant = sample.value.ToVariant();
        EXPECT_EQ(variant.vt, type);
        // A date alone and a time alone come back as moments.
        EXPECT_EQ(variant == sample.value, type != VT_DATE || sample.value.GetType() == Type::DateTime);
        EXPECT_EQ(CVALUE(variant) == sample.value, variant == sample.value);
    }
    // From 30 December 1899 to 5 March 2024 are 45356 days.
    EXPECT_EQ(CVALUE(CTIME(18, 0, 0)).ToVariant().date, 0.75);
    EXPECT_EQ(CVALUE(CDATETIME(kDate, CTIME(18, 0, 0))).ToVariant().date, 45356.75);
    EXPECT_EQ(CVALUE(CDATETIME(CDATE(), kTime)).ToVariant().date, 0.0);
    const CVALUE kNoOleDates[] = {CDATE(31, 12, 99), CDATE(30, 2, 2024), CDATE(1, 1, 10000), CTIME(24, 0, 0),
                                  CDATETIME(kDate, CTIME(-1, 0, 0))};
    for (const CVALUE& value : kNoOleDates) {
        EXPECT_EQ(FailureOf([&] { return value.ToVariant(); }), 138) << value;
    }

    _variant_t variant;
    const auto of = [&variant](VARTYPE type, double date) -> const _variant_t& {
        variant.vt = type;
        variant.date = date;
        return variant;
    };
    EXPECT_EQ(CVALUE(of(VT_DATE, 45356.75)), CDATETIME(kDate, CTIME(18, 0, 0)));
    EXPECT_EQ(CVALUE(of(VT_DATE, 0.0)), CDATETIME());
    EXPECT_EQ(CVALUE(of(VT_NULL, 0.0)), CVALUE());
    for (const double date : {2958466.0, -657435.0, 1e300, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(FailureOf([&] { return CVALUE(of(VT_DATE, date)); }), 138) << date;
        EXPECT_FALSE(CVALUE(CDATETIME()) == variant);
    }
    for (const int type : {VT_I1, VT_UI1, VT_ERROR, VT_UNKNOWN}) {
        EXPECT_EQ(FailureOf([&] { return CVALUE(of(static_cast<VARTYPE>(type), 0.0)); }), 138) << type;
        EXPECT_FALSE(CVALUE() == variant);
    }
    EXPECT_EQ(CVALUE(_variant_t(true)), CVALUE::True());
    EXPECT_EQ(CVALUE(_variant_t(-5)), -5L) << "an int of a variant is a number";
    EXPECT_EQ(CVALUE(_variant_t(4000000000U)), 4000000000UL);
    EXPECT_EQ(CVALUE(_variant_t(L"na\u00EFve \u20AC")), "na\xEFve \x80");
    EXPECT_EQ(std::wstring(CVALUE("\xE9\x80").ToVariant().bstrVal), L"\u00E9\u20AC");
    variant.Clear();
    variant.bstrVal = SysAllocStringLen(L"ab\0c", 4);
    variant.vt = VT_BSTR;
    EXPECT_EQ(CVALUE(variant), "ab");
    SysFreeString(variant.bstrVal);
    variant.bstrVal = nullptr;
    EXPECT_EQ(CVALUE(variant), "");
}

}  // namespace
