#pragma once

#include <functional>

// Date and time of day in local time; a test can set them.
namespace plenair {

struct LocalTime {
    int year = 0;
    int month = 0; // 1 to 12
    int day = 0;
    int hour = 0; // 0 to 23
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

LocalTime Now();

// Replaces the system's clock; an empty function brings it back.
void SetClock(std::function<LocalTime()> clock);

} // namespace plenair
