#include "colour/palette.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace mirvane {

namespace {

constexpr std::int16_t kLargestDistance = 765;

// Nearest level of one channel; a row is taken only when strictly nearer, so
// a tie keeps the lower level.
template <std::size_t N>
std::uint8_t NearestLevel(std::uint8_t channel, const std::array<std::uint8_t, N>& levels) {
    std::uint8_t best = levels[0];
    for (std::size_t row = 1; row < N; ++row)
        if (std::abs(channel - levels[row]) < std::abs(channel - best)) best = levels[row];
    return best;
}

// Index of the lower of the two adjacent levels enclosing the channel.
template <std::size_t N>
std::int16_t LowerLevelIndex(std::uint8_t channel, const std::array<std::uint8_t, N>& levels) {
    for (std::size_t i = 1; i < N; ++i)
        if (channel <= levels[i]) return static_cast<std::int16_t>(i - 1);
    return static_cast<std::int16_t>(N - 2);  // not reached: the last level is 255
}

double SquaredDistance(const RgbChannels& a, const RgbChannels& b) {
    const auto square = [](int d) { return static_cast<double>(d) * d; };
    return square(a.r - b.r) + square(a.g - b.g) + square(a.b - b.b);
}

constexpr int kCubeSquares =
    static_cast<int>(kGarminRedLevels.size() * kGarminGreenLevels.size() * kGarminBlueLevels.size());

std::array<Colour, kPaletteSquareCount> BuildSquares() {
    std::array<Colour, kPaletteSquareCount> squares{};
    int i = 0;
    for (const auto r : kGarminRedLevels)
        for (const auto g : kGarminGreenLevels)
            for (const auto b : kGarminBlueLevels) squares[i++] = MakeColour(r, g, b);
    for (std::size_t row = 1; row + 1 < kGarminGreyLevels.size(); ++row)
        squares[i++] = MakeColour(kGarminGreyLevels[row], kGarminGreyLevels[row], kGarminGreyLevels[row]);
    return squares;
}

const std::array<Colour, kPaletteSquareCount>& Squares() {
    static const auto squares = BuildSquares();
    return squares;
}

std::uint8_t ToChannel(double unit) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(unit * 255.0), 0L, 255L));
}

// One channel of the HSL inverse, t in sixths of a circle.
double HueToChannel(double p, double q, double t) {
    t = std::fmod(t, 6.0);
    if (t < 0) t += 6.0;
    if (t < 1) return p + (q - p) * t;
    if (t < 3) return q;
    if (t < 4) return p + (q - p) * (4 - t);
    return p;
}

}  // namespace

static_assert(kCubeSquares + 14 == kPaletteSquareCount);

Colour MakeColour(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    return static_cast<Colour>(r | (g << 8) | (b << 16));
}

RgbChannels SplitColour(Colour c) {
    const auto bits = static_cast<std::uint32_t>(c);
    return {static_cast<std::uint8_t>(bits & 0xFF), static_cast<std::uint8_t>((bits >> 8) & 0xFF),
            static_cast<std::uint8_t>((bits >> 16) & 0xFF)};
}

Colour NearestGarminColour(Colour c) {
    const RgbChannels original = SplitColour(c);
    RgbChannels result{NearestLevel(original.r, kGarminRedLevels), NearestLevel(original.g, kGarminGreenLevels),
                       NearestLevel(original.b, kGarminBlueLevels)};
    // Each grey compares with the result so far: a tie keeps the cube colour,
    // and among greys the lower one.
    for (const auto y : kGarminGreyLevels) {
        const RgbChannels grey{y, y, y};
        if (SquaredDistance(grey, original) < SquaredDistance(result, original)) result = grey;
    }
    return MakeColour(result.r, result.g, result.b);
}

bool IsGarminColour(Colour c) { return NearestGarminColour(c) == c; }

std::int16_t ColourDistance(Colour a, Colour b) {
    const RgbChannels x = SplitColour(a), y = SplitColour(b);
    return static_cast<std::int16_t>(std::abs(x.r - y.r) + std::abs(x.g - y.g) + std::abs(x.b - y.b));
}

std::int16_t NearestColourIndex(Colour c, std::span<const Colour> list) {
    if (list.empty()) return -1;
    std::size_t best = 0;
    std::int16_t bestDistance = ColourDistance(c, list[0]);
    for (std::size_t i = 1; i < list.size(); ++i) {
        const std::int16_t d = ColourDistance(c, list[i]);
        if (d < bestDistance) best = i, bestDistance = d;
    }
    return static_cast<std::int16_t>(best);
}

