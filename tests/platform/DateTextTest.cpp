#include "platform/DateText.h"

#include <gtest/gtest.h>

namespace plenair {
namespace {

LocalTime At(int hour, int minute) {
    return {2026, 3, 5, hour, minute, 59, 999};
}

TEST(DateText, TimeStandsOnTheTwelveHourClock) {
    const struct {
        int hour;
        int minute;
        const char* text;
    } rows[] = {{0, 5, "12:05 AM"},  {1, 0, "01:00 AM"},  {11, 42, "11:42 AM"},
                {12, 0, "12:00 PM"}, {13, 9, "01:09 PM"}, {23, 59, "11:59 PM"}};
    for (const auto& row : rows) {
        EXPECT_EQ(MediumTime(At(row.hour, row.minute)), row.text);
    }
}

TEST(DateText, DateStandsInTheOrderOfTheLocale) {
    EXPECT_EQ(MediumDate(At(0, 0)), "05-Mar-26");
    EXPECT_EQ(MediumDate({2109, 12, 31, 0, 0, 0, 0}), "31-Dec-09");
    DateLocale locale;
    locale.shortMonths[2] = "Mär";
    locale.order = DateOrder::MonthDayYear;
    SetDateLocale(locale);
    EXPECT_EQ(MediumDate(At(0, 0)), "Mär-05-26");
    locale.order = DateOrder::YearMonthDay;
    SetDateLocale(locale);
    EXPECT_EQ(MediumDate(At(0, 0)), "26-Mär-05");
    SetDateLocale({});
}

} // namespace
} // namespace plenair
