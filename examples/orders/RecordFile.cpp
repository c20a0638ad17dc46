#include "RecordFile.h"

#include <MLCore/streams/COSTREAMDECORATORFIELD.h>

#include <algorithm>
#include <cstddef>

#include "Text.h"

namespace orders {

using namespace MLCore;

namespace {

constexpr char kSeparator = ';';
constexpr unsigned kLongestLine = 1U << 20;  // room for every record

}  // namespace

std::string ReasonOf(const FrameworkException& failure) {
    const char* const text = failure.GetText();
    return text != nullptr && failure.GetCode() == 0 ? ": " + ToReadable(text) : "";
}

RECORDREADER::RECORDREADER(const std::string& path, PROPERTIES properties, REJECTS& rejects)
    : mFile(path.c_str()), mFields(mFile, kSeparator, mEncoder), mRejects(rejects) {
    mFields.Open();
    if (mFields.IsEnd() == 0) {
        FindColumns(properties);
    }
}

void RECORDREADER::FindColumns(PROPERTIES properties) {
    const std::vector<std::string> names = ReadLine();
    mFirstLine = mLine;
    mColumns.resize(names.size());
    for (const PROPERTY& property : properties) {
        const auto found = std::find(names.begin(), names.end(), property.key);
        if (found != names.end()) {
            mColumns[static_cast<std::size_t>(found - names.begin())] = &property;
        } else if (!property.mayLack) {
            throw std::runtime_error(mFile.GetPath() + ":1: no column \"" + property.key + '"');
        }
    }
}

bool RECORDREADER::Read(CRECORD& record) {
    while (mFields.IsEnd() == 0) {
        const std::string fault = ReadLine(record);
        if (fault.empty()) {
            return true;
        }
        Reject(fault);
    }
    return false;
}

// The fault of the line, or "".
std::string RECORDREADER::ReadLine(CRECORD& record) {
    const std::vector<std::string> texts = ReadLine();
    if (mLine.end - mLine.begin > kLongestLine) {
        return "more than " + std::to_string(kLongestLine) + " bytes";
    }
    if (texts.size() != mColumns.size()) {
        return std::to_string(texts.size()) + " instead of " + std::to_string(mColumns.size()) + " fields";
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const PROPERTY* const column = mColumns[i];
        if (column != nullptr && !record.SetText(*column, texts[i])) {
            return std::string(column->key) + ": " + Quoted(texts[i]) + " is not " + CRECORD::TypeName(*column);
        }
    }
    return {};
}

std::vector<std::string> RECORDREADER::ReadLine() {
    std::vector<std::string> texts;
    mLine = {mFile.GetPosition(), 0, mLine.number + 1};
    do {
        mFields.GetValue(texts.emplace_back(), kLongestLine);
    } while (mFields.IsEndOfLine() == 0 && mFile.GetPosition() - mLine.begin <= kLongestLine);
    mFields.GetNextLine();
    mLine.end = mFile.GetPosition();
    return texts;
}

int RECORDREADER::GetPercent() const {
    return static_cast<int>(mFile.GetPosition() * 100 / std::max(mFile.GetSize(), 1ULL));
}

void WriteRecords(const std::string& path, PROPERTIES properties, const CARRAY& records) {
    CFILESTREAM file(path.c_str(), CSTREAM::ReadWrite | CSTREAM::Create | CSTREAM::Truncate);
    CCSVENCODER encoder;
    COSTREAMDECORATORFIELD fields(file, kSeparator, encoder);
    fields.Open();
    for (const PROPERTY& property : properties) {
        fields << property.key;
    }
    fields.SetNextLine();
    for (const CRECORD* const record : ElementsOf<CRECORD>(records)) {
        for (const PROPERTY& property : properties) {
            fields << record->GetText(property);
        }
        fields.SetNextLine();
    }
    fields.Close();
}

}  // namespace orders
