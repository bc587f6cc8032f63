#include "fuzz/Fuzz.h"
#include "platform/text/DateText.h"

// Dates and times of any moment, with any names of months.
FUZZER(dates) {
    LocalTime time;
    const std::size_t order = Choose(input, 3);
    time.Year = static_cast<int>(Choose(input, 100) * 100 + Choose(input, 100));
    time.Month = static_cast<int>(Choose(input, 12)) + 1;
    time.Day = static_cast<int>(Choose(input, 31)) + 1;
    time.Hour = static_cast<int>(Choose(input, 24));
    time.Minute = static_cast<int>(Choose(input, 60));
    DateLocale locale;
    locale.Order = static_cast<DateOrder>(order);
    const std::string month(input);
    locale.ShortMonths[static_cast<std::size_t>(time.Month - 1)] = month;
    SetDateLocale(locale);

    char day[16];
    char year[16];
    std::snprintf(day, sizeof day, "%02d", time.Day);
    std::snprintf(year, sizeof year, "%02d", time.Year % 100);
    const std::string dates[] = {day + ("-" + month + "-") + year, month + "-" + day + "-" + year,
                                 year + ("-" + month + "-") + day};
    REQUIRE(MediumDate(time) == dates[order]);

    int hour = 0;
    int minute = 0;
    char half = 0;
    char m = 0;
    const std::string text = MediumTime(time);
    REQUIRE(text.size() == 8 && std::sscanf(text.c_str(), "%2d:%2d %c%c", &hour, &minute, &half, &m) == 4);
    REQUIRE(hour >= 1 && hour <= 12 && m == 'M' && (half == 'A' || half == 'P'));
    REQUIRE(hour % 12 + (half == 'P' ? 12 : 0) == time.Hour && minute == time.Minute);
}
