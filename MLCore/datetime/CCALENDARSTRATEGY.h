#pragma once

#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/platform/Export.h>

#include <array>
#include <cstdint>

namespace MLCore {

/// A business calendar: which weekdays are open for business (ouvré), which dates are public holidays (férié), which
/// days are worked (travaillé), on which day a week starts and which week is the first of a year. Every function of a
/// date that takes a strategy uses it.
///
/// To make your own calendar, derive from this class or from one of the library's, and override IsFerie(). Override
/// IsTravaille() too where worked days follow another rule:
///
///     class CHOUSECALENDAR : public CCALENDARFRENCHSTRATEGY {
///     public:
///         int IsFerie(const CDATE& date) const override {
///             return date == CDATE(2, 1, 2025) ? 1 : CCALENDARFRENCHSTRATEGY::IsFerie(date);
///         }
///     };
///     CSHAREOBJECTPTR<CCALENDARSTRATEGY> calendar = AdoptObject<CCALENDARSTRATEGY>(new CHOUSECALENDAR);
///     CDATE next = NextDateOuvre(CDATE(1, 1, 2025), calendar);   // 3/1/2025
///
/// By default Monday to Friday are open, weeks start on Monday, and week 1 has at least four days in the new year.
///
/// A strategy is a shared object without a lock. Its settings may be changed at any time and apply from the next call.
/// A thread that reads them during a change gets the old or the new ones. Nothing here fails. The exceptions of an
/// override pass through the function that called it.
class MLCORE_API CCALENDARSTRATEGY : public CSHAREOBJECT {
public:
    /// Which week is week 1 of a year.
    enum eKindOfFirstWeekOfYear : int {
        FirstWeekContainsNewYear,  ///< the one with 1 January
        FirstWeekOfFourDays,       ///< the first one with at least four days in the new year (ISO 8601)
        FirstFullWeek,             ///< the first one that starts in the new year
    };
    /// The number of these rules.
    static constexpr int kFirstWeekCount = FirstFullWeek + 1;

    CCALENDARSTRATEGY() = default;
    CCALENDARSTRATEGY(const CCALENDARSTRATEGY&) = default;

    /// 1 when the weekday is open for business. Takes the negative weekdays of CDATE::GetDayOfWeek() too (-6..-1); any
    /// other number gives 0. A walk from day to day calls this once for each day.
    [[nodiscard]] virtual int IsOuvre(CDATE::eDay day) const;
    /// Opens (not 0) or closes (0) a weekday; a number outside -6..6 is ignored.
    virtual void SetOuvre(CDATE::eDay day, int isOuvre);
    [[nodiscard]] virtual eKindOfFirstWeekOfYear GetFirstWeek();
    /// Stores the rule as it is; CDATE::GetWeekNumber() takes an unknown one as FirstWeekContainsNewYear.
    virtual void SetFirstWeek(eKindOfFirstWeekOfYear kind);
    [[nodiscard]] virtual CDATE::eDay GetFirstDayOfWeek();
    /// Stores the weekday as it is; weeks start on it modulo 7.
    virtual void SetFirstDayOfWeek(CDATE::eDay day);
    /// 1 on a public holiday. It is also called for dates that are not valid.
    [[nodiscard]] virtual int IsFerie(const CDATE& date) const = 0;
    /// 1 on a worked day; by default, on an open weekday that is not a holiday.
    [[nodiscard]] virtual int IsTravaille(const CDATE& date) const;

    /// Easter Sunday of the year as a date: see EasterOf() in Easter.h. For a year below 0 it returns the result of the
    /// formula; the library's calendars have no movable holidays in such years.
    [[nodiscard]] static CDATE GetPaquesDate(short year) noexcept;

protected:
    ~CCALENDARSTRATEGY() override;

private:
    std::array<std::int32_t, CDATE::kDayCount> mOuvre = {1, 1, 1, 1, 1, 0, 0};
    CDATE::eDay mFirstDayOfWeek = CDATE::Monday;
    eKindOfFirstWeekOfYear mFirstWeek = FirstWeekOfFourDays;
};

}  // namespace MLCore
