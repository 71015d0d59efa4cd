// The clock reading of the "; Décompilé le ... à ..." line.
#pragma once

#include <string>

namespace mirvane {

// A moment of the local clock, given to the listing so that its
// "; Décompilé le ..." line can be fixed in tests.
struct ListingClock {
    int Year = 2000, Month = 1, Day = 1, Hour = 0, Minute = 0, Second = 0;
    static ListingClock Now();
};

// "dd/mm/yyyy" and "hh:mm:ss" of a clock reading.
std::string ShortDateText(const ListingClock& clock);
std::string LongTimeText(const ListingClock& clock);

}  // namespace mirvane
