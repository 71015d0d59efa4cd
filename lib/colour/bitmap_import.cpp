#include "colour/bitmap_import.h"

#include <algorithm>
#include <set>

namespace mirvane {

RgbaPicture::RgbaPicture(int width, int height, std::uint32_t fill) {
    if (width <= 0 || height <= 0) return;
    Width = width;
    Height = height;
    Pixels.assign(static_cast<std::size_t>(width) * height, fill);
}

Colour ColourOfArgb(std::uint32_t argb) {
    return MakeColour(static_cast<std::uint8_t>(argb >> 16), static_cast<std::uint8_t>(argb >> 8),
                            static_cast<std::uint8_t>(argb));
}

std::uint32_t ArgbOf(Colour colour, std::uint8_t alphaByte) {
    const RgbChannels rgb = SplitColour(colour);
    return static_cast<std::uint32_t>(alphaByte) << 24 | static_cast<std::uint32_t>(rgb.r) << 16 |
           static_cast<std::uint32_t>(rgb.g) << 8 | rgb.b;
}

std::uint8_t GarminAlpha(std::uint8_t alphaByte) {
    return static_cast<std::uint8_t>(((255 - alphaByte) * kFullyTransparent + 127) / 255);
}

std::uint8_t AlphaByteOf(std::uint8_t garminAlpha) {
    return static_cast<std::uint8_t>(255 - std::min(garminAlpha, kFullyTransparent) * 17);
}

PictureSize FitWithin(int width, int height, int side) {
    if (width <= side && height <= side) return {width, height};
    if (width <= height) return {static_cast<int>(static_cast<long long>(width) * side / height), side};
    return {side, static_cast<int>(static_cast<long long>(height) * side / width)};
}

namespace {

// How much of each source pixel one target pixel covers along one axis, in
// units of 1 / target: source pixel s spans [s * target, (s + 1) * target),
// target pixel t spans [t * source, (t + 1) * source).
struct Coverage {
    int Source = 0;
    long long Weight = 0;
};

std::vector<std::vector<Coverage>> AxisCoverage(int source, int target) {
    std::vector<std::vector<Coverage>> axis(target);
    for (int t = 0; t < target; ++t) {
        const long long begin = static_cast<long long>(t) * source;
        const long long end = begin + source;
        for (int s = static_cast<int>(begin / target); s < source && static_cast<long long>(s) * target < end; ++s) {
            const long long weight = std::min(end, static_cast<long long>(s + 1) * target) -
                                     std::max(begin, static_cast<long long>(s) * target);
            if (weight > 0) axis[t].push_back({s, weight});
        }
    }
    return axis;
}

std::uint8_t RoundedShare(unsigned long long part, unsigned long long whole) {
    return static_cast<std::uint8_t>((part + whole / 2) / whole);
}

}  // namespace

RgbaPicture ScalePicture(const RgbaPicture& picture, int width, int height) {
    RgbaPicture scaled(width, height);
    if (scaled.Empty() || picture.Empty()) return scaled;
    const auto columns = AxisCoverage(picture.Width, width);
    const auto rows = AxisCoverage(picture.Height, height);
    const unsigned long long area = static_cast<unsigned long long>(picture.Width) * picture.Height;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            unsigned long long alpha = 0, red = 0, green = 0, blue = 0;
            for (const Coverage& row : rows[y])
                for (const Coverage& column : columns[x]) {
                    const std::uint32_t argb = picture.Pixel(column.Source, row.Source);
                    const unsigned long long weight = static_cast<unsigned long long>(row.Weight * column.Weight);
                    const unsigned long long seen = weight * AlphaByte(argb);
                    alpha += seen;
                    red += seen * ((argb >> 16) & 0xFF);
                    green += seen * ((argb >> 8) & 0xFF);
                    blue += seen * (argb & 0xFF);
                }
            if (alpha == 0) continue;  // stays transparent black
            scaled.SetPixel(x, y,
                            static_cast<std::uint32_t>(RoundedShare(alpha, area)) << 24 |
                                static_cast<std::uint32_t>(RoundedShare(red, alpha)) << 16 |
                                static_cast<std::uint32_t>(RoundedShare(green, alpha)) << 8 |
                                RoundedShare(blue, alpha));
        }
    return scaled;
}

