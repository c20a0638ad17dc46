#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// The calendar of Portuguese banks. Its holidays are those of CCALENDARPORTOSTRATEGY, on purpose; it is a separate
/// class because the two may differ in the future.
class MLCORE_API CCALENDARBANQUEPORTOSTRATEGY : public CCALENDARSTRATEGY {
public:
    /// A new calendar with the default settings.
    [[nodiscard]] static CSHAREOBJECTPTR<CCALENDARBANQUEPORTOSTRATEGY> Create();

    CCALENDARBANQUEPORTOSTRATEGY() = default;
    CCALENDARBANQUEPORTOSTRATEGY(const CCALENDARBANQUEPORTOSTRATEGY&) = default;

    [[nodiscard]] int IsFerie(const CDATE& date) const override;

protected:
    ~CCALENDARBANQUEPORTOSTRATEGY() override;
};

}  // namespace MLCore
