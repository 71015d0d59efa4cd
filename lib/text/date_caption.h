// Dates as the main window shows them.
#pragma once

#include <string>

#include "document/records.h"

namespace mirvane {

// A moment of the local clock, given to the listing so that its
// "; Décompilé le ..." line can be fixed in tests.
struct ListingClock {
    int Year = 2000, Month = 1, Day = 1, Hour = 0, Minute = 0, Second = 0;
    static ListingClock Now();
};

// lblDateCreation: four blanks, "dd/mm/yyyy", five blanks, "hh:mm:ss", from
// the header date. A year below 2000 counts from 1900, a month above 12 is 12.
std::string DateCreationCaption(const TypHeader& header);

// "dd/mm/yyyy" and "hh:mm:ss" of a clock reading.
std::string ShortDateText(const ListingClock& clock);
std::string LongTimeText(const ListingClock& clock);

}  // namespace mirvane
