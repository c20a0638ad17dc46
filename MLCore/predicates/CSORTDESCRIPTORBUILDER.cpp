#include <MLCore/predicates/CSORTDESCRIPTORBUILDER.h>

#include <MLCore/predicates/CSORTDESCRIPTOR.h>
#include <MLCore/values/CMEMARRAY.h>
#include <MLCore/values/Elements.h>

#include <cstddef>
#include <utility>

namespace MLCore {

CSORTDESCRIPTORBUILDER::CSORTDESCRIPTORBUILDER() : mDescriptors(CMEMARRAY::Create()) {}

CSORTDESCRIPTORBUILDER::CSORTDESCRIPTORBUILDER(const std::string& text) : CSORTDESCRIPTORBUILDER() { *this << text; }

CSORTDESCRIPTORBUILDER::CSORTDESCRIPTORBUILDER(const CSORTDESCRIPTORBUILDER& other)
    : mDescriptors(CMEMARRAY::Create(ElementsOf(*other.mDescriptors))) {}

CSORTDESCRIPTORBUILDER::CSORTDESCRIPTORBUILDER(CSORTDESCRIPTORBUILDER&& other) : CSORTDESCRIPTORBUILDER() {
    std::swap(mDescriptors, other.mDescriptors);
}

CSORTDESCRIPTORBUILDER& CSORTDESCRIPTORBUILDER::operator=(CSORTDESCRIPTORBUILDER other) noexcept {
    std::swap(mDescriptors, other.mDescriptors);
    return *this;
}

CSORTDESCRIPTORBUILDER::~CSORTDESCRIPTORBUILDER() = default;

CSORTDESCRIPTORBUILDER& CSORTDESCRIPTORBUILDER::operator<<(const std::string& text) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::string_view segment = rest.substr(0, rest.find(';'));
        AppendSegment(segment);
        rest.remove_prefix(segment.size() < rest.size() ? segment.size() + 1 : rest.size());
    }
    return *this;
}

void CSORTDESCRIPTORBUILDER::AppendSegment(std::string_view segment) {
    using TYPE = CSORTDESCRIPTOR::SortOrderType;
    const std::size_t begin = segment.find_first_not_of(" +-");
    if (begin == std::string_view::npos) {
        return;
    }
    const std::size_t end = segment.find_last_not_of(' ') + 1;
    const std::size_t sign = segment.substr(0, begin).find_last_of("+-");
    const bool isDescending = sign != std::string_view::npos && segment[sign] == '-';
    mDescriptors->AddObject(CSORTDESCRIPTOR::Create(std::string(segment.substr(begin, end - begin)),
                                                    isDescending ? TYPE::Descending : TYPE::Ascending));
}

CSHAREOBJECTPTR<CARRAY> CSORTDESCRIPTORBUILDER::Create(const std::string& text) {
    return CSORTDESCRIPTORBUILDER(text).mDescriptors;
}

}  // namespace MLCore
