#include "document/draw_order_table.h"

#include <algorithm>
#include <tuple>

#include "document/encoding.h"
#include "lang/lookup.h"
#include "base/numbers.h"

namespace mirvane {

namespace {

std::vector<std::string> SplitAtCommas(const std::string& row) {
    std::vector<std::string> parts(1);
    for (char c : row) {
        if (c == ',') parts.emplace_back();
        else parts.back() += c;
    }
    return parts;
}

std::string LastCharacters(const std::string& text, std::size_t count) {
    return text.size() <= count ? text : text.substr(text.size() - count);
}

}  // namespace

DrawOrderEntry ParseDrawOrderRow(const std::string& row) {
    const std::vector<std::string> parts = SplitAtCommas(row);
    DrawOrderEntry entry;
    if (parts.size() != 2 && parts.size() != 3) return entry;
    entry.Type = HexValue(LastCharacters(parts[0], 3));
    if (parts.size() == 3) entry.SubType = HexValue(LastCharacters(parts[1], 2));
    entry.Level = static_cast<int>(LeadingNumber(parts.back()));
    return entry;
}

// Three exchange-sort passes (level, then type within a level, then subtype
// within level and type) leave the rows in this order; equal entries are
// indistinguishable, so any sort gives the same table.
std::vector<DrawOrderEntry> SortedDrawOrderTable(const std::vector<std::string>& rows) {
    std::vector<DrawOrderEntry> table;
    table.reserve(rows.size());
    for (const auto& row : rows) table.push_back(ParseDrawOrderRow(row));
    std::sort(table.begin(), table.end(), [](const DrawOrderEntry& a, const DrawOrderEntry& b) {
        return std::tie(a.Level, a.Type, a.SubType) < std::tie(b.Level, b.Type, b.SubType);
    });
    return table;
}

std::string DrawOrderRowText(const DrawOrderEntry& entry) {
    std::string row = "Type=0x" + TypeText(entry.Type);
    if (entry.Type >= 256 || entry.SubType != 0) row += ",SubType=0x" + SubTypeText(entry.SubType);
    return row + "," + std::to_string(entry.Level);
}

std::vector<DrawOrderEntry> RebuildDrawOrderRows(std::vector<std::string>& rows) {
    std::vector<DrawOrderEntry> table = SortedDrawOrderTable(rows);
    rows.clear();
    rows.reserve(table.size());
    for (const auto& entry : table) rows.push_back(DrawOrderRowText(entry));
    return table;
}

std::string DrawOrderCaption(std::size_t rowCount) {
    return LookupText("Main", "DrawOrder", "fraDraworder") + "  (" + std::to_string(rowCount) + ")";
}

}  // namespace mirvane
