// Dates whose fields stand in another order: see Core.cpp.

#include <MLCore/datetime/CDATE.h>

using namespace MLCore;

// Out of range, but the program may want that when it runs.
const CDATE kStored(99, 99, 99);

CDATE FromFields(short first, short second, short third) {
    constexpr CDATE thirtiethOfApril(30, 4, 2026);
    return first != 0 ? CDATE(first, second, third) : thirtiethOfApril;
}

constexpr CDATE Set(short first, short second, short third) {
    CDATE date;
    date.Set(first, second, third);
    return date;
}

#ifdef REFUSED
constexpr CDATE kYearFirst(2026, 4, 30);          // refused
constexpr CDATE kMonthFirst(4, 30, 2026);         // refused
static_assert(CDATE(2026, 4, 30).IsDate() == 0);  // refused
constexpr CDATE kSet = Set(2026, 4, 30);          // refused
#endif

#ifdef REFUSED_WHEN_OPTIMIZED
CDATE Due() {
    CDATE due(2026, 4, 30);  // refused when optimized
    return due.AddDays(1);
}
int Compare(const CDATE& date) {
    return date < CDATE(1999, 12, 31) ? 1 : 0;  // refused when optimized
}
const CDATE kGlobal(2026, 4, 30);  // refused when optimized
#endif
