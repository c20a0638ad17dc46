#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// The calendar of French banks: the holidays of CCALENDARFRENCHSTRATEGY, Good Friday and 26 December.
class MLCORE_API CCALENDARBANQUESTRATEGY : public CCALENDARSTRATEGY {
public:
    /// A new calendar with the default settings.
    [[nodiscard]] static CSHAREOBJECTPTR<CCALENDARBANQUESTRATEGY> Create();

    CCALENDARBANQUESTRATEGY() = default;
    CCALENDARBANQUESTRATEGY(const CCALENDARBANQUESTRATEGY&) = default;

    [[nodiscard]] int IsFerie(const CDATE& date) const override;

protected:
    ~CCALENDARBANQUESTRATEGY() override;
};

}  // namespace MLCore
