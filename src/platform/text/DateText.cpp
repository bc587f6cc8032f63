#include "platform/text/DateText.h"

namespace plenair {

namespace {

DateLocale& Active() {
    static DateLocale locale;
    return locale;
}

std::string TwoDigits(int number) {
    return std::to_string(100 + number % 100).substr(1);
}

} // namespace

void SetDateLocale(const DateLocale& locale) {
    Active() = locale;
}

std::string MediumDate(const LocalTime& time) {
    const std::string day = TwoDigits(time.day);
    const std::string& month = Active().shortMonths.at(static_cast<std::size_t>(time.month - 1));
    const std::string year = TwoDigits(time.year);
    switch (Active().order) {
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
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    return TwoDigits(hour) + ":" + TwoDigits(time.minute) + (time.hour < 12 ? " AM" : " PM");
}

} // namespace plenair
