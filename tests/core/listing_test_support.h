// Helpers shared by the listing tests: small records and a reader of the
// rich form that gives back its text as the rich text control would.
#pragma once

#include <cctype>
#include <string>
#include <string_view>

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
    doc.Identity.txtFID = "42";
    doc.Identity.txtProductCode = "1";
    doc.Identity.CodePageIndex = 2;
    return doc;
}

// Text of a rich form: groups and control words go, \par is CR LF, the
// colour table is skipped. Enough for what the listing writes.
inline std::string RichToPlain(std::string_view rich) {
    std::string out;
    int depth = 0;
    int tableDepth = -1;  // depth of the \colortbl group while inside it
    for (std::size_t i = 0; i < rich.size();) {
        const char c = rich[i];
        if (c == '{') {
            ++depth;
            ++i;
        } else if (c == '}') {
            if (depth == tableDepth) tableDepth = -1;
            --depth;
            ++i;
        } else if (c == '\\') {
            std::size_t j = i + 1;
            while (j < rich.size() && std::isalpha(static_cast<unsigned char>(rich[j]))) ++j;
            const std::string_view word = rich.substr(i + 1, j - i - 1);
            while (j < rich.size() && (std::isdigit(static_cast<unsigned char>(rich[j])) || rich[j] == '-')) ++j;
            if (j < rich.size() && rich[j] == ' ') ++j;
            if (word == "colortbl") tableDepth = depth;
            if (word == "par" && tableDepth < 0) out += "\r\n";
            i = j;
        } else {
            if (tableDepth < 0) out += c;
            ++i;
        }
    }
    return out;
}

}  // namespace mirvane::testing
