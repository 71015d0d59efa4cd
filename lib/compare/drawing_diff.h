// What two documents draw differently, object by object, keyed by kind, type
// and subtype. Records are decoded before they are compared, so two records
// with other bytes but the same drawing (another colour layout, palette order
// or label prefix) compare equal.
#pragma once

#include <string>
#include <vector>

#include "document/document.h"

namespace mirvane {

// One line a difference, "polygon 0x003,0x00: day foreground #FF0000 -> #00FF00";
// empty when both draw the same.
std::vector<std::string> CompareDrawings(const Document& before, const Document& after);

}  // namespace mirvane
