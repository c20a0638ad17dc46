#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/CSINGLETON.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

class CCALENDARMANAGER;
MLCORE_DECLARE_INSTANCE(CSINGLETON<CCALENDARMANAGER, autorelease>)

/// Holds the current calendar of the process, which dates ask when they are given none: a CCALENDARFRENCHSTRATEGY at
/// first. Reached through GetInstance(); freed when the library is unloaded.
///
/// Replacing the calendar while other threads ask for it needs the caller's own coordination.
class MLCORE_API CCALENDARMANAGER : public CSINGLETON<CCALENDARMANAGER, autorelease> {
public:
    /// The current calendar, borrowed: take a holder to keep it beyond the next SetCalendar().
    [[nodiscard]] CCALENDARSTRATEGY* GetCalendar() const;
    /// Makes `calendar` the current one and adds a reference to it. Not to be called by a strategy while it answers.
    void SetCalendar(CCALENDARSTRATEGY& calendar);

    /// `strategy`, or the current calendar when it is null.
    [[nodiscard]] static CCALENDARSTRATEGY& Resolve(CCALENDARSTRATEGY* strategy);

private:
    friend class CSINGLETON<CCALENDARMANAGER, autorelease>;

    CCALENDARMANAGER();
    ~CCALENDARMANAGER() override;

    CSHAREOBJECTPTR<CCALENDARSTRATEGY> mCalendar;
};

}  // namespace MLCore
