// The draw order: which polygon types are drawn at which level.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace mirvane {

struct DrawOrderEntry {
    int Level = 0;
    int Type = 0;
    int SubType = 0;
    bool operator==(const DrawOrderEntry&) const = default;
};

// By level, then type, then subtype: the order of the file and of the list.
void SortDrawOrder(std::vector<DrawOrderEntry>& entries);

// Row of ListDraworder, "Type=0x10f,SubType=0x01,3" or "Type=0x003,1": with
// the subtype part when the type is 256 or more or the subtype is not 0.
std::string DrawOrderRowText(const DrawOrderEntry& entry);

// Caption of fraDraworder: "DrawOrder  (n)".
std::string DrawOrderCaption(std::size_t rowCount);

}  // namespace mirvane
