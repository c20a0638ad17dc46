// What libFuzzer calls with each input: the program holds one property.
#include "Input.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Bytes of its own, so that what lies behind them is seen to be read.
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    fuzz::TARGET::All().front()->property(fuzz::INPUT(bytes));
    return 0;
}
