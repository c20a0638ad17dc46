#pragma once

#include <MLCore/core/CSHAREOBJECT.h>
#include <MLCore/datetime/CDATE.h>
#include <MLCore/platform/Export.h>

#include <array>
#include <cstdint>

namespace MLCore {

/// A business calendar: which weekdays are open for business (ouvré), which dates are public holidays (férié), which days
/// are worked (travaillé), where a week starts and which week is the first of a year. Dates ask it wherever they take a
/// strategy.
///
/// A calendar of one's own derives from this class, or from one of the library's, and overrides IsFerie, and IsTravaille
/// where worked days follow another rule:
///
///     class CHOUSECALENDAR : public CCALENDARFRENCHSTRATEGY {
///         int IsFerie(const CDATE& date) const override {
///             return date == CDATE(2, 1, 2025) ? 1 : CCALENDARFRENCHSTRATEGY::IsFerie(date);
///         }
///     };
///     CSHAREOBJECTPTR<CCALENDARSTRATEGY> calendar = AdoptObject<CCALENDARSTRATEGY>(new CHOUSECALENDAR);
///
/// By default Monday to Friday are open, weeks start on Monday, and week 1 has at least four days in the new year.
/// Strategies are shared objects without a lock: settings may be changed at any time and count from the next question.
class MLCORE_API CCALENDARSTRATEGY : public CSHAREOBJECT {
public:
    /// Which week is week 1 of a year.
    enum eKindOfFirstWeekOfYear : int {
        FirstWeekContainsNewYear,  ///< the one with 1 January
        FirstWeekOfFourDays,       ///< the first one with at least four days in the new year (ISO 8601)
        FirstFullWeek,             ///< the first one that starts in the new year
    };

    CCALENDARSTRATEGY() = default;
    CCALENDARSTRATEGY(const CCALENDARSTRATEGY&) = default;

    /// 1 when the weekday is open for business. Takes the signed weekdays of CDATE::GetDayOfWeek() too (-6..-1); other
    /// numbers give 0.
    [[nodiscard]] virtual int IsOuvre(CDATE::eDay day) const;
    /// Opens (not 0) or closes (0) a weekday; a number outside -6..6 is ignored.
    virtual void SetOuvre(CDATE::eDay day, int isOuvre);
    [[nodiscard]] virtual eKindOfFirstWeekOfYear GetFirstWeek();
    virtual void SetFirstWeek(eKindOfFirstWeekOfYear kind);
    [[nodiscard]] virtual CDATE::eDay GetFirstDayOfWeek();
    virtual void SetFirstDayOfWeek(CDATE::eDay day);
    /// 1 on a public holiday.
    [[nodiscard]] virtual int IsFerie(const CDATE& date) const = 0;
    /// 1 on a worked day: here an open weekday that is no holiday.
    [[nodiscard]] virtual int IsTravaille(const CDATE& date) const;

    /// Easter Sunday of the year in the Gregorian calendar, by the anonymous computus that Meeus, Jones and Butcher
    /// published (J. Meeus, "Astronomical Algorithms", chapter 8). Years below 0 give what its formula gives, and no calendar
    /// here has movable holidays in them.
    [[nodiscard]] static CDATE GetPaquesDate(short year) noexcept;

protected:
    ~CCALENDARSTRATEGY() override;

private:
    std::array<std::int32_t, 7> mOuvre = {1, 1, 1, 1, 1, 0, 0};
    CDATE::eDay mFirstDayOfWeek = CDATE::Monday;
    eKindOfFirstWeekOfYear mFirstWeek = FirstWeekOfFourDays;
};

}  // namespace MLCore
