#include <MLCore/streams/detail/STREAMPLACE.h>

#include <MLCore/streams/CISTREAMDECORATOR.h>
#include <MLCore/streams/CRANDOMSTREAM.h>
#include <MLCore/streams/detail/STREAMCURSOR.h>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace MLCore {

namespace {

/// Lines are counted in that many bytes before the failure at most: a program that goes on after many failures would
/// otherwise count all of a long text again and again.
constexpr std::size_t kCountedBytes = std::size_t{1} << 20;

}  // namespace

STREAMPLACE::STREAMPLACE(const char* word, const CISTREAM& stream) noexcept {
    try {
        const CISTREAM* innermost = &stream;
        while (const auto* const decorator = dynamic_cast<const CISTREAMDECORATOR*>(innermost)) {
            innermost = &decorator->mComponent;
        }
        if (const auto* const random = dynamic_cast<const CRANDOMSTREAM*>(innermost)) {
            std::snprintf(mText.data(), mText.size(), " %s byte %llu", word, random->GetPosition());
        }
    } catch (...) {
        // A stream that cannot say where it stands must not hide the failure.
    }
}

STREAMPLACE::STREAMPLACE(const STREAMCURSOR& cursor, unsigned long long position) noexcept {
    const STREAMAREA& area = cursor.GetArea();
    if (area.data == nullptr || area.start != 0 || position > std::min(area.size, kCountedBytes)) {
        std::snprintf(mText.data(), mText.size(), " at byte %llu", position);
        return;
    }
    const std::string_view before(area.data, static_cast<std::size_t>(position));
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t lineStart = before.rfind('\n') + 1;  // 0 in the first line
    std::snprintf(mText.data(), mText.size(), " at line %llu, column %llu (byte %llu)",
                  static_cast<unsigned long long>(line), position - lineStart + 1, position);
}

}  // namespace MLCore
