// Memory that ends: each allocation of each scenario fails in turn, once or from then on. The scenario fails with
// std::bad_alloc or a told failure or goes on without that memory; it loses nothing, changes nothing by half, and works
// when it is tried again. The program holds the library itself, so that it allocates here.
#include <MLCore/MLCore.h>
#include <MLCore/platform/File.h>
#include <MLCore/platform/WinTypes.h>
#include <faults/Faults.h>
#include <gtest/gtest.h>

#include <new>
#include <sstream>

namespace {

using namespace MLCore;
using OBJECT = CSHAREOBJECTPTR<COBJECT>;
using CASE = CVALUEOBJECT::ComparisonOption;

const char kLong[] = "a text; with \"quotes\", longer than any that a string keeps in itself";

/// An object with an object in it.
class CNESTED : public CSERIALIZABLEOBJECT {
    MLCORE_CLASS(CNESTED, CSERIALIZABLEOBJECT)
public:
    void WriteState(CWRITER& writer) const override {
        writer << static_cast<long>(text.size()) << text;
        writer.SetObject(inner);
    }
    void ReadState(CREADER& reader) override {
        long length = 0;
        reader >> length;
        reader.GetValue(text, length);
        inner = reader.GetObject();
    }
    std::string text;
    CSHAREOBJECTPTR<CSERIALIZABLEOBJECT> inner;
};
MLCORE_REGISTER_CLASS(CNESTED)

OBJECT Value(const CVALUE& value) { return CVALUEOBJECT::Create(value); }

CSHAREOBJECTPTR<CDICTIONARY> Record(double number, const char* text) {
    const auto record = CMEMDICTIONARY::Create();
    record->SetKeyValue("number", Value(number));
    record->SetKeyValue("text", Value(text));
    return record;
}

CSHAREOBJECTPTR<CPREDICATE> Condition() {
    const auto key = [](const char* name) { return CKEYEXPRESSION::Create(name); };
    const auto value = [](const CVALUE& constant) { return CVALUEEXPRESSION::Create(constant); };
    return CORPREDICATE::Create(
        CNOTPREDICATE::Create(CGREATERPREDICATE::Create(key("number"), value(2.5))),
        CANDPREDICATE::Create(CLIKEPREDICATE::Create(key("text"), value(kLong), CASE::CaseInsensitive),
                              CCOMPARISONBETWEENPREDICATE::Create(key("number"), value(1L), value(9L))));
}

/// Grows, as predicates do while they are made.
class CANYOF : public CORPREDICATE {
public:
    using CORPREDICATE::AddPredicate;
};

/// What scenarios work on.
struct STATE {
    STATE() {
        for (const double number : {3.0, 1.0, 2.0}) {
            array->AddObject(Record(number, kLong));
            set->AddObject(array->Last());
        }
        dictionary->SetKeyValue("record", Record(7, &kLong[1]));
        stream.Open();
        stream.SetValue(std::string(kLong));
        object->text = kLong;
        object->inner = AdoptObject(new CNESTED);
        objects.Open();
        objects.SetObject(object);
        Condition()->DoWriteState(xml.writer);
    }
    std::string Show() const {
        std::ostringstream out;
        const auto tell = [&out](COBJECT* thing) {
            if (const auto* const valueObject = dynamic_cast<const CVALUEOBJECT*>(thing)) {
                out << valueObject << ' ';
            } else if (auto* const record = dynamic_cast<CDICTIONARY*>(thing)) {
                out << ValueOf(record->GetKeyValue("number")) << ' ' << ValueOf(record->GetKeyValue("text")) << ' ';
            } else {
                out << (thing != nullptr ? thing->ClassName() : "null") << ' ';
            }
        };
        for (const auto& elements :
             {array, set->GetObjects(), dictionary->GetValues(), dictionary->GetKeys(), result}) {
            if (elements != nullptr) {
                std::ranges::for_each(elements, [&tell](const OBJECT& element) { tell(element); });
            }
            out << '\n';
        }
        const char* const bytes = static_cast<const char*>(stream.GetBuffer());
        out << value << '\n'
            << text << '\n'
            << std::string(bytes, stream.GetSize()) << '\n'
            << email.ToString() << '\n'
            << CPREDICATEHELPER(anyOf).GetStr() << anyOf->Evaluate(array->First()) << '\n';
        return out.str();
    }

    struct XML {
        XML() { stream.Open(); }
        CBUFFERSTREAM stream;
        CXMLKEYWRITER writer{stream};
    };

