#include "platform/text/DateText.h"

#include <cstddef>

namespace plenair {

namespace {

DateLocale& Active() {
    static DateLocale s_locale;
    return s_locale;
}

std::string TwoDigits(int number) {
    return std::to_string(100 + number % 100).substr(1);
}

} // namespace

void SetDateLocale(const DateLocale& locale) {
    Active() = locale;
}

std::string MediumDate(const LocalTime& time) {
    const std::string day = TwoDigits(time.Day);
    const std::string& month = Active().ShortMonths.at(static_cast<std::size_t>(time.Month - 1));
    const std::string year = TwoDigits(time.Year);
    switch (Active().Order) {
    case DateOrder::MonthDayYear:
        return month + "-" + day + "-" + year;
    case DateOrder::YearMonthDay:
        return year + "-" + month + "-" + day;
    case DateOrder::DayMonthYear:
        break;
    }
    return day + "-" + month + "-" + year;
}

std::string MediumTime(const LocalTime& time) {
    const int hour = time.Hour % 12 == 0 ? 12 : time.Hour % 12;
    return TwoDigits(hour) + ":" + TwoDigits(time.Minute) + (time.Hour < 12 ? " AM" : " PM");
}

} // namespace plenair
