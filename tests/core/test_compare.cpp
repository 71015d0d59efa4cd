// The drawing comparison says each change once and nothing for records that
// differ only in bytes; the lint names each kind of problem once.
#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "compare/drawing_diff.h"
#include "compare/lint.h"
#include "document/bitmap_codec.h"
#include "document/draw_order_table.h"
#include "document/encoding.h"
#include "labels/label_block.h"
#include "support/sample_document.h"

using namespace mirvane;

namespace {

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\n";
    return text;
}

// The first POI with a palette of two colours or more.
int PalettePoi(const Document& doc) {
    for (int row = 0; row < doc.PoiCount(); ++row)
        if (DecodePoi(doc.Pois[row]).Day.Palette.size() >= 2) return row;
    return -1;
}

TEST(CompareDrawings, RecordsWithOtherBytesButTheSameDrawingAreEqual) {
    const Document before = MakeSampleDocument();
    Document after = before;

    // Palette entries swapped and the pixels renumbered to match.
    const int row = PalettePoi(after);
    ASSERT_GE(row, 0);
    DecodedPoi poi = DecodePoi(after.Pois[row]);
    std::swap(poi.Day.Palette[0], poi.Day.Palette[1]);
    IndexGrid& indices = poi.Day.Indices;
    for (int y = 0; y < indices.Height(); ++y)
        for (int x = 0; x < indices.Width(); ++x) {
            const std::uint8_t index = indices.At({x, y});
            if (index < 2) indices.Set({x, y}, static_cast<std::uint8_t>(1 - index));
        }
    const Bytes oldPixels = after.Pois[row].Bitmaps[0].PixelBytes;
    EncodePoi(poi, after.Pois[row]);
    ASSERT_NE(after.Pois[row].Bitmaps[0].PixelBytes, oldPixels);

    // The same labels, languages in another order.
    after.Polygons[0].LabelBytes = EncodeLabelBlock({{4, "Lac"}, {1, "Lake"}});
    Document reordered = before;
    reordered.Polygons[0].LabelBytes = EncodeLabelBlock({{1, "Lake"}, {4, "Lac"}});

    // Records in another order.
    std::swap(after.Pois.front(), after.Pois.back());

    EXPECT_EQ(Joined(CompareDrawings(reordered, after)), "");
}

struct OneChange {
    const char* Name;
    std::function<void(Document&)> Change;
    const char* Expected;
};

// Each change alone on the sample gives one line of `report`, which names it.
template <typename Report>
void ExpectOneLineEach(const std::vector<OneChange>& cases, Report report) {
    const Document before = MakeSampleDocument();
    for (const auto& c : cases) {
        Document after = before;
        c.Change(after);
        const auto lines = report(before, after);
        ASSERT_EQ(lines.size(), 1u) << c.Name << "\n" << Joined(lines);
        EXPECT_NE(lines[0].find(c.Expected), std::string::npos) << c.Name << ": " << lines[0];
    }
}

TEST(CompareDrawings, EachChangeIsSaidOnce) {
    const std::vector<OneChange> cases = {
        {"polygon colour", [](Document& d) { d.Polygons[0].ColourBytes[0] ^= 0xFF; }, "foreground"},
        {"POI pixel",
         [](Document& d) {
             const int row = PalettePoi(d);
             DecodedPoi poi = DecodePoi(d.Pois[row]);
             const std::uint8_t index = poi.Day.Indices.At({0, 0});
             poi.Day.Indices.Set({0, 0}, index == 0 ? 1 : 0);
             EncodePoi(poi, d.Pois[row]);
         },
         "day pixels: 1 differ, first at (0,0)"},
        {"removed polygon", [](Document& d) { d.Polygons.erase(d.Polygons.begin() + 1); }, ": removed"},
        {"added POI", [](Document& d) { d.Pois.push_back(MakeSamplePoi(0x70, 0, 16)); }, ": added"},
        {"draw order", [](Document& d) { d.DrawOrder[0].Level = 9; }, "rank 1 -> "},
    };
    ExpectOneLineEach(cases, [](const Document& before, const Document& after) {
        return CompareDrawings(before, after);
    });
}

// The clean sample has no finding; each problem alone has one.
TEST(LintDocument, EachProblemIsOneFinding) {
    const std::vector<OneChange> cases = {
        {"polygon without draw order",
         [](Document& d) {
             const int type = HexValue(d.Polygons[0].Type);
             std::erase_if(d.DrawOrder, [&](const DrawOrderEntry& e) { return e.Type == type; });
         },
         "not in the draw order"},
        {"draw order row alone", [](Document& d) { d.DrawOrder.push_back({2, 0x50, 0}); }, "no polygon"},
        {"FID 0", [](Document& d) { d.Identity.Fid = 0; }, "FID"},
        {"UTF-8 label", [](Document& d) { d.Pois[0].LabelBytes = EncodeLabelBlock({{1, "Stra\xC3\x9F" "e"}}); },
         "UTF-8"},
        {"undefined byte", [](Document& d) { d.Pois[0].LabelBytes = EncodeLabelBlock({{1, "A\x81"}}); },
         "does not define"},
        {"duplicate", [](Document& d) { d.Pois.push_back(d.Pois[0]); }, "share"},
        {"layout 2", [](Document& d) { d.Polygons[0].Flags = (d.Polygons[0].Flags & ~0x07) | 0x02; },
         "layout 2"},
        {"record short of colours", [](Document& d) { d.Polylines[0].ColourBytes.clear(); }, "flags promise"},
        {"read log", [](Document& d) { d.ReadErrorLog = "Polygone 0x003 : erreur\r\n"; }, "read: Polygone"},
    };
    EXPECT_EQ(Joined(LintDocument(MakeSampleDocument())), "");
    ExpectOneLineEach(cases, [](const Document&, const Document& after) { return LintDocument(after); });
}

}  // namespace
