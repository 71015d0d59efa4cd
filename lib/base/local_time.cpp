#include "base/local_time.h"

#include <chrono>
#include <cstdio>
#include <ctime>

namespace mirvane {

LocalTime LocalTime::Now() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
#if defined(_WIN32)
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

std::string ShortDateText(const LocalTime& clock) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%02d/%02d/%04d", clock.Day, clock.Month, clock.Year);
    return buffer;
}

std::string LongTimeText(const LocalTime& clock) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", clock.Hour, clock.Minute, clock.Second);
    return buffer;
}

}  // namespace mirvane
