// The identification TYP: what a map program is given must read back cleanly,
// and every object must say its own codes, by label and by colour.
#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "document/bitmap_codec.h"
#include "document/encoding.h"
#include "document/object_codec.h"
#include "labels/label_block.h"
#include "special/identification_typ.h"

namespace mirvane {
namespace {

Document SavedAndReadBack(Document doc) {
    doc.Identity.Fid = 1;
    doc.Identity.ProductCode = 1;
    Bytes file;
    EXPECT_FALSE(BuildBinaryTyp(doc, file, SaveTime{2024, 3, 4, 5, 6, 7}).has_value());
    Document read;
    ReadBinaryTyp(read, file, "/maps/identification.typ");
    return read;
}

std::string LabelTextOf(const Bytes& block) {
    const auto texts = DecodeLabelBlock(block);
    if (!texts || texts->size() != 1 || (*texts)[0].LanguageCode != 1) return "<bad label block>";
    return (*texts)[0].Text;
}

class IdentificationTypTest : public testing::TestWithParam<std::tuple<ObjectKind, int>> {};

TEST_P(IdentificationTypTest, ReadsBackCleanAndEveryObjectNamesItself) {
    const auto [kind, row] = GetParam();
    const IdentificationRange range = IdentificationRangeAt(row);
    const Document doc = SavedAndReadBack(BuildIdentificationTyp(kind, row, 7));

    EXPECT_TRUE(doc.ReadErrorLog.empty() && !doc.ReadErrorFlag) << doc.ReadErrorLog;
    // Polygons of type 0 are left out: no map draws them.
    const int typeZero = kind == ObjectKind::Polygon && range.FirstType == 0 ? (range.WithSubTypes ? 32 : 1) : 0;
    ASSERT_EQ(doc.CountOf(kind), range.ObjectCount() - typeZero);

    std::set<std::pair<int, int>> codes;
    const auto checkEach = [&](const auto& records, auto colourOf) {
        for (const auto& record : records) {
            SCOPED_TRACE(record.Type + "/" + record.SubType);
            const int t = HexValue(record.Type), s = HexValue(record.SubType);
            codes.insert({t, s});
            EXPECT_TRUE(t >= range.FirstType && t <= range.LastType);
            EXPECT_EQ(LabelTextOf(record.LabelBytes), IdentificationLabelText(t, s, range.WithSubTypes));
            // The colour carries the codes too: blue the subtype, green and red's low nibble the type.
            const std::uint32_t colour = colourOf(record);
            EXPECT_EQ((colour >> 16) & 0xFF, std::uint32_t(s));
            EXPECT_EQ((colour >> 8) & 0xFF, std::uint32_t(t & 0xFF));
            if (range.WithSubTypes) {
                EXPECT_EQ(colour & 0x0F, std::uint32_t(t >> 8));
            }
        }
    };
    checkEach(doc.Polygons, [](const auto& r) { return DecodePolygon(r).Roles().DayForeground.value_or(~0u); });
    checkEach(doc.Polylines, [](const auto& r) { return DecodePolyline(r).Roles().DayForeground.value_or(~0u); });
    checkEach(doc.Pois, [](const auto& r) { return DecodePoi(r).Day.PixelColour({7, 7}).value_or(~0u); });
    EXPECT_EQ(codes.size(), std::size_t(doc.CountOf(kind))) << "two objects share their codes";

    // Polygons are all drawn, at level 1. The file's draw order holds a type
    // below 0x100 once whatever its subtypes, and type 0x000 is not in it (its
    // entry would read as a level step).
    std::set<std::pair<int, int>> drawable, drawn;
    if (kind == ObjectKind::Polygon) {
        for (const auto& [t, s] : codes)
            if (t != 0) drawable.insert({t, t >= 0x100 ? s : 0});
    }
    for (const DrawOrderEntry& entry : doc.DrawOrder) {
        EXPECT_EQ(entry.Level, 1);
        drawn.insert({entry.Type, entry.SubType});
    }
    EXPECT_EQ(drawn, drawable);
    EXPECT_EQ(doc.DrawOrder.size(), drawable.size());
}

INSTANTIATE_TEST_SUITE_P(KindsAndRanges, IdentificationTypTest,
                         testing::Combine(testing::Values(ObjectKind::Polygon, ObjectKind::Polyline, ObjectKind::Poi),
                                          testing::Values(0, 1, 17, 18)));

}  // namespace
}  // namespace mirvane
