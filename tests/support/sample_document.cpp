#include "support/sample_document.h"

#include "document/bitmap_codec.h"
#include "document/encoding.h"
#include "document/draw_order_table.h"
#include "labels/label_block.h"

namespace mirvane {

namespace {

// Blue, green, red per colour.
Bytes Colours(int count, int seed) {
    Bytes bytes;
    for (int i = 0; i < count; ++i)
        bytes.insert(bytes.end(), {static_cast<std::uint8_t>(seed * 5 + i * 70),
                                   static_cast<std::uint8_t>(seed * 11 + i * 50),
                                   static_cast<std::uint8_t>(seed * 37 + i * 90)});
    return bytes;
}

// A diagonal stripe pattern, different for each seed.
Bytes Pattern(int rows, int seed) {
    Bytes bytes;
    for (int row = 0; row < rows; ++row)
        for (int b = 0; b < 4; ++b)
            bytes.push_back(static_cast<std::uint8_t>((0x0F << ((row + seed) % 4)) ^ (b * 0x11)));
    return bytes;
}

Bytes Labels(int index, int variant) {
    std::vector<LabelText> texts{{4, "Sample " + std::to_string(index)}};
    if (variant % 2 == 0) texts.push_back({1, "Exemple \xE9t\xE9"});  // bytes of code page 1252
    if (variant % 3 == 0) texts.push_back({2, "Beispiel " + std::string(140, 'x')});  // two-byte prefix
    return EncodeLabelBlock(texts);
}

Bytes ExtendedLabels(int variant) {
    ExtendedLabelStyle style;
    style.FontStyle = variant % 5;
    style.CustomColor = variant % 4;
    style.DayColour = 0x00112233;
    style.NightColour = 0x00AABBCC;
    return EncodeExtendedLabelBlock(style);
}

// Palette pixels: a gradient of indexes, with the transparent index (equal to
// the colour count) in the top left corner where the text form can say so
// (not in mode 32, whose transparency is its alpha, nor past 255 codes).
Bytes PalettePixels(int size, int colourCount, int colourMode) {
    const bool transparentCorner = colourMode != 32 && colourCount < 255;
    const int bpp = BitsPerPixel(colourMode, colourCount).value_or(8);
    const int rowBytes = PaddedRowWidth(size, bpp) * bpp / 8;
    Bytes bytes(static_cast<std::size_t>(rowBytes * size), 0);
    const int levels = 1 << bpp;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            int value = (x + y) % std::max(colourCount, 1);
            if (x == 0 && y == 0 && transparentCorner) value = colourCount;
            value %= levels;
            const int bit = x * bpp;
            bytes[static_cast<std::size_t>(y * rowBytes + bit / 8)] |= static_cast<std::uint8_t>(value << (bit % 8));
        }
    }
    return bytes;
}

Bytes Filler(int length, int seed) {
    Bytes bytes(static_cast<std::size_t>(std::max(length, 0)));
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + seed * 13);
    return bytes;
}

PoiBitmap PaletteBitmap(int size, int colourCount, int colourMode, int seed) {
    PoiBitmap bitmap;
    bitmap.ColourCount = static_cast<std::uint8_t>(colourCount);
    bitmap.ColourMode = static_cast<std::uint8_t>(colourMode);
    bitmap.PaletteBytes = colourMode == 32 ? Filler(PaletteByteLength(colourCount, 32), seed)
                                           : Colours(colourCount, seed);
    bitmap.PixelBytes = PalettePixels(size, colourCount, colourMode);
    return bitmap;
}

PoiBitmap TrueColourBitmap(int size, int colourMode, int seed) {
    PoiBitmap bitmap;
    bitmap.ColourMode = static_cast<std::uint8_t>(colourMode);
    bitmap.PixelBytes = Filler(TrueColourPixelByteLength(size, size, colourMode).value_or(0), seed);
    return bitmap;
}

}  // namespace

