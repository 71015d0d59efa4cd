#include "document/draw_order_table.h"

#include <algorithm>
#include <tuple>

#include "document/encoding.h"
#include "lang/lookup.h"

namespace mirvane {

// Three exchange-sort passes (level, then type within a level, then subtype
// within level and type) leave the entries in this order; equal entries are
// indistinguishable, so any sort gives the same table.
void SortDrawOrder(std::vector<DrawOrderEntry>& entries) {
    std::sort(entries.begin(), entries.end(), [](const DrawOrderEntry& a, const DrawOrderEntry& b) {
        return std::tie(a.Level, a.Type, a.SubType) < std::tie(b.Level, b.Type, b.SubType);
    });
}

std::string DrawOrderRowText(const DrawOrderEntry& entry) {
    std::string row = "Type=0x" + TypeText(entry.Type);
    if (entry.Type >= 256 || entry.SubType != 0) row += ",SubType=0x" + SubTypeText(entry.SubType);
    return row + "," + std::to_string(entry.Level);
}

std::string DrawOrderCaption(std::size_t rowCount) {
    return LookupText("Main", "DrawOrder", "fraDraworder") + "  (" + std::to_string(rowCount) + ")";
}

}  // namespace mirvane