    CSHAREOBJECTPTR<CARRAY> array = CMEMARRAY::Create(), result;
    CSHAREOBJECTPTR<CDICTIONARY> dictionary = CMEMDICTIONARY::Create();
    CSHAREOBJECTPTR<CSET> set = CMEMSET::Create();
    CSHAREOBJECTPTR<CNESTED> object = AdoptObject(new CNESTED);
    CVALUE value = kLong;
    _variant_t variant = L"a variant's text that is long as well";
    std::string text = "before";
    CEMAIL email = "somebody@example.org";
    CSHAREOBJECTPTR<CANYOF> anyOf = AdoptObject(new CANYOF);
    mutable CBUFFERSTREAM stream;
    CBUFFERSTREAM objects;
    XML xml;
};

struct TOTEXT {
    static void Write(const std::string&, const std::string& line) { text = line; }
    static inline std::string text;
};

const SCENARIO<STATE> kScenarios[] = {
    {"append to an array", [](STATE& state) { state.array->AddObject(Record(4, kLong)); }},
    {"insert into an array", [](STATE& state) { state.array->InsertObject(1, Record(4, kLong)); }},
    {"a key of all elements",
     [](STATE& state) { state.result = static_cast<CARRAY*>(state.array->GetKeyValue("text").Get()); }},
    {"set a key of all elements",
     [](STATE& state) { state.array->SetKeyValue("text", state.array->GetKeyValue("number")); }, LEAVES::Anything},
    {"filter", [](STATE& state) { state.result = state.array->Filter(Condition()); }},
    {"sort",
     [](STATE& state) { state.result = SortArray(state.array, CSORTDESCRIPTORBUILDER::Create("+text;-number")); }},
    {"put into a dictionary", [](STATE& state) { state.dictionary->SetKeyValue(kLong, Record(8, kLong)); }},
    {"replace in a dictionary", [](STATE& state) { state.dictionary->SetKeyValue("record", Record(8, kLong)); }},
    {"list the keys of a dictionary", [](STATE& state) { state.result = state.dictionary->GetKeys(); }},
    {"set by a path", [](STATE& state) { state.dictionary->SetKeyPathValue("record.text", Value(kLong)); }},
    {"get by a path", [](STATE& state) { state.value = ValueOf(state.dictionary->GetKeyPathValue("record.text")); }},
    {"add to a set", [](STATE& state) { state.set->AddObject(Record(4, kLong)); }},
    {"unite sets",
     [](STATE& state) {
         const auto other = CMEMSET::Create();
         other->AddObject(Record(5, kLong));
         other->AddObject(state.array->First());
         state.set->Union(other);
     }},
    {"intersect sets",
     [](STATE& state) {
         const auto other = CMEMSET::Create();
         other->AddObject(state.array->First());
         state.set->Intersect(other);
     }},
    {"assign a value", [](STATE& state) { state.value = CVALUE(std::string(kLong) + kLong); }},
    {"a value from a variant", [](STATE& state) { state.value = CVALUE(state.variant); }},
    {"create by name",
     [](STATE& state) {
         state.array->AddObject(COBJECTFACTORY::GetInstance()->CreateObject("class MLCore::CMEMARRAY"));
     }},
    {"write a text", [](STATE& state) { state.stream.SetValue(std::string(3000, 'x')); }},
    {"write a line through a text decorator",
     [](STATE& state) { COSTREAMDECORATORTEXT(state.stream).SetValue(std::string(3000, 'x')); }},
    {"write a field in quotes",
     [](STATE& state) {
         CCSVENCODER encoder;
         COSTREAMDECORATORFIELD(state.stream, ';', encoder).SetValue(kLong);
     }},
    {"read fields",
     [](STATE& state) {
         CBUFFERSTREAM lines(static_cast<unsigned long>(sizeof kLong - 1), kLong);
         lines.Open();
         CCSVENCODER encoder;
         CISTREAMDECORATORFIELD fields(lines, ',', encoder);
         std::string first;
         CSTREAMREADER reader(fields);
         reader >> first >> state.text;
     },
     LEAVES::Anything},
    {"write an object", [](STATE& state) { state.stream.SetObject(state.object); }, LEAVES::Anything},
    {"read an object",
     [](STATE& state) {
         state.objects.Open();
         const auto again = state.objects.GetObject();
         state.text = static_cast<const CNESTED&>(*again).text;
     }},
    {"hand out a handle",
     [](STATE& state) {
         CHANDLESTREAM stream;
         stream.Open();
         stream.SetValue(std::string(kLong));
         state.value = static_cast<long>(stream.GetSize());
     }},
    {"show a predicate",
     [](STATE& state) {
         state.text = CPREDICATEHELPER(Condition()).GetStrSQL() + CPREDICATEHELPER(Condition()).GetStr();
     }},
    {"read a predicate",
     [](STATE& state) {
         state.xml.stream.Open();
         CXMLKEYREADER reader(state.xml.stream);
         const auto read = CPREDICATE::Create(reader);
         state.text = CPREDICATEHELPER(read).GetStrSQL();
     }},
    {"write a predicate",
     [](STATE& state) {
         STATE::XML xml;
         Condition()->DoWriteState(xml.writer);
         state.value = static_cast<long>(xml.stream.GetSize());
     }},
    {"add to a predicate", [](STATE& state) { state.anyOf->AddPredicate(Condition()); }},
    {"an address",
     [](STATE& state) { state.email = CEMAIL("a.long.name.of.somebody.else@a.long.domain.example.org"); }},
    {"a password",
     [](STATE& state) {
         const auto password = CPASSWORD::Create(kLong);
         state.value = *password == *CPASSWORD::CreateSecure(30) ? 1 : 0;
     }},
    {"a line of a log",
     [](STATE& state) {
         CLOGGERBASIC<TOTEXT> logger("faults", CLOGMANAGER::Level::ERR);
         logger << kLong << 12345 << MLCore::endl;
         state.text = TOTEXT::text;
     },
     LEAVES::Anything},
    {"a failure with a text",
     [](STATE& state) {
         const FrameworkException failure(1, 2, 0, 0, kLong);
         const FrameworkException copy(failure);
         state.text = copy.GetText() != nullptr ? copy.GetText() : "";
     },
     LEAVES::Anything},
    {"from UTF-8 and back", [](STATE& state) { state.text = Utf8FromAnsi(AnsiFromUtf8(kLong)); }},
};

/// Lists its keys.
class CLISTED : public COBJECT, public CKEYNAMES {
    MLCORE_CLASS(CLISTED, COBJECT, CKEYNAMES)
public:
    std::vector<std::string> GetKeyNames() const override { return {kLong, "amount"}; }
};
MLCORE_REGISTER_CLASS(CLISTED)

/// What fails without an allocation, except for the text.
struct REFUSING {
    REFUSING() {
        xml.writer.BeginElement("root");
        xml.writer.EndElement();
        xml.stream.Open();
        reader.BeginElement("root");
        other.writer.BeginElement("root");
        read.Open();
    }
    OBJECT listed = AdoptObject<COBJECT>(new CLISTED);
    CSHAREOBJECTPTR<CARRAY> array = CMEMARRAY::Create();
    CVALUE value = kLong;
    std::string key = "amont", path = "a..b";
    STATE::XML xml, other;
    CXMLKEYREADER reader{xml.stream};
    CBUFFERSTREAM closed, read{0, nullptr};
};

const struct {
    const char* name;
    int failure;
    void (*act)(REFUSING& state);
} kRefusals[] = {
    {"a text of parts", 138, [](REFUSING&) { FailWith(138, kLong, 1, Quoted(kLong)); }},
    {"a message of the system", -3002,
     [](REFUSING&) {
         static_cast<void>(platform::FileOpen("no such file", platform::kFileRead));
         FailWithLastError("cannot open ", Quoted(kLong));
     }},
    {"an unknown key", 151, [](REFUSING& state) { static_cast<void>(state.listed->GetKeyValue(state.key)); }},
    {"an unknown key to be set", 151, [](REFUSING& state) { state.listed->SetKeyPathValue(state.key, nullptr); }},
    {"a malformed path", 151, [](REFUSING& state) { static_cast<void>(state.listed->GetKeyPathValue(state.path)); }},
    {"an unknown class", 123, [](REFUSING&) { static_cast<void>(COBJECTFACTORY::GetInstance()->CreateObject(kLong)); }},
    {"an object that cannot be copied", 150, [](REFUSING& state) { static_cast<void>(state.listed->Clone()); }},
    {"an attribute that is missing", 138, [](REFUSING& state) { static_cast<void>(state.reader.GetAttribute("key")); }},
    {"a name that is none", 138, [](REFUSING& state) { state.other.writer.SetAttribute(kLong, ""); }},
    {"a length of a password", 132, [](REFUSING&) { static_cast<void>(CPASSWORD::CreateStrong(3)); }},
    {"a value of another type", 138, [](REFUSING& state) { static_cast<void>(state.value.ToLong()); }},
    {"an index", 151, [](REFUSING& state) { state.array->RemoveObjectAt(7); }},
    {"a closed stream", 141, [](REFUSING& state) { state.closed.SetPosition(0); }},
    {"the end of a stream", -110,
     [](REFUSING& state) {
         double number = 0;
         state.read.GetValue(number);
     }},
};

TEST(AllocationTest, AFailureWithoutMemoryForItsTextKeepsItsCode) {
    for (const auto& refusal : kRefusals) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, refusal.name);
        REFUSING state;
        for (const int round : {0, 1, 2}) {
            const long live = gFaults.live;
            gFaults.kind = FAULTS::Kind::Memory;
            gFaults.isLasting = round == 2;
            long toGo = 0;
            do {
                gFaults.toGo = toGo++;
                EXPECT_EQ(FailureOf({refusal.name, refusal.act}, state), refusal.failure) << toGo;
            } while (gFaults.hasFailed && !HasFailure());
            EXPECT_TRUE(gFaults.live == live || round == 0)
                << "after the first use, which may leave the description of a class";
        }
    }
}

TEST(AllocationTest, FailuresChangeAndLoseNothing) {
    long failures = 0;
    for (const SCENARIO<STATE>& scenario : kScenarios) {
        failures += FailInTurn(scenario, {{FAULTS::Kind::Memory, false}, {FAULTS::Kind::Memory, true}});
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(failures, 500);
}

}  // namespace