PolygonRecord MakeSamplePolygon(int index, int variant) {
    static const std::uint8_t kFlags[kPolygonVariants] = {0x06, 0x07, 0x08, 0x09, 0x0B, 0x0D, 0x0F, 0x0E};
    PolygonRecord r;
    r.Type = TypeText(index < 0x60 ? index + 1 : 0x100 + index % 0x100);
    r.SubType = SubTypeText(index < 0x60 ? 0 : (index / 0x100) % 32);
    r.Flags = kFlags[variant % kPolygonVariants];
    r.ColourBytes = Colours(ColourCountOf(r.Flags), index);
    if (r.Flags & 0x08) r.PatternBytes = Pattern(32, index);
    if (variant % 2 == 1) {
        r.Flags |= 0x10;
        r.LabelBytes = Labels(index, variant);
    }
    if (variant % 3 == 2) {
        r.Flags |= 0x20;
        r.ExtendedLabelBytes = ExtendedLabels(variant);
    }
    return r;
}

PolylineRecord MakeSamplePolyline(int index, int variant) {
    PolylineRecord r;
    r.Type = TypeText(index < 0x3F ? index + 1 : 0x100 + index % 0x100);
    r.SubType = SubTypeText(index < 0x3F ? 0 : (index / 0x100) % 32);
    const int v = variant % kPolylineVariants;
    if (v < 4) {
        static const std::uint8_t kSolid[4] = {0x00, 0x01, 0x06, 0x07};  // with and without borders, day/night
        r.Flags1 = kSolid[v];
        r.PatternBytes = (r.Flags1 & 0x02) ? Bytes{3} : Bytes{2, 6};
    } else {
        const int rows = v - 2;  // 2..5 pattern rows
        r.Flags1 = static_cast<std::uint8_t>((rows << 3) | (v % 2 == 0 ? 0x00 : 0x06));
        r.PatternBytes = Pattern(rows, index);
    }
    r.ColourBytes = Colours(ColourCountOf(r.Flags1), index);
    r.Flags2 = (variant % 3 == 0) ? 0x02 : 0x00;
    if (variant % 2 == 0) {
        r.Flags2 |= 0x01;
        r.LabelBytes = Labels(index, variant);
    }
    if (variant % 4 == 1) {
        r.Flags2 |= 0x04;
        r.ExtendedLabelBytes = ExtendedLabels(variant);
    }
    return r;
}

PoiRecord MakeSamplePoi(int index, int variant, int size) {
    PoiRecord r;
    r.Type = TypeText(index < 0x60 ? index + 1 : 0x100 + index % 0x100);
    r.SubType = SubTypeText(index < 0x60 ? index % 32 : (index / 0x100) % 32);
    r.Width = static_cast<std::uint8_t>(size);
    r.Height = static_cast<std::uint8_t>(size);
    r.Flags = 0x01;
    PoiBitmap& day = r.Bitmaps[0];
    static const std::pair<int, int> kPalettes[] = {{1, 0}, {3, 16}, {15, 0}, {15, 16}, {24, 0}, {255, 16}, {6, 32}};
    const int v = variant % kPoiVariants;
    if (v < 7) {  // colour count, colour mode
        day = PaletteBitmap(size, kPalettes[v].first, kPalettes[v].second, index);
    } else if (v < 10) {  // true colour in modes 0, 16 and 32
        day = TrueColourBitmap(size, (v - 7) * 16, index);
    } else if (v == 10) {  // night palette over the day's pixels
        day = PaletteBitmap(size, 4, 0, index);
        r.Flags = 0x02;
        r.Bitmaps[1] = day;
        r.Bitmaps[1].PaletteBytes = Colours(4, index + 1);
    } else {  // day and night bitmaps of their own
        day = PaletteBitmap(size, 2, 0, index);
        r.Flags = 0x03;
        r.Bitmaps[1] = PaletteBitmap(size, 5, 16, index + 1);
    }
    if (variant % 2 == 1) {
        r.Flags |= 0x04;
        r.LabelBytes = Labels(index, variant);
    }
    if (variant % 5 == 3) {
        r.Flags |= 0x08;
        r.ExtendedLabelBytes = ExtendedLabels(variant);
    }
    return r;
}

