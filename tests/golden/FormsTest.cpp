// Every text and byte format, as stored in data/forms.txt: the same from every compiler, on every system, however
// optimised. The tests of the classes check that the formats are right; this one, that nobody changes one by mistake.
// Sets of values that are too large to list are reduced to a number made from their texts. MLCORE_UPDATE=1 in the
// environment writes the file anew.
#include <MLCore/platform/WinTypes.h>
#include <predicates/Trees.h>
#include <streams/Bytes.h>

#include <bit>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <limits>
#include <random>

namespace {

using namespace predicates_test;
using CASE = CVALUEOBJECT::ComparisonOption;
using bytes::Written;

std::string AsHex(std::string_view data) {
    std::string text;
    for (const char byte : data) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        text += digits;
    }
    return text;
}

/// FNV-1a, 64 bits (G. Fowler, L. C. Noll, K.-P. Vo).
struct DIGEST {
    void Add(std::string_view text) {
        for (const char byte : text) {
            value = (value ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
        }
    }
    std::uint64_t value = 0xCBF29CE484222325U;
};

/// The digest of what `tell` appends for each of `count` numbers.
std::string DigestOf(int count, const std::function<void(std::string& text, int index)>& tell) {
    DIGEST digest;
    std::string text;
    for (int index = 0; index < count; ++index) {
        text.clear();
        tell(text, index);
        digest.Add(text.append(1, '\0'));
    }
    return std::to_string(digest.value);
}

void TellDates(std::ostream& out) {
    for (const CDATE& date : {CDATE(), CDATE(5, 3, 2024), CDATE(31, 12, 1899), CDATE(29, 2, 2000), CDATE(40, 13, 99)}) {
        out << date << '|' << date.ToString() << '|' << date.ToStringShort() << '|' << date.ToStringXML() << '\n';
    }
    for (const long seconds : {0L, 25509L, 86399L}) {
        CTIME time;
        time.FromSeconds(seconds);
        const CTIMESPAN span(-seconds);
        out << time << '|' << time.ToString() << '|' << span << '|' << span.ToString() << '|'
            << CDATETIME(CDATE(5, 3, 2024), time).ToString() << '|' << CDATETIME(CDATE(5, 3, 2024), time).ToStringXML()
            << '\n';
    }
    const auto tell = [](std::string& text, int index) {
        const CDATE date(static_cast<short>(1 + index % 28), static_cast<short>(1 + index / 28 % 12),
                         static_cast<short>(1583 + index / 336));
        text += date.ToStringXML() + std::to_string(date.GetWeekNumber()) + std::to_string(date.GetDayOfWeek());
        text +=
            NextDateOuvre(date, nullptr).ToStringShort() + CCALENDARSTRATEGY::GetPaquesDate(date.GetYear()).ToString();
    };
    out << "days of 1583 to 2582 " << DigestOf(336'000, tell) << '\n';
}

void TellNumbers(std::ostream& out) {
    using LIMITS = std::numeric_limits<double>;
    for (const double number : {0.0, -0.0, 0.1, 1e21, 1e22, 123456789.125, 1.0 / 3, LIMITS::max(), LIMITS::denorm_min(),
                                LIMITS::infinity(), LIMITS::quiet_NaN()}) {
        std::string text;
        AppendDouble(text, number);
        out << text << ' ';
        AppendFloat(text = "", static_cast<float>(number > 1e30 ? 1e30 : number));
        out << text << '\n';
    }
    std::mt19937_64 random(1);
    const auto tell = [&random](std::string& text, int) { AppendDouble(text, std::bit_cast<double>(random() >> 1)); };
    out << "doubles " << DigestOf(100'000, tell) << '\n';
}

void TellTexts(std::ostream& out) {
    const auto tell = [](std::string& text, int index) {
        char one[] = {static_cast<char>(index % 255 + 1), 0};
        const char other[] = {static_cast<char>(index / 255 + 1), 0};
        text += Utf8FromAnsi(one) + AnsiFromUtf8(Utf8FromAnsi(other));
        text += static_cast<char>('1' + CompareNoCaseByTable(one, other));
        text += static_cast<char>('1' + lstrcmpinolocal(one, other));
        text += lstrupr(one);
        text += lstrrmvaccent(one);
    };
    out << "pairs of characters " << DigestOf(255 * 255, tell) << '\n';
}

const GUID kGuid = {0x00112233, 0x4455, 0x6677, {0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}};

std::vector<CVALUE> Values() {
    CTIME time;
    time.FromSeconds(25509);
    return {CVALUE(),
            short{-7},
            static_cast<unsigned short>(65535),
            1,
            -2147483647L,
            4294967295UL,
            0.1F,
            0.1,
            "a <\"&'> \xE9\x80",
            CDATE(5, 3, 2024),
            time,
            CDATETIME(CDATE(5, 3, 2024), time),
            kGuid};
}

void TellValues(std::ostream& out) {
    for (const CVALUE& value : Values()) {
        const auto shown = CVALUEEXPRESSION::Create(value);
        out << value.GetType() << ' ' << value << '|' << Dump(shown.Get()) << '\n';
    }
}

std::vector<PREDICATE> Predicates() {
    std::vector<PREDICATE> predicates;
    for (const std::string& name : kNames) {
        predicates.push_back(Comparison("a.b " + name + (name == "in" ? " (1,'x',k)" : " 'O' 1")));
    }
    predicates.push_back(
        CCOMPARISONBETWEENPREDICATE::Create(Key("d"), Value(CDATE(1, 1, 2024)), Operand("$end"), CASE::CaseSensitive));
    predicates.push_back(CSEARCHTEXTPREDICATE::Create(Key("t"), Value("x y")));
    predicates.push_back(CVALUEPREDICATE::True());
    const auto all = CMEMARRAY::Create();
    for (const PREDICATE& predicate : predicates) {
        all->AddObject(predicate);
    }
    return {CANDPREDICATE::Create(*all), CNOTPREDICATE::Create(CORPREDICATE::Create(*all))};
}

void TellPredicates(std::ostream& out) {
    for (const PREDICATE& predicate : Predicates()) {
        const CPREDICATEHELPER helper(predicate);
        out << helper.GetStrSQL() << '\n' << helper.GetStr() << '\n' << Outline(predicate) << '\n';
        CBUFFERSTREAM stream;
        stream.Open();
        CXMLKEYWRITER writer(stream);
        predicate->DoWriteState(writer);
        out << std::string_view(static_cast<const char*>(stream.GetBuffer()), stream.GetWritePosition()) << '\n';
    }
}

/// What has the same name in all three families of streams.
void WriteAll(COSTREAM& stream) {
    CTIME time;
    time.FromSeconds(25509);
    CSTREAMWRITER writer(stream);
    writer << 'c' << short{-7} << static_cast<unsigned short>(65535) << -2147483647L << 4294967295UL << 0.1;
    writer << CDATE(5, 3, 2024) << CDATE() << time << CDATETIME(CDATE(5, 3, 2024), time) << CDATETIME();
    writer << "a;\"b\"\xE9" << std::string("line\r\nend") << endl;
    writer.SetValueBOOL(1);
    writer.WriteLine("last");
}

void TellStreams(std::ostream& out) {
    CNULLENCODER plain;
    CCSVENCODER csv;
    out << AsHex(Written<COSTREAMDECORATOR>(WriteAll)) << '\n'
        << AsHex(Written<COSTREAMDECORATORTEXT>(WriteAll)) << '\n'
        << AsHex(Written<COSTREAMDECORATORFIELD>(WriteAll, '|', plain)) << '\n'
        << AsHex(Written<COSTREAMDECORATORFIELD>(WriteAll, ';', csv)) << '\n';
}

void TellNames(std::ostream& out) {
    for (const OBJECT& descriptor : CSORTDESCRIPTORBUILDER::Create(" +a.b ; -c;;d")) {
        const auto& sort = dynamic_cast<const CSORTDESCRIPTOR&>(*descriptor);
        out << sort.GetKey() << ' ' << static_cast<int>(sort.GetSortOrderType()) << '\n';
    }
    out << CEMAIL("Jo.Doe@Example.Org").ToString() << '\n'
        << COBJECTFACTORY::GetInstance()->CreateObject("class MLCore::CMEMARRAY")->ClassName() << '\n';
    for (int index = 0; index < 3; ++index) {
        out << static_cast<LogEventType>(index) << ' ' << static_cast<CLOGMANAGER::Level>(index) << '\n';
    }
}

TEST(FormsTest, AreAsTheyWere) {
    std::ostringstream told;
    TellDates(told);
    TellNumbers(told);
    TellTexts(told);
    TellValues(told);
    TellPredicates(told);
    TellStreams(told);
    TellNames(told);
    const std::string path = MLCORE_SOURCE_DIR "/tests/golden/data/forms.txt";
    if (std::getenv("MLCORE_UPDATE") != nullptr) {
        std::ofstream(path, std::ios::binary) << told.str();
    }
    std::ifstream file(path, std::ios::binary);
    std::ostringstream kept;
    kept << file.rdbuf();
    EXPECT_EQ(told.str(), kept.str());
}

}  // namespace
