// What no value is made of and compared with: see Core.cpp.

#include <MLCore/core/COBJECT.h>
#include <MLCore/platform/WinTypes.h>
#include <MLCore/values/CVALUE.h>

namespace {

using namespace MLCore;

enum FRUIT { Apple };

}  // namespace

void Makes(CSHAREOBJECTPTR<COBJECT>& holder, COBJECT* object, char* text, std::size_t size, const CVALUE& other) {
    for (const CVALUE& value : {CVALUE(holder), CVALUE(object), CVALUE(text), CVALUE("text"), CVALUE(0), CVALUE(0L)}) {
        static_cast<void>(value == holder || value == object || value == text || value == 'a' || value == other);
        static_cast<void>(std::string(value));
    }
    static_cast<void>(size);
#ifdef REFUSED
    CVALUE made;
    made = CVALUE(nullptr);                              // refused
    made = CVALUE('a');                                  // refused
    made = CVALUE(L'a');                                 // refused
    made = CVALUE(static_cast<unsigned char>(5));        // refused
    made = CVALUE(static_cast<signed char>(5));          // refused
    made = CVALUE(5U);                                   // refused
    made = CVALUE(5LL);                                  // refused
    made = CVALUE(5.0L);                                 // refused
    made = CVALUE(Apple);                                // refused
    made = CVALUE(CVALUE::Type::Long);                   // refused
    made = CVALUE(&size);                                // refused
    made = CVALUE(static_cast<void*>(object));           // refused
    made = CVALUE(static_cast<const COBJECT*>(object));  // refused
    made = CVALUE(L"text");                              // refused
    made = 5U;                                           // refused
    if (made) return;                                    // refused
    if (!made) return;                                   // refused
    const bool flag = made;                              // refused
    static_cast<void>(made == nullptr);                  // refused
    static_cast<void>(made == 5U);                       // refused
    static_cast<void>(made == L"text");                  // refused
    static_cast<void>(made < other);                     // refused
#endif
}
