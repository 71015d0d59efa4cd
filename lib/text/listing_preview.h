// What a listing pass gathers for the object preview: plain pictures, no GUI type.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "document/records.h"

namespace mirvane {

// A pixel the preview does not draw.
inline constexpr std::int32_t kTransparentPixel = -1;

// Day and night pictures of one object, row by row, colours as 0x00BBGGRR.
struct PixelPicture {
    int Width = 0;
    int Height = 0;
    std::vector<std::int32_t> Day;
    std::vector<std::int32_t> Night;  // empty when the object has no night form
};

struct ObjectPreview {
    ObjectKind Kind = ObjectKind::Polygon;
    PixelPicture Picture;
    // Polygons: whether the 32 by 32 pattern is used, and its pixels (0 or 1).
    bool IsPattern = false;
    std::array<std::uint8_t, 1024> PatternPixels{};
    // Custom label colours (Label4 day, Label5 night); no value hides the label.
    std::optional<std::uint32_t> LabelDayColour;
    std::optional<std::uint32_t> LabelNightColour;

    bool HasNight() const { return !Picture.Night.empty(); }
};

}  // namespace mirvane
