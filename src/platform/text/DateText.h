#pragma once

#include "platform/text/LocalTime.h"

#include <array>
#include <string>

// Dates and times as text for the user. UTF-8.
namespace plenair {

enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

// How the user's locale writes dates.
struct DateLocale {
    DateOrder Order = DateOrder::DayMonthYear;
    std::array<std::string, 12> ShortMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
};

// Set once at the start, from the desktop; a test may set another.
void SetDateLocale(const DateLocale& locale);

// Two digits of the day, the short name of the month, two digits of the year, in the locale's order:
// 18-Nov-26.
std::string MediumDate(const LocalTime& time);

// Hours and minutes on the 12-hour clock with AM or PM, whatever the locale uses: 05:07 PM.
std::string MediumTime(const LocalTime& time);

} // namespace plenair
