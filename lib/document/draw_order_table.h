// The draw order: the rows of ListDraworder are its store; the table is a
// parsed copy, rebuilt whenever it is needed.
#pragma once

#include <string>
#include <vector>

namespace mirvane {

struct DrawOrderEntry {
    int Level = 0;
    int Type = 0;
    int SubType = 0;
    bool operator==(const DrawOrderEntry&) const = default;
};

// "Type=0x10f,SubType=0x01,3" or "Type=0x003,1"; a row of another shape
// gives an entry of zeros.
DrawOrderEntry ParseDrawOrderRow(const std::string& row);

// Parsed rows sorted by level, type, subtype.
std::vector<DrawOrderEntry> SortedDrawOrderTable(const std::vector<std::string>& rows);

// Canonical row: with the subtype part when the type is 256 or more or the
// subtype is not 0.
std::string DrawOrderRowText(const DrawOrderEntry& entry);

// Sorts the rows and writes them back in canonical form; returns the table.
std::vector<DrawOrderEntry> RebuildDrawOrderRows(std::vector<std::string>& rows);

// Caption of fraDraworder: "DrawOrder  (n)".
std::string DrawOrderCaption(std::size_t rowCount);

}  // namespace mirvane
