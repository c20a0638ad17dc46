#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/core/CSINGLETON.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

class CCALENDARMANAGER;
MLCORE_DECLARE_INSTANCE(CSINGLETON<CCALENDARMANAGER, autorelease>)

/// Holds the current calendar of the process, which dates use when the caller passes none. At first it is a
/// CCALENDARFRENCHSTRATEGY. GetInstance() creates the manager at its first call, from any thread; it lives until the
/// library is unloaded.
///
///     CCALENDARMANAGER* manager = CCALENDARMANAGER::GetInstance();
///     CSHAREOBJECTPTR<CCALENDARSTRATEGY> before = manager->GetCalendar();
///     manager->SetCalendar(*CCALENDARPORTOSTRATEGY::Create());
///     int isFerie = CDATE(10, 6, 2024).IsFerie();   // 1: asks the Portuguese calendar
///     manager->SetCalendar(*before);
///
/// Replacing the calendar is not safe while other threads use it: the caller must synchronise them.
class MLCORE_API CCALENDARMANAGER : public CSINGLETON<CCALENDARMANAGER, autorelease> {
public:
    /// The current calendar, never null, borrowed: take a holder to keep it beyond the next SetCalendar().
    [[nodiscard]] CCALENDARSTRATEGY* GetCalendar() const;
    /// Makes `calendar` the current one, adds a reference to it, and releases the previous one. A function of a
    /// strategy must not call this.
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