Document MakeSampleDocument(const SampleOptions& options) {
    Document doc;
    doc.State = DocumentState::New;
    doc.Identity.Fid = 7777;
    doc.Identity.ProductCode = 1;
    for (int i = 0; i < options.Polygons; ++i) doc.Polygons.push_back(MakeSamplePolygon(i, i));
    for (int i = 0; i < options.Polylines; ++i) doc.Polylines.push_back(MakeSamplePolyline(i, i));
    doc.PolylineCount = options.Polylines;
    for (int i = 0; i < options.Pois; ++i) doc.Pois.push_back(MakeSamplePoi(i, i, options.PoiSize));
    if (options.WithDrawOrder) {
        for (int i = 0; i < options.Polygons; ++i) {
            const PolygonRecord& p = doc.Polygons[i];
            doc.DrawOrder.push_back({1 + i % 4, HexValue(p.Type), HexValue(p.SubType)});
        }
        SortDrawOrder(doc.DrawOrder);
    }
    return doc;
}

Bytes SampleSubIcon(int width, int height, int seed) {
    DecodedBitmap bitmap;
    bitmap.ColourMode = 16;
    static const std::uint32_t kFills[] = {0x002020E0, 0x00E06020, 0x0040B040, 0x000080FF, 0x00A03090, 0x00A0A000};
    bitmap.Palette = {{0x00303030, 0}, {kFills[seed % 6], 0}, {0x00FFFFFF, 0}};
    const std::uint8_t transparent = static_cast<std::uint8_t>(bitmap.Palette.size());
    const int bits = BitsPerPixel(bitmap.ColourMode, static_cast<int>(bitmap.Palette.size())).value_or(8);
    bitmap.Indices = IndexGrid(PaddedRowWidth(width, bits), height, 0);
    const double cx = (width - 1) / 2.0, cy = (height - 1) / 2.0;
    const double rx = width / 2.0, ry = height / 2.0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double d = ((x - cx) * (x - cx)) / (rx * rx) + ((y - cy) * (y - cy)) / (ry * ry);
            const std::uint8_t index = d > 1.0 ? transparent : d > 0.55 ? 0 : d > 0.08 ? 1 : 2;
            bitmap.Indices.Set({x, y}, index);
        }
    }
    const PoiBitmap day = EncodeBitmap(bitmap, width, height);
    Bytes body{0x01, static_cast<std::uint8_t>(width), static_cast<std::uint8_t>(height), day.ColourCount,
               day.ColourMode};
    body.insert(body.end(), day.PaletteBytes.begin(), day.PaletteBytes.end());
    body.insert(body.end(), day.PixelBytes.begin(), day.PixelBytes.end());
    return PrefixedLabelBlock(body);
}

void AddSampleExtraPois(Document& doc, const std::vector<SampleExtraPoiGroup>& groups) {
    doc.ExtraPoiDataBytes.clear();
    doc.ExtraPoiIndexBytes.clear();
    doc.ExtraPois.clear();
    int seed = 0;
    for (const SampleExtraPoiGroup& group : groups) {
        const auto offset = static_cast<std::int32_t>(doc.ExtraPoiDataBytes.size());
        doc.ExtraPoiDataBytes.push_back(static_cast<std::uint8_t>(group.Sizes.size()));
        doc.ExtraPoiDataBytes.push_back(0);  // the group value
        for (const auto& [width, height] : group.Sizes) {
            const Bytes icon = SampleSubIcon(width, height, ++seed);
            doc.ExtraPoiDataBytes.insert(doc.ExtraPoiDataBytes.end(), icon.begin(), icon.end());
        }
        const int key = group.Type * 32 + group.SubType;
        doc.ExtraPoiIndexBytes.insert(doc.ExtraPoiIndexBytes.end(),
                                      {static_cast<std::uint8_t>(key & 0xFF), static_cast<std::uint8_t>(key >> 8),
                                       static_cast<std::uint8_t>(offset & 0xFF),
                                       static_cast<std::uint8_t>((offset >> 8) & 0xFF),
                                       static_cast<std::uint8_t>(offset >> 16)});
        doc.ExtraPois.push_back({TypeText(group.Type), SubTypeText(group.SubType), offset});
    }
    doc.ExtraPoiCount = static_cast<int>(groups.size());
    doc.Extra1.ExtraPoiIndexRecordSize = 5;
}

}  // namespace mirvane
