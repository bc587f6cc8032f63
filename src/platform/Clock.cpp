#include "platform/Clock.h"

#include <chrono>
#include <ctime>
#include <time.h>
#include <utility>

namespace plenair {

namespace {

std::function<LocalTime()>& ReplacedClock() {
    static std::function<LocalTime()> clock;
    return clock;
}

LocalTime SystemTime() {
    const auto now =
        std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto sinceSecond = now - std::chrono::system_clock::from_time_t(seconds);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return {
        .year = parts.tm_year + 1900,
        .month = parts.tm_mon + 1,
        .day = parts.tm_mday,
        .hour = parts.tm_hour,
        .minute = parts.tm_min,
        .second = parts.tm_sec,
        .millisecond =
            static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceSecond).count()),
    };
}

} // namespace

LocalTime Now() {
    return ReplacedClock() ? ReplacedClock()() : SystemTime();
}

void SetClock(std::function<LocalTime()> clock) {
    ReplacedClock() = std::move(clock);
}

} // namespace plenair
