// The additional POI browser without its window: groups read from the index,
// sub-icons from the data, the enlargement, and what cmdCopier takes.
#include <gtest/gtest.h>

#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "models/poi/extra_poi_browser_model.h"
#include "scripted_prompts.h"
#include "support/sample_document.h"

namespace mirvane {
namespace {

Document TwoGroups() {
    Document doc;
    AddSampleExtraPois(doc, {{0x11a, 0x01, {{48, 48}, {49, 10}, {65, 10}, {16, 16}, {12, 12}, {20, 30}}},
                             {0x02f, 0x1f, {{8, 8}}}});
    return doc;
}

// Type, subtype and data offset of each group.
std::vector<std::string> GroupTexts(const ExtraPoiBrowserModel& model) {
    std::vector<std::string> texts;
    for (const ExtraPoiRecord& group : model.Groups())
        texts.push_back(group.Type + "/" + group.SubType + "@" + std::to_string(group.Offset));
    return texts;
}

struct ExtraPoiBrowser : ::testing::Test {
    Document doc = TwoGroups();
    ScriptedPrompts prompts;
    PoiClipboard clipboard;
    ExtraPoiBrowserModel model{doc, prompts, clipboard};
};

TEST_F(ExtraPoiBrowser, ReadsGroupsAndSubIcons) {
    ASSERT_EQ(model.Groups().size(), 2u);
    EXPECT_EQ(model.Groups()[1].Type + "/" + model.Groups()[1].SubType, "02f/1f");
    model.SelectGroup(0);
    ASSERT_EQ(model.SubIcons().size(), 6u);
    EXPECT_EQ(model.Enlarged(), 0);  // the first, unless Check1 is ticked
    EXPECT_EQ(model.Zoom(), 8);
    model.ClickSubIcon(1);  // 49 x 10
    EXPECT_EQ(model.Zoom(), 6);

    // A disk on a transparent ground: the corner shows the background.
    const PixelPicture picture = model.Picture(3);
    EXPECT_EQ(std::pair(picture.Day.at(0), picture.Day.at(8 * 16 + 8)), std::pair(kTransparentPixel, 0x00FFFFFF));

    // Rows of 7 bytes, as a file holds them: the offset is still the last three.
    Document wide = TwoGroups();
    wide.Extra1.ExtraPoiIndexRecordSize = 7;
    for (int row : {1, 0}) wide.ExtraPoiIndexBytes.insert(wide.ExtraPoiIndexBytes.begin() + row * 5 + 2, {0xAA, 0xBB});
    wide.Identity.Fid = wide.Identity.ProductCode = 1;
    wide.Identity.HeaderSize = 156;
    Bytes file;
    ASSERT_FALSE(BuildBinaryTyp(wide, file, {}));
    Document reread;
    ReadBinaryTyp(reread, file, "wide.typ");
    EXPECT_EQ(GroupTexts(ExtraPoiBrowserModel(reread, prompts, clipboard)), GroupTexts(model));
    EXPECT_TRUE(prompts.Log.empty());
}

TEST_F(ExtraPoiBrowser, CopyTakesTheFirstOfFourThumbnailsAndOnlyUpTo64) {
    model.SelectGroup(0);
    model.ClickSubIcon(2);  // 65 x 10 can be seen, neither copied nor edited
    EXPECT_FALSE(model.ActionsEnabled());
    EXPECT_FALSE(model.Copy());
    EXPECT_FALSE(clipboard.Bitmap);

    model.ClickSubIcon(3);
    ASSERT_TRUE(model.Copy());
    EXPECT_EQ(clipboard.Bitmap->Width, 16);
    model.ClickSubIcon(4);  // the fifth is not looked for: the first is taken
    EXPECT_EQ(model.ActionSubIcon(), 0);
    ASSERT_TRUE(model.Copy());
    const PoiRecord& first = model.SubIcons()[0].Record;
    EXPECT_EQ(*clipboard.Bitmap, WorkingBitmap::FromRecord(first.Bitmaps[0], 48, 48));

    model.AutoEnlargeOff = true;
    model.SelectGroup(1);
    EXPECT_FALSE(model.Enlarged());
    EXPECT_EQ(model.ActionSubIcon(), 0);
}

TEST_F(ExtraPoiBrowser, NoGroupsAndDamagedGroups) {
    const Document none;
    ExtraPoiBrowserModel empty(none, prompts, clipboard);
    empty.SelectGroup(0);
    EXPECT_FALSE(empty.ActionsEnabled());
    EXPECT_FALSE(empty.Copy());

    // The data ends inside the third sub-icon of the first group.
    model.SelectGroup(0);
    doc.ExtraPoiDataBytes.resize(model.SubIcons()[2].Offset + 10);
    model.Refresh();
    model.SelectGroup(0);
    EXPECT_EQ(model.SubIcons().size(), 3u);
    EXPECT_TRUE(model.SubIcons()[2].Damaged);
    model.ClickSubIcon(2);
    EXPECT_EQ(prompts.Texts("warn").size(), 2u);
}

}  // namespace
}  // namespace mirvane
