// The line editor's model without widgets: its flag bytes, widths and
// borders, the height of its pattern, its clipboard and OK.
#include <gtest/gtest.h>

#include <tuple>

#include "corpus.h"
#include "document/binary_reader.h"
#include "document/encoding.h"
#include "models/pattern/line_editor_model.h"
#include "scripted_prompts.h"

namespace mirvane {
namespace {

PolylineRecord Line(const std::string& type, std::array<std::uint8_t, 2> extra = {}) {
    PolylineRecord r;
    r.Type = type;
    r.SubType = "00";
    r.Flags1 = 0x00;  // solid, day colours only
    r.Flags2 = 0x02;
    r.ColourBytes = {0x10, 0x20, 0x30, 0x40, 0x50, 0x60};
    r.PatternBytes = {3, 5};
    r.ExtraIndexBytes = extra;
    r.Length = PolylineRecordLength(r);
    return r;
}

Document ThreeLines() {
    Document doc;
    doc.Polylines = {Line("001"), Line("003"), Line("003", {4, 1})};
    doc.PolylineCount = 2;
    doc.ExtraPolylineCount = 1;
    return doc;
}

TEST(LineEditorModel, CheckBoxesHeightAndWidthsComposeTheRecord) {
    struct Case {
        int height;
        bool night, dayClear, nightClear, orientation, labels;
        std::uint8_t flags1, flags2;
        std::size_t colours;
        Bytes pattern;  // a solid line's widths; else only the size counts
    };
    const Case cases[] = {
        {0, false, false, false, false, true, 0x00, 0x03, 2, {3, 7}},
        {0, true, true, false, true, true, 0x07, 0x01, 2, {3}},  // solid: the night follows the day
        {5, true, false, true, false, false, 0x2D, 0x02, 3, Bytes(20)},
        {31, false, true, true, true, false, 0xFE, 0x00, 1, Bytes(124)},
    };
    for (const Case& c : cases) {
        LineEditorModel model;
        model.SetHeight(c.height);
        model.SetNightColours(c.night);
        model.SetDayClear(c.dayClear);
        model.SetNightClear(c.nightClear);
        model.UseOrientation = c.orientation;
        model.Labels.SetEnabled(c.labels);
        model.WidthText = "3";
        model.BorderText = "2";
        const PolylineRecord record = model.BuildRecord();
        SCOPED_TRACE(int(c.flags1));
        EXPECT_EQ(std::tuple(record.Flags1, record.Flags2, record.ColourBytes.size()),
                  std::tuple(c.flags1, c.flags2, c.colours * 3));
        EXPECT_EQ(c.height == 0 ? record.PatternBytes : Bytes(record.PatternBytes.size()), c.pattern);
        EXPECT_EQ(record.Length, PolylineRecordLength(record));
    }
}

TEST(LineEditorModel, WidthAndBorderFieldsShareTheLimit) {
    LineEditorModel model;
    model.WidthText = "31";
    model.BorderText = "0";
    EXPECT_FALSE(model.LeaveWidthField(WidthField::Width));
    EXPECT_EQ(model.Widths(), (std::pair{31, 0}));

    model.WidthText = "29";
    model.BorderText = "2";
    EXPECT_FALSE(model.Widths());
    EXPECT_TRUE(model.LeaveWidthField(WidthField::Width));
    EXPECT_EQ(model.WidthText, "0");

    model.WidthText = "30";
    model.BorderText = "1";
    ASSERT_TRUE(model.LeaveWidthField(WidthField::Border));
    EXPECT_EQ(model.BorderText, "0");  // the field left, not its partner
    EXPECT_EQ(model.WidthText, "30");
    model.WidthText = "";
    EXPECT_TRUE(model.LeaveWidthField(WidthField::Width));

    // A clear day background leaves no border; one pixel comes back with it.
    model.WidthText = "4";
    model.SetDayClear(true);
    EXPECT_TRUE(model.BorderDisabled());
    EXPECT_TRUE(model.NightClear());
    EXPECT_FALSE(model.LeaveWidthField(WidthField::Border));
    model.SetDayClear(false);
    EXPECT_EQ(model.BorderText, "1");
}

TEST(LineEditorModel, HeightChangesKeepRowsAndUndo) {
    LineEditorModel model;
    model.SetHeight(4);
    model.Press({0, 3}, MouseButton::Left);
    model.Release({31, 3});
    model.SetHeight(2);  // the drawn row falls outside
    EXPECT_EQ(model.Pattern().Height(), 2);
    model.SetHeight(0);
    model.SetHeight(6);  // back from the solid line with what it had
    EXPECT_EQ(model.Pattern().At({5, 3}), kSecondColourCell);
    for (int i = 0; i < 3; ++i) model.Undo();
    EXPECT_EQ(model.Height(), 4);
    EXPECT_EQ(model.Pattern().At({5, 3}), kFirstColourCell);
    model.Run(PatternCommand::ShiftDown);  // cyclic over the line's own rows
    EXPECT_EQ(model.Pattern().At({5, 0}), kFirstColourCell);
    model.Run(PatternCommand::RotateClockwise);  // what leaves the rows is clipped
    EXPECT_EQ(model.Pattern().Height(), 4);
}

TEST(LineEditorModel, ClipboardIsTheLinesOwn) {
    LineClipboard() = PatternClipboard{.HasBitmap = false};
    LineEditorModel source;
    source.SetHeight(7);
    source.Press({2, 6}, MouseButton::Left);
    source.Release({2, 6});
    source.SetNightColours(false);
    source.SetColour(ColourField::Day2, 0x123456);
    source.CopyToClipboard();
    PolygonClipboard() = PatternClipboard{};
    LineEditorModel target;
    target.PasteFromClipboard();
    EXPECT_EQ(std::tie(target.Pattern(), target.Layout()), std::tie(source.Pattern(), source.Layout()));
    EXPECT_EQ(target.Colour(ColourField::Day2), 0x123456u);

    source.SetHeight(0);
    source.WidthText = "5";
    source.BorderText = "3";
    source.CopyToClipboard();
    target.PasteFromClipboard();
    EXPECT_EQ(target.Height(), 0);
    EXPECT_EQ(target.BuildRecord().PatternBytes, (Bytes{5, 11}));
    LineClipboard() = PatternClipboard{.HasBitmap = false};
}

TEST(LineEditorModel, CommitKeepsOneTypePerActivity) {
    Document doc = ThreeLines();
    ScriptedPrompts prompts;
    LineEditorModel added;
    added.LoadNew(doc, 0);  // the regular line 0x001 selected in the list
    added.Type = "3";
    added.SubType = "0";
    EXPECT_FALSE(added.Commit(doc, prompts).Closes());
    EXPECT_EQ(prompts.Log.size(), 1u);

    // The activity of the selected row is what the duplicate test compares.
    added.LoadNew(doc, 2);
    added.Activity = 1;
    EXPECT_FALSE(added.Commit(doc, prompts).Closes());
    added.LoadNew(doc, std::nullopt);  // no row selected: OK stops on an error
    EXPECT_TRUE(added.Commit(doc, prompts).Failed);
    EXPECT_EQ(prompts.Log.size(), 3u);
    EXPECT_EQ(doc.Polylines.size(), 3u);

    added.LoadNew(doc, 0);
    added.Type = "2";
    added.Activity = 5;  // cycling, a routing line
    EXPECT_EQ(added.Commit(doc, prompts).Row, 3);  // after the regular lines
    EXPECT_EQ(std::pair(doc.PolylineCount, doc.ExtraPolylineCount), std::pair(2, 2));

    LineEditorModel changed;
    changed.Load(doc, 3);
    EXPECT_EQ(changed.Activity, 5);
    changed.Activity = 0;
    changed.Labels.SetEnabled(true);
    changed.Labels.SetText(0, std::string(254, 'x'));  // 256 bytes with code and terminator
    EXPECT_TRUE(changed.Commit(doc, prompts).Failed);
    changed.Labels.SetText(0, std::string(253, 'x'));
    EXPECT_EQ(changed.Commit(doc, prompts).Row, 1);
    EXPECT_EQ(std::pair(doc.PolylineCount, doc.ExtraPolylineCount), std::pair(3, 1));
}

TEST(LineEditorModel, UnchangedCorpusLinesGiveBackTheirBytes) {
    MIRVANE_REQUIRE_CORPUS();
    for (const auto& path : testing::CorpusFiles("binary", ".typ")) {
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string())) << path;
        for (int row = 0; row < static_cast<int>(doc.Polylines.size()); ++row) {
            const PolylineRecord& before = doc.Polylines[row];
            if (DecodePolyline(before).Status != DecodeStatus::Ok) continue;
            LineEditorModel model;
            model.Load(doc, row);
            model.SetHeight(model.Height() == 1 ? 2 : 1);  // changed and undone is no change
            model.Undo();
            const PolylineRecord after = model.BuildRecord();
            SCOPED_TRACE(path.filename().string() + " line " + before.Type + "/" + before.SubType);
            EXPECT_EQ(std::tie(after.Flags1, after.Flags2, after.ColourBytes, after.PatternBytes, after.Length),
                      std::tie(before.Flags1, before.Flags2, before.ColourBytes, before.PatternBytes, before.Length));
            EXPECT_EQ(after.ExtraIndexBytes, before.ExtraIndexBytes);
            // Label blocks the flags switch off are not written, whatever the record held.
            if (before.Flags2 & 0x01) { EXPECT_EQ(after.LabelBytes, before.LabelBytes); }
            if (before.Flags2 & 0x04) { EXPECT_EQ(after.ExtendedLabelBytes, before.ExtendedLabelBytes); }
        }
    }
}

}  // namespace
}  // namespace mirvane
