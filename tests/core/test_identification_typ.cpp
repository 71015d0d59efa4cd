// The identification TYP: what a map program is given must read back cleanly,
// and every object must say its own codes, by label and by colour.
#include <gtest/gtest.h>

#include <set>

#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "document/bitmap_codec.h"
#include "document/encoding.h"
#include "document/object_codec.h"
#include "labels/label_block.h"
#include "special/identification_typ.h"

namespace mirvane {
namespace {

const SaveTime kTime{2024, 3, 4, 5, 6, 7};

Document SavedAndReadBack(Document doc) {
    doc.Identity.Fid = 1;
    doc.Identity.ProductCode = 1;
    Bytes file;
    EXPECT_FALSE(BuildBinaryTyp(doc, file, kTime).has_value());
    Document read;
    ReadBinaryTyp(read, file, "/maps/identification.typ");
    return read;
}

std::string LabelTextOf(const Bytes& block) {
    const auto texts = DecodeLabelBlock(block);
    if (!texts || texts->size() != 1 || (*texts)[0].LanguageCode != 1) return "<bad label block>";
    return (*texts)[0].Text;
}

// The one colour an object shows, by kind.
std::uint32_t ColourOf(const Document& doc, ObjectKind kind, int row) {
    switch (kind) {
        case ObjectKind::Polygon: return DecodePolygon(doc.Polygons[row]).Roles().DayForeground.value_or(~0u);
        case ObjectKind::Polyline: return DecodePolyline(doc.Polylines[row]).Roles().DayForeground.value_or(~0u);
        case ObjectKind::Poi: break;
    }
    const DecodedPoi poi = DecodePoi(doc.Pois[row]);
    return poi.Day.PixelColour({7, 7}).value_or(~0u);
}

template <typename Record>
void ExpectLabelsName(const std::vector<Record>& records, bool withSubTypes) {
    for (const Record& record : records) {
        EXPECT_EQ(LabelTextOf(record.LabelBytes),
                  IdentificationLabelText(HexValue(record.Type), HexValue(record.SubType), withSubTypes))
            << record.Type << "/" << record.SubType;
    }
}

class IdentificationTypTest : public testing::TestWithParam<std::tuple<ObjectKind, int>> {};

TEST_P(IdentificationTypTest, ReadsBackCleanAndEveryObjectNamesItself) {
    const auto [kind, row] = GetParam();
    const IdentificationRange range = IdentificationRangeAt(row);
    const Document doc = SavedAndReadBack(BuildIdentificationTyp(kind, row, 7));

    EXPECT_EQ(doc.ReadErrorLog, "");
    EXPECT_FALSE(doc.ReadErrorFlag);
    // Polygons of type 0 are left out: no map draws them.
    const int typeZero = kind == ObjectKind::Polygon && range.FirstType == 0 ? (range.WithSubTypes ? 32 : 1) : 0;
    ASSERT_EQ(doc.CountOf(kind), range.ObjectCount() - typeZero);
    for (ObjectKind other : kObjectKinds) {
        if (other != kind) {
            EXPECT_EQ(doc.CountOf(other), 0);
        }
    }

    std::set<std::pair<int, int>> codes;
    for (int i = 0; i < doc.CountOf(kind); ++i) {
        std::string type, subType;
        switch (kind) {
            case ObjectKind::Polygon: type = doc.Polygons[i].Type, subType = doc.Polygons[i].SubType; break;
            case ObjectKind::Polyline: type = doc.Polylines[i].Type, subType = doc.Polylines[i].SubType; break;
            case ObjectKind::Poi: type = doc.Pois[i].Type, subType = doc.Pois[i].SubType; break;
        }
        const int t = HexValue(type), s = HexValue(subType);
        codes.insert({t, s});
        EXPECT_GE(t, range.FirstType);
        EXPECT_LE(t, range.LastType);
        // The colour carries the codes too: blue the subtype, green and red's low nibble the type.
        const std::uint32_t colour = ColourOf(doc, kind, i);
        EXPECT_EQ((colour >> 16) & 0xFF, static_cast<std::uint32_t>(s)) << type << "/" << subType;
        EXPECT_EQ((colour >> 8) & 0xFF, static_cast<std::uint32_t>(t & 0xFF)) << type << "/" << subType;
        if (range.WithSubTypes) {
            EXPECT_EQ(colour & 0x0F, static_cast<std::uint32_t>(t >> 8));
        }
    }
    EXPECT_EQ(codes.size(), static_cast<std::size_t>(doc.CountOf(kind))) << "two objects share their codes";

    ExpectLabelsName(doc.Polygons, range.WithSubTypes);
    ExpectLabelsName(doc.Polylines, range.WithSubTypes);
    ExpectLabelsName(doc.Pois, range.WithSubTypes);

    // Polygons are all drawn, at level 1. The file's draw order holds a type
    // below 0x100 once whatever its subtypes, and type 0x000 is not in it (its
    // entry would read as a level step).
    std::set<std::pair<int, int>> drawable;
    if (kind == ObjectKind::Polygon) {
        for (const auto& [t, s] : codes)
            if (t != 0) drawable.insert({t, t >= 0x100 ? s : 0});
    }
    std::set<std::pair<int, int>> drawn;
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

TEST(IdentificationTyp, RangesRunFromNoSubtypesToTheTopTypes) {
    const IdentificationRange first = IdentificationRangeAt(0);
    EXPECT_EQ(first.FirstType, 0x00);
    EXPECT_EQ(first.LastType, 0xFF);
    EXPECT_FALSE(first.WithSubTypes);
    EXPECT_EQ(first.ObjectCount(), 256);
    const IdentificationRange last = IdentificationRangeAt(kIdentificationRangeCount - 1);
    EXPECT_EQ(last.FirstType, 0x110);
    EXPECT_EQ(last.LastType, 0x11F);
    EXPECT_EQ(last.ObjectCount(), 512);

    for (int row = 0; row < kIdentificationRangeCount; ++row) {
        const IdentificationRange range = IdentificationRangeAt(row);
        EXPECT_EQ(IdentificationRangeRow(range.FirstType, range.LastType), row);
    }
    EXPECT_EQ(IdentificationRangeRow(0x10, 0x20), std::nullopt);
    EXPECT_EQ(IdentificationRangeRow(0x120, 0x12F), std::nullopt);
}

TEST(IdentificationTyp, LabelsReadTypeSlashSubtype) {
    EXPECT_EQ(IdentificationLabelText(0, 0, true), " 000/00");
    EXPECT_EQ(IdentificationLabelText(0x11f, 0x1f, true), " 11F/1F");
    EXPECT_EQ(IdentificationLabelText(0xab, 0, false), "  AB/00");
    const Document doc = BuildIdentificationTyp(ObjectKind::Poi, 1, 0);
    EXPECT_EQ(doc.Pois.front().LabelBytes, (Bytes{19, 1, ' ', '0', '0', '0', '/', '0', '0', 0}));
}

TEST(IdentificationTyp, SeedsChangeOnlyTheSpreadNibble) {
    const Document a = BuildIdentificationTyp(ObjectKind::Polygon, 2, 1);
    const Document b = BuildIdentificationTyp(ObjectKind::Polygon, 2, 2);
    bool differ = false;
    for (std::size_t i = 0; i < a.Polygons.size(); ++i) {
        EXPECT_EQ(a.Polygons[i].LabelBytes, b.Polygons[i].LabelBytes);
        const Bytes& ca = a.Polygons[i].ColourBytes;
        const Bytes& cb = b.Polygons[i].ColourBytes;
        ASSERT_EQ(ca.size(), 3u);
        EXPECT_EQ(ca[0], cb[0]);
        EXPECT_EQ(ca[1], cb[1]);
        EXPECT_EQ(ca[2] & 0x0F, cb[2] & 0x0F);
        differ = differ || (ca[2] >> 4) != (cb[2] >> 4);
    }
    EXPECT_TRUE(differ);

    const Document again = BuildIdentificationTyp(ObjectKind::Polygon, 2, 1);
    for (std::size_t i = 0; i < a.Polygons.size(); ++i) EXPECT_EQ(a.Polygons[i].ColourBytes, again.Polygons[i].ColourBytes);
}

}  // namespace
}  // namespace mirvane
