#pragma once

#include <MLCore/core/CSHAREOBJECTPTR.h>
#include <MLCore/datetime/CCALENDARSTRATEGY.h>
#include <MLCore/platform/Export.h>

namespace MLCore {

/// The French calendar: 1 January, 1 May, 8 May, 14 July, 15 August, 1 November, 11 November, 25 December, Easter
/// Monday, Ascension Thursday and Whit Monday.
class MLCORE_API CCALENDARFRENCHSTRATEGY : public CCALENDARSTRATEGY {
public:
    /// A new calendar with the default settings.
    [[nodiscard]] static CSHAREOBJECTPTR<CCALENDARFRENCHSTRATEGY> Create();

    CCALENDARFRENCHSTRATEGY() = default;
    CCALENDARFRENCHSTRATEGY(const CCALENDARFRENCHSTRATEGY&) = default;

    [[nodiscard]] int IsFerie(const CDATE& date) const override;

protected:
    ~CCALENDARFRENCHSTRATEGY() override;
};

}  // namespace MLCore
