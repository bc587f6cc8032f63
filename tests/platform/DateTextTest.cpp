#include "platform/text/DateText.h"

#include <gtest/gtest.h>

namespace plenair {

TEST(DateText, TimeStandsOnTheTwelveHourClock) {
    const std::pair<int, const char*> rows[] = {{0, "12:05 AM"},  {1, "01:05 AM"},  {11, "11:05 AM"},
                                                {12, "12:05 PM"}, {13, "01:05 PM"}, {23, "11:05 PM"}};
    for (const auto& [hour, text] : rows) {
        EXPECT_EQ(MediumTime({2026, 3, 5, hour, 5, 59, 999}), text);
    }
}

TEST(DateText, DateStandsInTheOrderOfTheLocale) {
    const LocalTime day{2009, 3, 5, 0, 0, 0, 0};
    EXPECT_EQ(MediumDate(day), "05-Mar-09");
    DateLocale locale;
    locale.ShortMonths[2] = "Mär";
    locale.Order = DateOrder::MonthDayYear;
    SetDateLocale(locale);
    EXPECT_EQ(MediumDate(day), "Mär-05-09");
    locale.Order = DateOrder::YearMonthDay;
    SetDateLocale(locale);
    EXPECT_EQ(MediumDate(day), "09-Mär-05");
    SetDateLocale({});
}

} // namespace plenair
