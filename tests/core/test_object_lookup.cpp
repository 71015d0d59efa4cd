#include <gtest/gtest.h>

#include "document/object_lookup.h"

namespace mirvane {
namespace {

TEST(ObjectLookup, ParsesKindTypeAndSubtype) {
    const auto polygon = ParseObjectName("polygon:0x03");
    ASSERT_TRUE(polygon);
    EXPECT_EQ(polygon->Kind, ObjectKind::Polygon);
    EXPECT_EQ(polygon->Type, 0x03u);
    EXPECT_FALSE(polygon->SubType);
    EXPECT_EQ(ParseObjectName("poi:2f:0A")->SubType, 0x0Au);
    EXPECT_EQ(ParseObjectName("line:0x01")->Kind, ObjectKind::Polyline);
    for (const char* bad : {"", "polygon", "area:0x03", "polygon:", "polygon:0xzz", "poi:1:2:3", "poi:1:"})
        EXPECT_FALSE(ParseObjectName(bad)) << bad;
}

TEST(ObjectLookup, FindsTheFirstMatchingRow) {
    Document doc;
    doc.Pois.resize(3);
    doc.Pois[0].Type = "02f", doc.Pois[0].SubType = "01";
    doc.Pois[1].Type = "02f", doc.Pois[1].SubType = "06";
    doc.Pois[2].Type = "030", doc.Pois[2].SubType = "00";
    EXPECT_EQ(FindObject(doc, *ParseObjectName("poi:0x2f")), (ObjectRef{ObjectKind::Poi, 0}));
    EXPECT_EQ(FindObject(doc, *ParseObjectName("poi:0x2f:0x06")), (ObjectRef{ObjectKind::Poi, 1}));
    EXPECT_FALSE(FindObject(doc, *ParseObjectName("poi:0x2f:0x07")));
    EXPECT_FALSE(FindObject(doc, *ParseObjectName("polygon:0x2f")));
}

}  // namespace
}  // namespace mirvane
