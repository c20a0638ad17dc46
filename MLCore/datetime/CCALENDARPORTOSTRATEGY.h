#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// The Portuguese calendar: 1 January, 25 April, 1 May, 10 June, 15 August, 5 October, 1 November, 1 December, 8
/// December, 25 December, Shrove Tuesday, Good Friday, Easter Monday and Corpus Christi.
class MLCORE_API CCALENDARPORTOSTRATEGY : public CCALENDARSTRATEGY {
public:
    /// A new calendar with the default settings.
    [[nodiscard]] static CSHAREOBJECTPTR<CCALENDARPORTOSTRATEGY> Create();

    CCALENDARPORTOSTRATEGY() = default;
    CCALENDARPORTOSTRATEGY(const CCALENDARPORTOSTRATEGY&) = default;

    [[nodiscard]] int IsFerie(const CDATE& date) const override;

protected:
    ~CCALENDARPORTOSTRATEGY() override;
};

}  // namespace MLCore
