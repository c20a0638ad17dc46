// Random operations on each stream with a position, against the model.
#include <MLCore/platform/GlobalMemory.h>
#include <MLCore/streams/CBUFFERSTREAM.h>
#include <MLCore/streams/CCOUNTINGSTREAM.h>
#include <MLCore/streams/CFILESTREAM.h>
#include <MLCore/streams/CHANDLESTREAM.h>
#include <MLCore/streams/CMEMSTREAM.h>
#include <streams/StreamModel.h>
#include <support/TempFile.h>

#include "Input.h"

namespace {

using namespace MLCore;
using namespace fuzz;
using streammodel::Do;
using streammodel::MODEL;

template <class STREAM>
void Check(STREAM& stream, MODEL model, INPUT steps, unsigned unit = 1) {
    stream.Open();
    model.Open();
    for (int i = 0; i < 24 && !steps.IsEnd(); ++i) {
        const unsigned what = steps.Below(7), number = steps.Below(80) * unit;
        FUZZ_REQUIRE(Do(stream, what, number) == Do(model, what, number));
        if constexpr (requires { stream.GetCapacity(); }) FUZZ_REQUIRE(stream.GetCapacity() == model.size);
    }
    // The whole content, also where the stream was closed or left in the middle.
    stream.Open();
    model.Open();
    const auto all = static_cast<unsigned>(model.size) + 9;
    FUZZ_REQUIRE(Do(stream, 5, all) == Do(model, 5, all));
}

/// Any operations have the same effect as on the model, and fail where the model fails, with nothing done.
void Property(INPUT input) {
    static const support::TEMPFILE scratch;
    static CFILESTREAM file(scratch.path, CSTREAM::ReadWrite | CSTREAM::Create);
    const unsigned first = input.Byte(), kind = first % 5;
    const std::string start = input.Text(64);
    if (kind == 0) {
        CBUFFERSTREAM stream(static_cast<unsigned long>(start.size()), start.data());
        Check(stream, {.bytes = start}, input);
    } else if (kind == 1) {
        void* const block =
            start.empty() ? nullptr : platform::GlobalBlockAlloc(start.size(), platform::kGlobalZeroInit);
        CHANDLESTREAM stream(block, 1);
        Check(stream, {.bytes = std::string(start.size(), '\0')}, input);
    } else if (kind == 2) {
        std::string area = start;
        CMEMSTREAM stream(static_cast<unsigned long>(area.size()), area.data());
        Check(stream, {.most = start.size(), .bytes = start}, input);
        FUZZ_REQUIRE(area.size() == start.size());
    } else if (kind == 3) {
        CCOUNTINGSTREAM stream;
        Check(stream, {.isCounting = true}, input);
    } else {
        file.Close();  // nothing of the previous input remains
        file.Open();
        file.SetSize(0);
        file << start;
        // Seldom, as it is slow: beyond the buffer of a file stream.
        Check(file, {.bytes = start}, input, first == 254 ? 331 : 1);
    }
}

const TARGET kTarget("StreamOperations", Property);

}  // namespace
