#include "document/object_lookup.h"

#include <charconv>
#include <string>
#include <vector>

#include "document/encoding.h"

namespace mirvane {

namespace {

std::vector<std::string_view> SplitAtColons(std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t cut; (cut = text.find(':')) != std::string_view::npos; text.remove_prefix(cut + 1))
        parts.push_back(text.substr(0, cut));
    parts.push_back(text);
    return parts;
}

std::optional<unsigned> ParseHex(std::string_view text) {
    if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<ObjectKind> ParseKind(std::string_view text) {
    if (text == "polygon") return ObjectKind::Polygon;
    if (text == "line" || text == "polyline") return ObjectKind::Polyline;
    if (text == "poi") return ObjectKind::Poi;
    return std::nullopt;
}

template <typename Record>
bool Matches(const Record& record, const ObjectName& name) {
    if (static_cast<unsigned>(HexValue(record.Type)) != name.Type) return false;
    return !name.SubType || static_cast<unsigned>(HexValue(record.SubType)) == *name.SubType;
}

template <typename Record>
std::optional<int> FindRow(const std::vector<Record>& records, const ObjectName& name) {
    for (std::size_t row = 0; row < records.size(); ++row)
        if (Matches(records[row], name)) return static_cast<int>(row);
    return std::nullopt;
}

}  // namespace

std::optional<ObjectName> ParseObjectName(std::string_view text) {
    const std::vector<std::string_view> parts = SplitAtColons(text);
    if (parts.size() < 2 || parts.size() > 3) return std::nullopt;
    const std::optional<ObjectKind> kind = ParseKind(parts[0]);
    const std::optional<unsigned> type = ParseHex(parts[1]);
    if (!kind || !type) return std::nullopt;
    ObjectName name{*kind, *type, std::nullopt};
    if (parts.size() == 3 && !(name.SubType = ParseHex(parts[2]))) return std::nullopt;
    return name;
}

std::optional<ObjectRef> FindObject(const Document& doc, const ObjectName& name) {
    std::optional<int> row;
    switch (name.Kind) {
        case ObjectKind::Polygon: row = FindRow(doc.Polygons, name); break;
        case ObjectKind::Polyline: row = FindRow(doc.Polylines, name); break;
        case ObjectKind::Poi: row = FindRow(doc.Pois, name); break;
    }
    if (!row) return std::nullopt;
    return ObjectRef{name.Kind, *row};
}

}  // namespace mirvane
