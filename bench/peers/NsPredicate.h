/// Foundation's predicates, behind plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace bench {

class NSRECORDS {
public:
    NSRECORDS();
    ~NSRECORDS();
    void Add(std::int32_t row, const char* client, const char* city, double amount, std::int32_t date,
             std::int32_t quantity, bool isActive);
    /// Keeps those with (amount > limit and client begins with "A" or "a") or quantity from 10 to 20; their number.
    std::size_t Filter(double limit);
    /// Of the record at a place among those kept.
    [[nodiscard]] std::int32_t RowAt(std::size_t place) const;

private:
    struct STATE;
    std::unique_ptr<STATE> mState;
};

}  // namespace bench
