/// What the streams with a position do, in its simplest form, and single steps to compare the two by.
#pragma once

#include <MLCore/core/FailureChecks.h>
#include <support/Failure.h>

#include <algorithm>
#include <string>

namespace streammodel {

using namespace MLCore;
using support::FailureOf;
using SIZE = unsigned long long;

struct MODEL {
    void Check(bool fits, short failure) const { FailOSErr(!isOpen ? short{141} : fits ? short{0} : failure); }
    void Open() { isOpen = true, position = 0; }
    void Close() { isOpen = false; }
    int IsEnd() const { return !isOpen || (isCounting ? position == size : position >= size); }
    SIZE GetPosition() const { return isOpen ? position : 0; }
    SIZE GetSize() const { return isOpen ? size : 0; }
    void SetPosition(SIZE to) { Check(to <= size, -110), position = to; }
    void SetPositionFromEnd(SIZE distance) { Check(distance <= size, -110), position = size - distance; }
    void Skip(long delta) {
        Check(position + SIZE(delta) <= (isCounting ? 99999 : size), -110), position += SIZE(delta);
    }
    void SetSize(SIZE to) {
        Check(to <= most, -111);
        if (most == ~0ULL) bytes.resize(to);  // where the memory is the caller's, it keeps what it holds
        size = to, position = std::min(position, size);
    }
    void SetValue(const void* data, long count) {
        Check(position + SIZE(count) <= most, -111);
        if (count == 0) return;
        size = std::max(size, position + SIZE(count));
        bytes.resize(std::max<SIZE>(bytes.size(), size));
        bytes.replace(position, SIZE(count), static_cast<const char*>(data), SIZE(count));
        position += SIZE(count);
    }
    long GetValue(void* buffer, long count) {
        Check(true, 0);
        const SIZE come = position < size ? std::min(SIZE(count), size - position) : 0;
        if (!isCounting) bytes.copy(static_cast<char*>(buffer), come, position);
        position += isCounting ? SIZE(count) : come;
        return static_cast<long>(come);
    }

    SIZE most = ~0ULL;
    bool isCounting = false;
    std::string bytes = {};  // of which the first `size` count
    SIZE size = bytes.size(), position = 0;
    bool isOpen = false;
};

/// Does one operation and returns all that can be seen after it.
template <class STREAM>
std::string Do(STREAM& stream, std::size_t what, unsigned number) {
    std::string came(number, '?'), text(number / 4, static_cast<char>('a' + number % 26));
    long count = 0;
    const auto step = [&] {
        switch (what) {
            case 0:
                return number < 20 ? stream.Close() : stream.Open();
            case 1:
                return stream.SetPosition(number);
            case 2:
                return stream.SetPositionFromEnd(number);
            case 3:
                return stream.Skip(static_cast<long>(number) - 20);
            case 4:
                return stream.SetSize(number);
            case 5:
                return void(count = stream.GetValue(static_cast<void*>(came.data()), static_cast<long>(number)));
            default:
                return stream.SetValue(static_cast<const void*>(text.data()), static_cast<long>(text.size()));
        }
    };
    std::string seen = std::to_string(what) + ": " + std::to_string(FailureOf(step).msg);
    for (const SIZE each : {stream.GetPosition(), stream.GetSize(), SIZE(stream.IsEnd()), SIZE(count)})
        seen.append(" ").append(std::to_string(each));
    return seen.append(" ").append(came);
}

}  // namespace streammodel
