#include "models/poi/poi_bitmap.h"

#include <set>

#include "document/encoding.h"

namespace mirvane {

namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;

int PaddedWidth(const WorkingBitmap& b) {
    const auto bits = BitsPerPixel(b.Bitmap.ColourMode, b.ColourCount());
    return bits ? PaddedRowWidth(b.Width, *bits) : b.Width;
}

// Runs `change` on every grid that holds pixels, the palette indices cropped
// to the bitmap's width first, then pads them again.
template <typename Change>
void ChangeGrids(WorkingBitmap& b, Change change) {
    DecodedBitmap& d = b.Bitmap;
    if (b.HasPalette()) {
        d.Indices.Resize(b.Width, b.Height);
        change(d.Indices);
    } else {
        change(d.Colours);
        if (!d.Alpha.Empty()) change(d.Alpha);
    }
}

void PadIndices(WorkingBitmap& b) {
    if (b.HasPalette()) b.Bitmap.Indices.Resize(PaddedWidth(b), b.Height);
}

}  // namespace

WorkingBitmap WorkingBitmap::FromRecord(const PoiBitmap& bitmap, int width, int height) {
    return {width, height, DecodeBitmap(bitmap, width, height), {}};
}

WorkingBitmap WorkingBitmap::Blank(int width, int height) {
    WorkingBitmap b{width, height, {}, {}};
    b.Bitmap.ColourMode = 16;
    b.Bitmap.Palette = {PaletteEntry{kWhite, kOpaqueAlpha}};
    b.Bitmap.Indices = IndexGrid(width, height, 0);
    PadIndices(b);
    return b;
}

bool WorkingBitmap::HasTransparentPixel() const {
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            if (!ShownColour({x, y})) return true;
    return false;
}

bool WorkingBitmap::Paint(Cell cell, const PoiPaint& paint) {
    if (!Contains(cell)) return false;
    const WorkingBitmap before = *this;
    DecodedBitmap& d = Bitmap;
    if (HasPalette()) {
        d.Indices.Set(cell, paint.Transparent ? TransparentIndex() : paint.Index);
    } else if (d.ColourMode == 32) {
        d.Colours.Set(cell, paint.Colour);
        d.Alpha.Set(cell, paint.Transparent ? kTransparentAlpha : paint.Alpha);
    } else {
        d.Colours.Set(cell, paint.Transparent && d.ColourMode == 16 ? d.KeyColour : paint.Colour);
    }
    return !(before.Bitmap == d);
}

PoiPaint WorkingBitmap::PaintAt(Cell cell) const {
    PoiPaint paint;
    const auto shown = ShownColour(cell);
    if (HasPalette()) {
        paint.Index = Bitmap.Indices.At(cell);
        paint.Transparent = paint.Index >= ColourCount();
        if (!paint.Transparent) paint.Colour = Bitmap.Palette[paint.Index].Colour;
        return paint;
    }
    paint.Colour = Bitmap.Colours.At(cell);
    if (!Bitmap.Alpha.Empty()) paint.Alpha = Bitmap.Alpha.At(cell);
    paint.Transparent = !shown && Bitmap.ColourMode != 32;
    return paint;
}

bool WorkingBitmap::EntryFilled(int index) const {
    return index < 0 || static_cast<std::size_t>(index) >= Unfilled.size() || !Unfilled[static_cast<std::size_t>(index)];
}

bool WorkingBitmap::PaletteComplete() const {
    for (int i = 0; i < ColourCount(); ++i)
        if (!EntryFilled(i)) return false;
    return true;
}

void FillAll(WorkingBitmap& bitmap, const PoiPaint& paint) {
    for (int y = 0; y < bitmap.Height; ++y)
        for (int x = 0; x < bitmap.Width; ++x) bitmap.Paint({x, y}, paint);
}

void InvertColours(WorkingBitmap& bitmap) {
    DecodedBitmap& d = bitmap.Bitmap;
    if (bitmap.HasPalette()) {
        for (PaletteEntry& entry : d.Palette) entry.Colour = kWhite - (entry.Colour & kWhite);
        return;
    }
    for (int y = 0; y < bitmap.Height; ++y)
        for (int x = 0; x < bitmap.Width; ++x)
            if (bitmap.ShownColour({x, y}) || d.ColourMode == 32) d.Colours.Set({x, y}, kWhite - d.Colours.At({x, y}));
}