std::int16_t ClosestPairIndex(std::span<const Colour> list) {
    std::int16_t bestDistance = kLargestDistance;
    std::size_t answer = 0;
    // Both loops stop one short of the last entry: it is never compared.
    const std::size_t searched = list.empty() ? 0 : list.size() - 1;
    for (std::size_t i = 0; i < searched; ++i)
        for (std::size_t j = i + 1; j < searched; ++j) {
            const std::int16_t d = ColourDistance(list[i], list[j]);
            if (d < bestDistance) bestDistance = d, answer = i;
        }
    return static_cast<std::int16_t>(answer);
}

void ThinColourList(std::vector<Colour>& list, std::int16_t target) {
    const std::size_t keep = static_cast<std::size_t>(std::max<std::int16_t>(target, 0));
    while (list.size() > keep) list.erase(list.begin() + ClosestPairIndex(list));
}

LevelIndices EnclosingLevels(Colour c) {
    const RgbChannels v = SplitColour(c);
    return {LowerLevelIndex(v.r, kGarminRedLevels), LowerLevelIndex(v.g, kGarminGreenLevels),
            LowerLevelIndex(v.b, kGarminBlueLevels)};
}

Colour PlainColour(Colour c, const SystemColourLookup& systemColour) {
    if (c >= 0) return c;
    const int index = static_cast<int>(static_cast<std::uint32_t>(c) & 0x7FFFFFFFu);
    return systemColour ? systemColour(index) : 0;
}

std::int32_t RgbNumber(Colour c) {
    if (c < 0) return 0;
    const RgbChannels v = SplitColour(c);
    return (v.r << 16) | (v.g << 8) | v.b;
}

std::string ColourText(Colour c) {
    return "#" + HexDigits(static_cast<std::uint32_t>(RgbNumber(c)), 6, HexCase::Upper);
}

Hsl RgbToHsl(std::uint8_t r8, std::uint8_t g8, std::uint8_t b8) {
    const double r = r8 / 255.0, g = g8 / 255.0, b = b8 / 255.0;
    const double max = std::max({r, g, b}), min = std::min({r, g, b});
    const double l = (max + min) / 2;
    if (max == min) return {0.0f, 0.0f, static_cast<float>(l)};
    const double delta = max - min;
    const double s = l <= 0.5 ? delta / (max + min) : delta / (2 - max - min);
    double h = 0;
    if (r == max)
        h = (g - b) / delta;
    else if (g == max)
        h = 2 + (b - r) / delta;
    else
        h = 4 + (r - g) / delta;
    return {static_cast<float>(h), static_cast<float>(s), static_cast<float>(l)};
}

RgbChannels HslToRgb(float h, float s, float l) {
    if (s == 0) return {ToChannel(l), ToChannel(l), ToChannel(l)};
    const double q = l <= 0.5 ? l * (1.0 + s) : l + s - double(l) * s;
    const double p = 2.0 * l - q;
    return {ToChannel(HueToChannel(p, q, h + 2.0)), ToChannel(HueToChannel(p, q, h)),
            ToChannel(HueToChannel(p, q, h - 2.0))};
}

std::optional<Colour> PaletteSquareColour(int index) {
    if (index < 1 || index > kPaletteSquareCount) return std::nullopt;
    return Squares()[index - 1];
}

int PaletteSquareOf(Colour c) {
    const auto& squares = Squares();
    const auto found = std::find(squares.begin(), squares.end(), c);
    return found == squares.end() ? 0 : static_cast<int>(found - squares.begin()) + 1;
}

GridPosition PaletteSquarePosition(int index) { return {(index - 1) % kPaletteColumns, (index - 1) / kPaletteColumns}; }

NeighbourColours NeighbourColoursOf(Colour chosen) {
    const LevelIndices n = EnclosingLevels(chosen);
    const auto corner = [&](int dr, int dg, int db) {
        return MakeColour(kGarminRedLevels[n.ri + dr], kGarminGreenLevels[n.gi + dg], kGarminBlueLevels[n.bi + db]);
    };
    NeighbourColours neighbours;
    neighbours.corners = {corner(0, 0, 0), corner(1, 0, 0), corner(1, 1, 0), corner(0, 1, 0),
                          corner(0, 0, 1), corner(1, 0, 1), corner(1, 1, 1), corner(0, 1, 1)};
    const Colour nearest = NearestGarminColour(chosen);
    for (int i = 0; i < 8; ++i)
        if (neighbours.corners[i] == nearest) neighbours.nearestCorner = i;
    return neighbours;
}

std::uint8_t MixChannel(std::uint8_t channel, int v) {
    const double c = channel;
    const double moved = v >= 128 ? c + (v - 128) * (255 - c) / 128 : c + (v - 128) * c / 128;
    return static_cast<std::uint8_t>(std::clamp(std::floor(moved), 0.0, 255.0));
}

}  // namespace mirvane
