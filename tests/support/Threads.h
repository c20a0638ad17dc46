#pragma once

#include <atomic>
#include <thread>
#include <vector>

namespace support {

/// Runs action(0) to action(count - 1), each on a thread of its own and all let go at once, to their ends.
template <class Action>
void RunTogether(int count, const Action& action) {
    std::atomic<int> missing{count};
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&missing, &action, i] {
            --missing;
            while (missing > 0) {
                std::this_thread::yield();
            }
            action(i);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace support
