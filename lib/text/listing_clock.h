// The clock reading of the "; Décompilé le ... à ..." line.
#pragma once

#include "base/local_time.h"

namespace mirvane {

using ListingClock = LocalTime;

}  // namespace mirvane
