#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// The calendar of Portuguese banks: the same holidays as CCALENDARPORTOSTRATEGY, on purpose; a class of its own so that
/// the two may part one day.
class MLCORE_API CCALENDARBANQUEPORTOSTRATEGY : public CCALENDARSTRATEGY {
public:
    [[nodiscard]] static CSHAREOBJECTPTR<CCALENDARBANQUEPORTOSTRATEGY> Create();

    CCALENDARBANQUEPORTOSTRATEGY() = default;
    CCALENDARBANQUEPORTOSTRATEGY(const CCALENDARBANQUEPORTOSTRATEGY&) = default;

    [[nodiscard]] int IsFerie(const CDATE& date) const override;

protected:
    ~CCALENDARBANQUEPORTOSTRATEGY() override;
};

}  // namespace MLCore