namespace {

constexpr Colour kBlack = 0;

// Each pixel's colour and alpha as the bitmap will hold them.
struct ImportPixel {
    Colour Rgb = 0;
    std::uint8_t Alpha = kOpaque;
};

std::vector<ImportPixel> ReadPixels(const RgbaPicture& picture, ImportColours colours) {
    std::vector<ImportPixel> pixels;
    pixels.reserve(picture.Pixels.size());
    for (std::uint32_t argb : picture.Pixels) {
        const std::uint8_t alpha = GarminAlpha(AlphaByte(argb));
        Colour rgb = alpha == kFullyTransparent ? kBlack : ColourOfArgb(argb);
        if (colours == ImportColours::NearestGarmin && alpha != kFullyTransparent) rgb = NearestGarminColour(rgb);
        pixels.push_back({rgb, alpha});
    }
    return pixels;
}

bool HasPartialAlpha(const std::vector<ImportPixel>& pixels) {
    return std::any_of(pixels.begin(), pixels.end(),
                       [](const ImportPixel& p) { return p.Alpha != kOpaque && p.Alpha != kFullyTransparent; });
}

// The distinct entries in ascending order. In mode 16 a transparent pixel
// needs no entry; in mode 32 it is an entry of its own, (black, 15).
std::vector<ImportedColour> DistinctEntries(const std::vector<ImportPixel>& pixels, std::uint8_t mode) {
    std::set<ImportedColour> entries;
    for (const ImportPixel& p : pixels) {
        if (mode == kModeTransparentColour && p.Alpha == kFullyTransparent) continue;
        entries.insert({p.Rgb, mode == kModeAlpha ? p.Alpha : kOpaque});
    }
    return {entries.begin(), entries.end()};
}

// A colour for the transparent pixels of a true colour bitmap in mode 16,
// which the file marks by colour: one that no visible pixel has.
Colour UnusedColour(const std::vector<ImportPixel>& pixels) {
    std::set<Colour> used;
    for (const ImportPixel& p : pixels)
        if (p.Alpha != kFullyTransparent) used.insert(p.Rgb);
    Colour key = 0xFF00FF;  // magenta: seldom part of a picture
    while (used.contains(key)) key = (key + 1) & 0xFFFFFF;
    return key;
}

std::uint8_t IndexOf(const std::vector<ImportedColour>& palette, ImportedColour entry) {
    // The first equal entry: a black pixel takes the black entry in front.
    const auto found = std::find(palette.begin(), palette.end(), entry);
    return static_cast<std::uint8_t>(found - palette.begin());
}

}  // namespace

int CountImportColours(const RgbaPicture& picture) {
    const auto pixels = ReadPixels(picture, ImportColours::AsTheyAre);
    const auto mode = HasPartialAlpha(pixels) ? kModeAlpha : kModeTransparentColour;
    return static_cast<int>(DistinctEntries(pixels, mode).size());
}

ImportedBitmap ImportBitmap(const RgbaPicture& picture, ImportColours colours) {
    const auto pixels = ReadPixels(picture, colours);
    ImportedBitmap bitmap;
    bitmap.Width = picture.Width;
    bitmap.Height = picture.Height;
    bitmap.ColourMode = HasPartialAlpha(pixels) ? kModeAlpha : kModeTransparentColour;
    bitmap.GarminColours = colours == ImportColours::NearestGarmin;
    bitmap.Palette = DistinctEntries(pixels, bitmap.ColourMode);
    if (bitmap.Palette.size() > kMaxPaletteColours) {
        bitmap.Palette.clear();
        if (bitmap.ColourMode == kModeTransparentColour) bitmap.KeyColour = UnusedColour(pixels);
    } else if (bitmap.ColourMode == kModeTransparentColour && colours == ImportColours::AsTheyAre &&
               bitmap.Palette.size() < 2) {
        bitmap.Palette.insert(bitmap.Palette.begin(), ImportedColour{kBlack, kOpaque});
    }

    bitmap.Indices = IndexGrid(picture.Width, picture.Height, 0);
    bitmap.Colours = ColourGrid(picture.Width, picture.Height, 0);
    bitmap.Alpha = AlphaGrid(picture.Width, picture.Height, kOpaque);
    for (int y = 0; y < picture.Height; ++y)
        for (int x = 0; x < picture.Width; ++x) {
            const ImportPixel& p = pixels[static_cast<std::size_t>(y) * picture.Width + x];
            const Cell cell{x, y};
            bitmap.Colours.Set(cell, static_cast<std::uint32_t>(p.Rgb));
            bitmap.Alpha.Set(cell, p.Alpha);
            const bool noEntry = bitmap.ColourMode == kModeTransparentColour && p.Alpha == kFullyTransparent;
            if (noEntry) bitmap.Indices.Set(cell, kTransparentIndex);
            else if (!bitmap.IsTrueColour()) bitmap.Indices.Set(cell, IndexOf(bitmap.Palette, {p.Rgb, p.Alpha}));
        }
    return bitmap;
}

RgbaPicture PictureOf(const ImportedBitmap& bitmap) {
    RgbaPicture picture(bitmap.Width, bitmap.Height);
    for (int y = 0; y < picture.Height; ++y)
        for (int x = 0; x < picture.Width; ++x) {
            const Cell cell{x, y};
            picture.SetPixel(x, y, ArgbOf(static_cast<Colour>(bitmap.Colours.At(cell)),
                                          AlphaByteOf(bitmap.Alpha.At(cell))));
        }
    return picture;
}

}  // namespace mirvane