void Turn90(WorkingBitmap& bitmap, Turn turn) {
    ChangeGrids(bitmap, [turn](auto& grid) { Rotate(grid, turn); });
    std::swap(bitmap.Width, bitmap.Height);
    PadIndices(bitmap);
}

void Mirror(WorkingBitmap& bitmap, bool horizontal) {
    ChangeGrids(bitmap, [horizontal](auto& grid) {
        if (horizontal) FlipHorizontal(grid);
        else FlipVertical(grid);
    });
    PadIndices(bitmap);
}

void ShiftByOne(WorkingBitmap& bitmap, int dx, int dy) {
    ChangeGrids(bitmap, [dx, dy](auto& grid) { Shift(grid, dx, dy); });
    PadIndices(bitmap);
}

void ResizeBitmap(WorkingBitmap& bitmap, int width, int height) {
    DecodedBitmap& d = bitmap.Bitmap;
    if (bitmap.HasPalette()) {
        d.Indices.Resize(bitmap.Width, bitmap.Height);
        d.Indices.Resize(width, height, bitmap.TransparentIndex());
    } else {
        const std::uint32_t outside = d.ColourMode == 16 ? d.KeyColour : kWhite;
        d.Colours.Resize(width, height, outside);
        if (!d.Alpha.Empty()) d.Alpha.Resize(width, height, kTransparentAlpha);
    }
    bitmap.Width = width;
    bitmap.Height = height;
    PadIndices(bitmap);
}

WorkingBitmap BitmapOfImport(const ImportedBitmap& imported) {
    WorkingBitmap b{imported.Width, imported.Height, {}, {}};
    DecodedBitmap& d = b.Bitmap;
    d.ColourMode = imported.ColourMode;
    for (const ImportedColour& entry : imported.Palette)
        d.Palette.push_back({static_cast<std::uint32_t>(entry.Rgb), entry.Alpha});
    if (b.HasPalette()) {
        d.Indices = imported.Indices;
        RepadIndices(b, kTransparentIndex);
        return b;
    }
    d.Colours = imported.Colours;
    d.KeyColour = static_cast<std::uint32_t>(imported.KeyColour);
    if (d.ColourMode == kModeAlpha) d.Alpha = imported.Alpha;
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x)
            if (d.ColourMode == kModeTransparentColour && imported.IsTransparent({x, y})) d.Colours.Set({x, y}, d.KeyColour);
    return b;
}

RgbaPicture PictureOfBitmap(const WorkingBitmap& bitmap) {
    RgbaPicture picture(bitmap.Width, bitmap.Height);
    for (int y = 0; y < bitmap.Height; ++y)
        for (int x = 0; x < bitmap.Width; ++x) {
            const auto colour = bitmap.ShownColour({x, y});
            if (!colour) continue;  // transparent: the picture's 0
            const PoiPaint paint = bitmap.PaintAt({x, y});
            const std::uint8_t alpha = bitmap.HasPalette() ? bitmap.Bitmap.Palette[paint.Index].Alpha : paint.Alpha;
            picture.SetPixel(x, y, ArgbOf(static_cast<Colour>(*colour),
                                          bitmap.Bitmap.ColourMode == kModeAlpha ? AlphaByteOf(alpha) : 0xFF));
        }
    return picture;
}

std::uint32_t UnusedKeyColour(const WorkingBitmap& bitmap) {
    std::set<std::uint32_t> used;
    for (int y = 0; y < bitmap.Height; ++y)
        for (int x = 0; x < bitmap.Width; ++x)
            if (const auto colour = bitmap.ShownColour({x, y})) used.insert(*colour);
    std::uint32_t key = 0xFF00FF;  // magenta first: pictures rarely use it
    while (used.contains(key)) key = (key + 1) & kWhite;
    return key;
}

void RepadIndices(WorkingBitmap& bitmap, int oldTransparentIndex) {
    if (!bitmap.HasPalette()) return;
    IndexGrid& indices = bitmap.Bitmap.Indices;
    indices.Resize(bitmap.Width, bitmap.Height);
    for (int y = 0; y < bitmap.Height; ++y)
        for (std::uint8_t& index : indices.Row(y))
            if (index >= oldTransparentIndex) index = bitmap.TransparentIndex();
    PadIndices(bitmap);
}

}  // namespace mirvane
