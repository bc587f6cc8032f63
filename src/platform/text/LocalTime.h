#pragma once

namespace plenair {

// Date and time of day in local time.
struct LocalTime {
    int Year = 0;
    int Month = 0; // 1 to 12
    int Day = 0;
    int Hour = 0; // 0 to 23
    int Minute = 0;
    int Second = 0;
    int Millisecond = 0;
};

} // namespace plenair
