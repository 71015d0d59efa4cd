// Polygons and lines decoded from their records and encoded back: the colour
// layout of the first byte, the colour table, the 1-bit pattern and the line
// widths. Decoding never fails and logs nothing: what the bytes lack is told
// by the status, and the parts that could be read are filled in.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "document/records.h"
#include "graphics/pixel_grid.h"

namespace mirvane {

// What a decoded record lacks; the first problem found.
enum class DecodeStatus {
    Ok,
    MissingColours,     // fewer colours than the layout stores, or a palette cut short
    MissingPixels,      // pattern or pixel bytes end before the picture does
    MissingWidths,      // a solid line without its width bytes
    UnknownColourMode,  // a POI colour mode other than 0, 16 and 32
};

// Bits 0 to 2 of a polygon's or line's first byte.
struct ColourLayout {
    bool Night = false;       // bit 0: night colours are stored
    bool DayClear = false;    // bit 1: the day background is transparent
    bool NightClear = false;  // bit 2: the night background is transparent

    static ColourLayout Of(std::uint8_t flags);
    std::uint8_t Bits() const;
    // The same picture in a layout every decoder knows: without night
    // colours bit 2 tells nothing, so layouts 2 and 4 become 6 and 0.
    ColourLayout Writable() const;
    // 2 or 4: the count a pattern's header names, whatever is transparent.
    int HeaderColours() const;
    // The colours stored: day foreground, day background unless clear, and
    // with night colours the night foreground and background unless clear.
    int StoredColours() const;
    bool operator==(const ColourLayout&) const = default;
};

// The colours a pattern bit or a solid band takes, by role; no value for a
// transparent background or for a role the colour table cannot fill.
struct ColourRoles {
    std::optional<std::uint32_t> DayForeground, DayBackground;
    std::optional<std::uint32_t> NightForeground, NightBackground;
    bool operator==(const ColourRoles&) const = default;
};

// Colours are 0x00BBGGRR; a pattern cell is 1 for the foreground, 0 for the background.
struct DecodedPolygon {
    ColourLayout Layout;
    std::vector<std::uint32_t> Colours;  // in stored order
    std::optional<BitGrid> Pattern;      // 32 by 32; no value for a solid polygon
    DecodeStatus Status = DecodeStatus::Ok;

    ColourRoles Roles() const;
    bool operator==(const DecodedPolygon&) const = default;
};

struct DecodedPolyline {
    ColourLayout Layout;
    std::vector<std::uint32_t> Colours;  // in stored order
    // A solid line: the line's width, and the width with both borders, which
    // is stored unless the day background is transparent.
    std::optional<std::uint8_t> LineWidth;
    std::optional<std::uint8_t> TotalWidth;
    std::optional<BitGrid> Pattern;  // 32 wide, 1 to 31 rows; no value for a solid line
    DecodeStatus Status = DecodeStatus::Ok;

    ColourRoles Roles() const;
    bool operator==(const DecodedPolyline&) const = default;
};

inline constexpr int kPatternWidth = 32;
inline constexpr int kPolygonPatternRows = 32;

// The parts, for those who build records piece by piece.
std::vector<std::uint32_t> DecodeColourTable(const Bytes& colourBytes);
Bytes EncodeColourTable(const std::vector<std::uint32_t>& colours);
// `rows` rows of 32 cells, 4 bytes a row, bit 0 of a byte leftmost; bytes
// missing at the end read as background.
BitGrid DecodePattern(const Bytes& patternBytes, int rows);
Bytes EncodePattern(const BitGrid& pattern);
// The line's width, then, unless the day background is transparent, the
// width with both borders.
Bytes EncodeLineWidths(const ColourLayout& layout, std::uint8_t lineWidth, std::uint8_t totalWidth);
ColourRoles RolesOf(const ColourLayout& layout, const std::vector<std::uint32_t>& colours);

DecodedPolygon DecodePolygon(const PolygonRecord& record);
// Flags bits 0 to 3, ColourBytes and PatternBytes; labels and the other flag
// bits are left as they are.
void EncodePolygon(const DecodedPolygon& polygon, PolygonRecord& record);

DecodedPolyline DecodePolyline(const PolylineRecord& record);
// Flags1, ColourBytes and PatternBytes; Flags2 and labels are left as they are.
void EncodePolyline(const DecodedPolyline& line, PolylineRecord& record);

}  // namespace mirvane
