// A plain picture of 24-bit colours, for the previews and the editors.
// Each pixel is one 32-bit word 0x00BBGGRR, the colour form the documents
// and the listing already use. On a little-endian machine the words read as
// bytes R, G, B, 0: a GUI image in RGBX byte order takes them after the top
// byte is set to 0xFF (OpaqueRgbxWords).
#pragma once

#include <cstdint>
#include <vector>

namespace mirvane {

using RasterColour = std::uint32_t;

struct RasterRect {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool Empty() const { return Width <= 0 || Height <= 0; }
};

class Raster {
public:
    Raster() = default;
    Raster(int width, int height, RasterColour fill = 0);

    int Width() const { return width_; }
    int Height() const { return height_; }
    bool Empty() const { return width_ == 0 || height_ == 0; }
    RasterRect Bounds() const { return {0, 0, width_, height_}; }
    bool Contains(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }

    // New size, every pixel `fill`. Negative sizes give an empty raster.
    void Reset(int width, int height, RasterColour fill = 0);
    void Fill(RasterColour colour);
    // A pixel outside the raster reads as `outside` and is not written.
    RasterColour Pixel(int x, int y, RasterColour outside = 0) const;
    void SetPixel(int x, int y, RasterColour colour);

    const std::vector<RasterColour>& Pixels() const { return pixels_; }
    const RasterColour* Row(int y) const { return pixels_.data() + static_cast<std::size_t>(y) * width_; }
    RasterColour* Row(int y) { return pixels_.data() + static_cast<std::size_t>(y) * width_; }

    bool operator==(const Raster&) const = default;

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<RasterColour> pixels_;
};

// `area` of `source` enlarged `zoom` times (nearest neighbour) with its top
// left corner at (left, top) of `target`. What lies outside either raster is
// left out; a zoom below 1 copies nothing.
void StretchCopy(const Raster& source, RasterRect area, Raster& target, int left, int top, int zoom);

// `area` of `source` at (left, top) of `target`, pixel for pixel.
void CopyTile(const Raster& source, RasterRect area, Raster& target, int left, int top);

// As CopyTile, but pixels of colour `transparent` are not copied.
void CopyTileKeyed(const Raster& source, RasterRect area, Raster& target, int left, int top,
                   RasterColour transparent);

// The pixels with an opaque alpha byte: 0xFFBBGGRR.
std::vector<std::uint32_t> OpaqueRgbxWords(const Raster& raster);

}  // namespace mirvane
