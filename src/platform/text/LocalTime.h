#pragma once

namespace plenair {

// Date and time of day in local time.
struct LocalTime {
    int year = 0;
    int month = 0; // 1 to 12
    int day = 0;
    int hour = 0; // 0 to 23
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

} // namespace plenair
