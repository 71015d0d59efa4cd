#include "document/object_codec.h"

namespace mirvane {

ColourLayout ColourLayout::Of(std::uint8_t flags) {
    return {(flags & 1) != 0, (flags & 2) != 0, (flags & 4) != 0};
}

std::uint8_t ColourLayout::Bits() const {
    return static_cast<std::uint8_t>((Night ? 1 : 0) | (DayClear ? 2 : 0) | (NightClear ? 4 : 0));
}

ColourLayout ColourLayout::Writable() const {
    ColourLayout known = *this;
    if (!Night) known.NightClear = DayClear;
    return known;
}

int ColourLayout::HeaderColours() const { return Night ? 4 : 2; }

int ColourLayout::StoredColours() const {
    return HeaderColours() - (DayClear ? 1 : 0) - (Night && NightClear ? 1 : 0);
}

std::vector<std::uint32_t> DecodeColourTable(const Bytes& colourBytes) {
    std::vector<std::uint32_t> colours;
    colours.reserve(colourBytes.size() / 3);
    for (std::size_t first = 0; first + 3 <= colourBytes.size(); first += 3)
        colours.push_back(BgrColourAt(colourBytes, first));
    return colours;
}

Bytes EncodeColourTable(const std::vector<std::uint32_t>& colours) {
    Bytes bytes;
    bytes.reserve(colours.size() * 3);
    for (std::uint32_t colour : colours) AppendBgrColour(bytes, colour);
    return bytes;
}

BitGrid DecodePattern(const Bytes& patternBytes, int rows) {
    BitGrid pattern(kPatternWidth, rows);
    for (int y = 0; y < rows; ++y) {
        auto row = pattern.Row(y);
        for (int x = 0; x < kPatternWidth; ++x) {
            const std::size_t byte = static_cast<std::size_t>(y) * 4 + x / 8;
            if (byte < patternBytes.size()) row[x] = (patternBytes[byte] >> (x % 8)) & 1;
        }
    }
    return pattern;
}

Bytes EncodePattern(const BitGrid& pattern) {
    Bytes bytes(static_cast<std::size_t>(pattern.Height()) * 4, 0);
    for (int y = 0; y < pattern.Height(); ++y) {
        const auto row = pattern.Row(y);
        for (int x = 0; x < kPatternWidth && x < pattern.Width(); ++x)
            if (row[x]) bytes[static_cast<std::size_t>(y) * 4 + x / 8] |= static_cast<std::uint8_t>(1u << (x % 8));
    }
    return bytes;
}

Bytes EncodeLineWidths(const ColourLayout& layout, std::uint8_t lineWidth, std::uint8_t totalWidth) {
    if (layout.DayClear) return {lineWidth};
    return {lineWidth, totalWidth};
}

ColourRoles RolesOf(const ColourLayout& layout, const std::vector<std::uint32_t>& colours) {
    ColourRoles roles;
    std::size_t next = 0;
    auto take = [&](std::optional<std::uint32_t>& role) {
        if (next < colours.size()) role = colours[next];
        ++next;
    };
    take(roles.DayForeground);
    if (!layout.DayClear) take(roles.DayBackground);
    if (layout.Night) {
        take(roles.NightForeground);
        if (!layout.NightClear) take(roles.NightBackground);
    }
    return roles;
}

ColourRoles DecodedPolygon::Roles() const { return RolesOf(Layout, Colours); }
ColourRoles DecodedPolyline::Roles() const { return RolesOf(Layout, Colours); }

DecodedPolygon DecodePolygon(const PolygonRecord& record) {
    DecodedPolygon polygon;
    polygon.Layout = ColourLayout::Of(record.Flags);
    polygon.Colours = DecodeColourTable(record.ColourBytes);
    const bool hasPattern = record.Flags & 0x08;
    if (hasPattern) polygon.Pattern = DecodePattern(record.PatternBytes, kPolygonPatternRows);
    if (static_cast<int>(polygon.Colours.size()) < polygon.Layout.StoredColours())
        polygon.Status = DecodeStatus::MissingColours;
    else if (hasPattern && record.PatternBytes.size() < static_cast<std::size_t>(kPolygonPatternRows) * 4)
        polygon.Status = DecodeStatus::MissingPixels;
    return polygon;
}

void EncodePolygon(const DecodedPolygon& polygon, PolygonRecord& record) {
    const int pattern = polygon.Pattern ? 0x08 : 0;
    record.Flags = static_cast<std::uint8_t>((record.Flags & ~0x0F) | polygon.Layout.Writable().Bits() | pattern);
    record.ColourBytes = EncodeColourTable(polygon.Colours);
    record.PatternBytes = polygon.Pattern ? EncodePattern(*polygon.Pattern) : Bytes{};
}

DecodedPolyline DecodePolyline(const PolylineRecord& record) {
    DecodedPolyline line;
    line.Layout = ColourLayout::Of(record.Flags1);
    line.Colours = DecodeColourTable(record.ColourBytes);
    const int rows = record.Flags1 >> 3;
    DecodeStatus bodyStatus = DecodeStatus::Ok;
    if (rows > 0) {
        line.Pattern = DecodePattern(record.PatternBytes, rows);
        if (record.PatternBytes.size() < static_cast<std::size_t>(rows) * 4) bodyStatus = DecodeStatus::MissingPixels;
    } else {
        if (!record.PatternBytes.empty()) line.LineWidth = record.PatternBytes[0];
        if (record.PatternBytes.size() > 1) line.TotalWidth = record.PatternBytes[1];
        if (!line.LineWidth || (!line.Layout.DayClear && !line.TotalWidth)) bodyStatus = DecodeStatus::MissingWidths;
    }
    if (static_cast<int>(line.Colours.size()) < line.Layout.StoredColours()) line.Status = DecodeStatus::MissingColours;
    else line.Status = bodyStatus;
    return line;
}

void EncodePolyline(const DecodedPolyline& line, PolylineRecord& record) {
    const int rows = line.Pattern ? line.Pattern->Height() : 0;
    record.Flags1 = static_cast<std::uint8_t>(line.Layout.Writable().Bits() | (rows << 3));
    record.ColourBytes = EncodeColourTable(line.Colours);
    if (rows > 0) {
        record.PatternBytes = EncodePattern(*line.Pattern);
    } else {
        const std::uint8_t width = line.LineWidth.value_or(0);
        record.PatternBytes = EncodeLineWidths(line.Layout, width, line.TotalWidth.value_or(width));
    }
}

}  // namespace mirvane
