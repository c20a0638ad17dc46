/// Streams over the bytes of a text, for the tests of text streams.
#pragma once

#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CISTREAMDECORATOR.h>
#include <MLCore/streams/CSTREAMREADER.h>
#include <MLCore/streams/CSTREAMWRITER.h>
#include <gtest/gtest.h>
#include <support/Failure.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace bytes {

using namespace MLCore;
using namespace std::string_view_literals;
using support::FailureOf;

/// Reads these bytes through Decorator, over a stream that shows its position or one that hides it.
template <class Decorator>
struct INPUT {
    template <class... Arguments>
    INPUT(std::string_view text, bool hasPosition, Arguments&&... arguments)
        : buffer(static_cast<unsigned long>(text.size()), text.data()),
          plain(buffer),
          stream(hasPosition ? static_cast<CISTREAM&>(buffer) : plain, arguments...) {
        buffer.Open();
    }
    CBUFFERSTREAM buffer;
    CISTREAMDECORATOR plain;
    Decorator stream;
};

/// The bytes that `write` has a Decorator write.
template <class Decorator, class Write, class... Arguments>
std::string Written(const Write& write, Arguments&&... arguments) {
    CBUFFERSTREAM buffer;
    buffer.Open();
    Decorator stream(buffer, arguments...);
    write(stream);
    return std::string(static_cast<const char*>(buffer.GetBuffer()), buffer.GetSize());
}

}  // namespace bytes
