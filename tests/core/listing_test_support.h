// Small records shared by the listing and codec tests.
#pragma once

#include <string>

#include "document/document.h"
#include "document/encoding.h"

namespace mirvane::testing {

inline Bytes Colours(std::initializer_list<std::uint32_t> rgb) {
    Bytes bytes;
    for (std::uint32_t c : rgb) {
        bytes.push_back(c & 0xFF);          // blue
        bytes.push_back((c >> 8) & 0xFF);   // green
        bytes.push_back((c >> 16) & 0xFF);  // red
    }
    return bytes;
}

inline PolygonRecord Polygon(std::string type, std::string subType, std::uint8_t flags, Bytes colours) {
    PolygonRecord r;
    r.Type = std::move(type);
    r.SubType = std::move(subType);
    r.Flags = flags;
    r.ColourBytes = std::move(colours);
    if (flags & 0x08) r.PatternBytes.assign(128, 0);
    return r;
}

inline PolylineRecord Polyline(std::uint8_t flags1, std::uint8_t flags2, Bytes colours, Bytes pattern) {
    PolylineRecord r;
    r.Type = "001";
    r.SubType = "00";
    r.Flags1 = flags1;
    r.Flags2 = flags2;
    r.ColourBytes = std::move(colours);
    r.PatternBytes = std::move(pattern);
    return r;
}

// A POI with one palette bitmap of `colours` entries in mode 16, all pixels `index`.
inline PoiRecord PalettePoi(int width, int height, int colours, unsigned index) {
    PoiRecord r;
    r.Type = "02f";
    r.SubType = "0f";
    r.Flags = 1;
    r.Width = static_cast<std::uint8_t>(width);
    r.Height = static_cast<std::uint8_t>(height);
    PoiBitmap& day = r.Bitmaps[0];
    day.ColourCount = static_cast<std::uint8_t>(colours);
    day.ColourMode = 16;
    for (int k = 0; k < colours; ++k) {
        day.PaletteBytes.push_back(static_cast<std::uint8_t>(k));
        day.PaletteBytes.push_back(0);
        day.PaletteBytes.push_back(0xFF);
    }
    const int bpp = *BitsPerPixel(16, colours);
    const int stride = PaddedRowWidth(width, bpp);
    day.PixelBytes.assign(static_cast<std::size_t>(stride) * height * bpp / 8, 0);
    for (std::size_t p = 0; p < static_cast<std::size_t>(stride) * height; ++p)
        day.PixelBytes[p * bpp / 8] |= static_cast<std::uint8_t>(index << (p * bpp % 8));
    return r;
}

// A 2 by 1 true colour POI in `mode` with the given pixel bytes.
inline PoiRecord TrueColourPoi(std::uint8_t mode, Bytes pixels) {
    PoiRecord r = PalettePoi(2, 1, 0, 0);
    r.Bitmaps[0].ColourMode = mode;
    r.Bitmaps[0].PixelBytes = std::move(pixels);
    return r;
}

inline Document LoadedDocument() {
    Document doc;
    doc.State = DocumentState::Loaded;
    doc.FileName = "test.typ";
    doc.FileLengthText = "1234";
    doc.Identity.Fid = 42;
    doc.Identity.ProductCode = 1;
    return doc;
}

}  // namespace mirvane::testing
