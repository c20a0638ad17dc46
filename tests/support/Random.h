#pragma once

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace support {

/// Random numbers of one test, the same in each run. While they live, a failure shows their seed.
template <class Engine>
class BASICRANDOM : public Engine {
public:
    explicit BASICRANDOM(unsigned int seed) : Engine(seed), mTrace("seed", 0, std::to_string(seed)) {}

    /// `first` to `last`.
    int Between(int first, int last) {
        return first + static_cast<int>((*this)() % (static_cast<unsigned int>(last - first) + 1));
    }

private:
    const testing::ScopedTrace mTrace;
};

using RANDOM = BASICRANDOM<std::mt19937>;
using RANDOM64 = BASICRANDOM<std::mt19937_64>;

}  // namespace support
