#include "Selection.h"

#include <MLCore/keys/CXMLKEYREADER.h>
#include <MLCore/keys/CXMLKEYWRITER.h>
#include <MLCore/predicates/BinaryPredicates.h>
#include <MLCore/predicates/CANDPREDICATE.h>
#include <MLCore/predicates/CCOMPARISONBETWEENPREDICATE.h>
#include <MLCore/predicates/CKEYEXPRESSION.h>
#include <MLCore/predicates/CPREDICATEHELPER.h>
#include <MLCore/predicates/CSORTDESCRIPTORBUILDER.h>
#include <MLCore/predicates/CVALUEEXPRESSION.h>
#include <MLCore/predicates/SortArray.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/values/CMEMARRAY.h>

#include "Journal.h"
#include "Order.h"
#include "RecordFile.h"
#include "Text.h"

namespace orders {

using namespace MLCore;

namespace {

constexpr auto kIgnoreCase = CVALUEOBJECT::ComparisonOption::CaseInsensitive;

template <class COMPARISON>
CSHAREOBJECTPTR<CPREDICATE> Compare(const char* key, const CVALUE& value, auto... option) {
    return COMPARISON::Create(CKEYEXPRESSION::Create(key), CVALUEEXPRESSION::Create(value), option...);
}

// One filter, and only blanks after it.
CSHAREOBJECTPTR<CPREDICATE> ReadPredicate(CFILESTREAM& file) {
    CXMLKEYREADER reader(file);
    auto predicate = CPREDICATE::Create(reader);
    while (file.IsEnd() == 0) {
        char byte = 0;
        file.GetValue(byte);
        Require(std::string_view(" \t\r\n").find(byte) != std::string_view::npos, kErrValueType,
                "text after the filter");
    }
    return predicate;
}

CSHAREOBJECTPTR<CPREDICATE> ReadFilter(const std::string& path) {
    CFILESTREAM file(path);
    ForFile(path, "read", [&] { file.Open(); });
    auto filter = ForFile(path, "read as a filter", [&] { return ReadPredicate(file); });
    for (const auto& key : CPREDICATEHELPER(filter).GetDistinctKeyExpressionKeys()) {
        if (const std::string fault = FaultOfKey(key.GetKey()); !fault.empty()) {
            throw std::runtime_error(path + ": " + fault);
        }
    }
    return filter;
}

}  // namespace

CSHAREOBJECTPTR<CPREDICATE> MakeFilter(const OPTIONS& options) {
    const auto conditions = CMEMARRAY::Create();
    if (!options.segment.empty()) {
        conditions->AddObject(Compare<CEQUALPREDICATE>("segment", options.segment, kIgnoreCase));
    }
    if (options.sales) {
        conditions->AddObject(Compare<CGREATERPREDICATE>("sales", *options.sales));
    }
    if (options.late) {
        conditions->AddObject(IsLate(*options.late));
    }
    if (!options.name.empty()) {
        conditions->AddObject(Compare<CBEGINSPREDICATE>("customer", options.name, kIgnoreCase));
    }
    if (!options.filter.empty()) {
        conditions->AddObject(ReadFilter(options.filter));
    }
    if (conditions->GetCount() == 1) {
        return ElementsOf<CPREDICATE>(*conditions).front();
    }
    return CANDPREDICATE::Create(*conditions);
}

void SaveFilter(const std::string& path, const CPREDICATE& filter) {
    ForFile(path, "written", [&] {
        CBUFFERSTREAM text;  // first: a filter that XML cannot hold leaves the file alone
        text.Open();
        CXMLKEYWRITER writer(text);
        filter.DoWriteState(writer);
        text.Rewind();
        CFILESTREAM file(path, CSTREAM::ReadWrite | CSTREAM::Create | CSTREAM::Truncate);
        file.Open();
        text.GetValue(file);
        file.Close();
    });
    AddWritten(path);
}

CSHAREOBJECTPTR<CPREDICATE> IsLate(int days) {
    return Compare<CGREATERPREDICATE>("businessDays", static_cast<long>(days));
}

CSHAREOBJECTPTR<CPREDICATE> IsOrdered(const CDATE& from, const CDATE& to) {
    return CCOMPARISONBETWEENPREDICATE::Create(CKEYEXPRESSION::Create("orderDate"), CVALUEEXPRESSION::Create(from),
                                               CVALUEEXPRESSION::Create(to));
}

CSHAREOBJECTPTR<CARRAY> Select(CARRAY& shipments, CPREDICATE* filter, const std::string& keys) {
    return SortArray(shipments.Filter(filter), CSORTDESCRIPTORBUILDER::Create(keys), kIgnoreCase);
}

std::string FaultOfKey(const std::string& key) {
    std::string keys;
    for (const PROPERTY& property : CSHIPMENT::Properties()) {
        if (property.key == key) {
            return {};
        }
        keys.append(" ").append(property.key);
    }
    return "orders have no key " + Quoted(key) + "; their keys are" + keys;
}

}  // namespace orders
