#pragma once

#include <MLCore/streams/CCSVENCODER.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <MLCore/streams/CISTREAMDECORATORFIELD.h>

#include <cstdint>
#include <string>

namespace bench {

/// No field that is measured is longer.
inline constexpr long kLongestField = 1000;

/// Reads a file of lines of `fields` fields each, separated by ";", and sums up the lengths of the fields.
inline std::int64_t ReadFieldLengths(const char* path, int fields) {
    MLCore::CFILESTREAM stream(path);
    stream.Open();
    MLCore::CCSVENCODER encoder;
    MLCore::CISTREAMDECORATORFIELD reader(stream, ';', encoder);
    std::int64_t sum = 0;
    std::string field;
    while (reader.IsEnd() == 0) {
        for (int i = 0; i < fields; ++i) {
            reader.GetValue(field, kLongestField);
            sum += static_cast<std::int64_t>(field.size());
        }
        reader.GetNextLine();
    }
    return sum;
}

}  // namespace bench
