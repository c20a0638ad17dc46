// One driver for all that can fail below the library: memory, and calls of the system.
#pragma once

#include <MLCore/core/ErrorCodes.h>
#include <MLCore/core/FrameworkException.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <new>
#include <string>

/// Which allocations or calls fail, counted while it is armed.
struct FAULTS {
    enum class Kind { Memory, Call, Interruption, Cut };  // Cut: only a part is read or written

    bool Fails(Kind which) {
        if (!isArmed || which != kind || toGo-- > 0) {
            return false;
        }
        toGo = isLasting ? 0 : std::numeric_limits<long>::max();
        hasFailed = true;
        isFelt = isFelt || kind == Kind::Memory || kind == Kind::Call;
        kind = kind == Kind::Cut && isLasting ? Kind::Call : kind;  // as on a disk that fills
        return true;
    }
    Kind kind = Kind::Memory;
    long toGo = 0;
    bool isLasting = false, isArmed = false, hasFailed = false;
    bool isFelt = false;  // the caller is told
    long live = 0;        // allocations
    long handles = 0;     // open files, and pieces of memory for secrets
};
extern FAULTS gFaults;

struct FAULTMODE {
    FAULTS::Kind kind;
    bool isLasting;
};

/// A system call that fails does so with EIO, which is told as this.
inline constexpr int kIoFailure = -3000 - 1117;

/// What a scenario that fails leaves behind.
enum class LEAVES {
    Nothing,   // all of it or nothing
    Part,      // some, and all when it is tried again
    Anything,  // a series of steps
    Less,      // it goes on without what failed: all of it or nothing, told or not
};

template <class STATE>
struct SCENARIO {
    const char* name;
    void (*act)(STATE& state);
    LEAVES leaves = LEAVES::Nothing;
    int told = kIoFailure;
};

/// What an armed call throws: 0 for nothing, 1 for std::bad_alloc, 2 for what must not be, else the number of the
/// failure.
template <class STATE>
int FailureOf(const SCENARIO<STATE>& scenario, STATE& state) {
    int failure = 0;
    gFaults.hasFailed = gFaults.isFelt = false;
    gFaults.isArmed = true;
    try {
        scenario.act(state);
    } catch (const std::bad_alloc&) {
        failure = 1;
    } catch (const MLCore::FrameworkException& told) {
        failure = told.GetMsg();
    } catch (...) {
        failure = 2;
    }
    gFaults.isArmed = false;
    return failure;
}

/// False when there was no such allocation or call.
template <class STATE>
bool FailsCleanly(const SCENARIO<STATE>& scenario, const FAULTMODE& mode, long toGo, const std::string& before,
                  const std::string& after) {
    STATE state;
    gFaults.kind = mode.kind;
    gFaults.isLasting = mode.isLasting;
    gFaults.toGo = toGo;
    const int failure = FailureOf(scenario, state);
    const std::string shown = state.Show();
    if (!gFaults.isFelt) {
        EXPECT_EQ(failure, 0);
        EXPECT_EQ(shown, after);
    } else if (mode.kind == FAULTS::Kind::Memory) {
        EXPECT_TRUE(failure == 0 || failure == 1 || failure == MLCore::kErrNull) << failure;
    } else {
        EXPECT_TRUE(failure == scenario.told || (failure == 0 && scenario.leaves == LEAVES::Less)) << failure;
    }
    switch (scenario.leaves) {
        case LEAVES::Nothing:
            EXPECT_TRUE(shown == (failure == 0 ? after : before) || mode.kind == FAULTS::Kind::Cut) << shown;
            break;
        case LEAVES::Less:
            EXPECT_TRUE(shown == before || shown == after) << shown;
            break;
        case LEAVES::Part:
        case LEAVES::Anything:
            break;
    }
    if (scenario.leaves != LEAVES::Anything && shown != after) {
        EXPECT_NO_THROW(scenario.act(state));
        EXPECT_EQ(state.Show(), after);
    }
    return gFaults.hasFailed;
}

/// Has each allocation or call of the scenario fail in turn, and returns how many there were.
template <class STATE>
long FailInTurn(const SCENARIO<STATE>& scenario, std::initializer_list<FAULTMODE> modes) {
    // Small blocks wait to be used again, but where the address sanitizer looks after each.
#if defined(__has_feature)
#define MLCORE_HAS_ASAN __has_feature(address_sanitizer)
#else
#define MLCORE_HAS_ASAN 0
#endif
    constexpr long kWaitingBlocks = MLCORE_HAS_ASAN ? 0 : 200;
    const testing::ScopedTrace trace(__FILE__, __LINE__, scenario.name);
    const auto complaints = [] {
        return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
    };
    const auto show = [&scenario](bool acts) {
        STATE state;
        if (acts) {
            scenario.act(state);
        }
        return state.Show();
    };
    const std::string before = show(false), after = show(true);
    EXPECT_NE(before, after);
    const long live = gFaults.live, handles = gFaults.handles;
    long failures = 0;
    for (const FAULTMODE& mode : modes) {
        const int complaintsBefore = complaints();
        long toGo = 0;
        while (FailsCleanly(scenario, mode, toGo, before, after) && complaints() == complaintsBefore) {
            ++toGo;
        }
        EXPECT_EQ(complaints(), complaintsBefore)
            << "kind " << static_cast<int>(mode.kind) << " at " << toGo << (mode.isLasting ? " and on" : "");
        failures += toGo;
    }
    EXPECT_LE(gFaults.live, live + kWaitingBlocks);
    EXPECT_EQ(gFaults.handles, handles);
    return failures;
}
