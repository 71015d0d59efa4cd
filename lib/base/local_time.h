// A moment of the local clock: the date a save stamps into the header and
// the one the listing's heading shows. Passed in, so tests can fix it.
#pragma once

#include <string>

namespace mirvane {

struct LocalTime {
    int Year = 2000, Month = 1, Day = 1, Hour = 0, Minute = 0, Second = 0;
    static LocalTime Now();
};

// "dd/mm/yyyy" and "hh:mm:ss".
std::string ShortDateText(const LocalTime& time);
std::string LongTimeText(const LocalTime& time);

}  // namespace mirvane
