// The polygon editor's model, its tools and clipboard and the shared label
// rows, without widgets.
#include <gtest/gtest.h>

#include <tuple>

#include "corpus.h"
#include "document/binary_reader.h"
#include "document/encoding.h"
#include "models/pattern/polygon_editor_model.h"
#include "scripted_prompts.h"

namespace mirvane {
namespace {

PolygonRecord Polygon(const std::string& type, const std::string& subType) {
    PolygonRecord r;
    r.Type = type;
    r.SubType = subType;
    r.Flags = 0x06;  // one colour, both backgrounds clear
    r.ColourBytes = {0x10, 0x20, 0x30};
    r.Length = PolygonRecordLength(r);
    return r;
}

Document TwoPolygons() {
    Document doc;
    doc.Polygons = {Polygon("001", "00"), Polygon("003", "00")};
    doc.DrawOrder = {{1, 0x001, 0}, {2, 0x003, 0}};
    return doc;
}

TEST(LabelStringsModel, BlocksAsTheEditorsStoreThem) {
    LabelStringsModel labels;
    labels.SetEnabled(true);
    labels.SetText(0, "ab");
    EXPECT_EQ(labels.LabelBytes(), (Bytes{0x09, 0x01, 'a', 'b', 0x00}));
    labels.AddRow();  // an empty row still stores its code and terminator
    EXPECT_EQ(labels.LabelBytes(), (Bytes{0x0D, 0x01, 'a', 'b', 0x00, 0x01, 0x00}));

    labels.RemoveRow(1);
    labels.RemoveRow(0);  // the last row gone switches the labels off
    EXPECT_FALSE(labels.Enabled());
    EXPECT_TRUE(labels.LabelBytes().empty());

    // A stored block without rows comes back as it was.
    labels.LoadLabels({0x01});
    EXPECT_EQ(labels.LabelBytes(), Bytes{0x01});

    labels.SetExtendedEnabled(true);
    labels.Extended() = {.FontStyle = 2, .CustomColor = 2, .NightColour = 0x332211};
    EXPECT_EQ(labels.ExtendedLabelBytes(), (Bytes{0x12, 0x33, 0x22, 0x11}));
}

TEST(PatternEditorFields, ChecksRefuseWhatCannotBeStored) {
    EXPECT_FALSE(CheckTypeText("1FF") || CheckSubTypeText("1f") || CheckLevelText(""));
    for (const char* bad : {"200", "", "G1"}) EXPECT_TRUE(CheckTypeText(bad)) << bad;
    EXPECT_TRUE(CheckSubTypeText("20") && CheckLevelText("0"));
    for (const char* bad : {"#12345", "#12345G"}) EXPECT_TRUE(CheckColourText(bad)) << bad;
    EXPECT_EQ(ParseColourText("#a0B1c2"), 0xC2B1A0u);
    EXPECT_EQ(ColourText(0x0A0B0C), "#0C0B0A");
}

TEST(PatternEditorFields, CheckBoxesDecideFlagsAndShownColours) {
    struct Case {
        bool night, dayClear, nightClear;
        std::uint8_t flags;
        std::vector<ColourField> shown;
    };
    using enum ColourField;
    const Case cases[] = {
        {false, false, false, 0x08, {Day1, Day2}},
        {true, true, false, 0x0B, {Day1, Night1, Night2}},
        {true, true, true, 0x0F, {Day1, Night1}},
    };
    for (const Case& c : cases) {
        PolygonEditorModel model;
        model.SetNightColours(c.night);
        model.SetDayClear(c.dayClear);
        model.SetNightClear(c.nightClear);
        EXPECT_EQ(model.VisibleColourFields(), c.shown) << int(c.flags);
        const PolygonRecord record = model.BuildRecord();
        EXPECT_EQ(record.Flags & 0x0F, c.flags);
        EXPECT_EQ(record.ColourBytes.size(), c.shown.size() * 3);
        EXPECT_EQ(record.Length, PolygonRecordLength(record));
    }
    // Without night colours the night follows the day.
    PolygonEditorModel model;
    model.SetNightColours(false);
    model.SetDayClear(true);
    EXPECT_TRUE(model.NightClear());
    model.SetBitmap(false);
    EXPECT_EQ(model.BuildRecord().Flags & 0x0F, 0x06);
}

// A pattern of the second colour with one dot at (3, 1).
void DrawDot(PolygonEditorModel& model) {
    model.PasteFromClipboard();  // never written: an empty pattern
    model.Press({3, 1}, MouseButton::Left);
    model.Release({3, 1});
}

BitGrid DotAt(Cell cell) {
    BitGrid pattern(32, 32, kSecondColourCell);
    pattern.Set(cell, kFirstColourCell);
    return pattern;
}

TEST(PatternTools, WholePatternCommandsMoveTheDot) {
    struct Case {
        PatternCommand command;
        int times;
        Cell dot;
    };
    using enum PatternCommand;
    const Case cases[] = {
        {ShiftRight, 32, {3, 1}}, {ShiftUp, 2, {3, 31}},  // wrapped to the bottom
        {RotateClockwise, 1, {30, 3}}, {FlipHorizontal, 1, {28, 1}},
    };
    for (const Case& c : cases) {
        PolygonEditorModel model;
        DrawDot(model);
        for (int i = 0; i < c.times; ++i) model.Run(c.command);
        EXPECT_EQ(model.Pattern(), DotAt(c.dot)) << static_cast<int>(c.command) << " x" << c.times;
    }

    PolygonEditorModel model;
    DrawDot(model);
    model.RepeatIndexH = kRepeatItems - 1;  // "no repeat"
    model.Run(PatternCommand::RepeatColumns);
    EXPECT_EQ(model.Pattern(), DotAt({3, 1}));
    model.RepeatIndexH = 1;  // 4 pixels
    model.Run(PatternCommand::RepeatColumns);
    for (int x = 3; x < 32; x += 4) EXPECT_EQ(model.Pattern().At({x, 1}), 1) << x;
    EXPECT_EQ(model.Pattern().At({3, 2}), 0);
    model.Run(PatternCommand::Invert);
    EXPECT_EQ(model.Pattern().At({3, 1}), 0);
    EXPECT_EQ(model.Pattern().At({0, 0}), 1);
}

TEST(PatternTools, StrokesAutoRepeatFillAndUndo) {
    PolygonEditorModel model;
    model.PasteFromClipboard();
    const BitGrid empty = model.Pattern();

    // A drag is one undo step.
    model.Press({0, 0}, MouseButton::Left);
    model.Move({10, 0});
    model.Release({10, 0});
    model.Undo();
    EXPECT_EQ(model.Pattern(), empty);
    model.Redo();

    // Auto repeat paints every span, before and after the cell.
    model.AutoRepeat = true;
    model.RepeatIndexH = 2;  // 8 pixels
    model.RepeatIndexV = kRepeatItems - 1;
    model.Press({13, 5}, MouseButton::Left);
    model.Release({13, 5});
    for (int x = 5; x < 32; x += 8) EXPECT_EQ(model.Pattern().At({x, 5}), 1) << x;
    EXPECT_EQ(model.Pattern().At({5, 13}), 0);

    // The paint pot fills the connected region and counts as one step with
    // the drag that follows it, which draws as the pen.
    const BitGrid beforeFill = model.Pattern();
    model.AutoRepeat = false;
    model.SetTool(PatternToolKind::Fill);
    model.Press({0, 10}, MouseButton::Left);
    model.Move({0, 12});
    model.Release({0, 12});
    EXPECT_EQ(model.Pattern(), BitGrid(32, 32, 1));
    model.Undo();
    EXPECT_EQ(model.Pattern(), beforeFill);
    while (model.CanUndo()) model.Undo();
    EXPECT_EQ(model.Pattern(), empty);
}

TEST(PatternClipboard, PolygonCopyAndPaste) {
    PolygonClipboard() = PatternClipboard{};
    Document doc = TwoPolygons();
    PolygonEditorModel source;
    source.Load(doc, 0);
    source.SetBitmap(true);
    source.SetDayClear(false);
    source.SetColour(ColourField::Day2, 0x445566);
    source.CopyToClipboard();
    PolygonEditorModel target;
    target.Load(doc, 1);
    target.PasteFromClipboard();
    EXPECT_EQ(target.Layout(), source.Layout());
    EXPECT_EQ(target.Colour(ColourField::Day2), 0x445566u);
    PolygonClipboard() = PatternClipboard{};
}

TEST(PolygonEditorCommit, MessagesKeepTheDocument) {
    Document doc = TwoPolygons();
    ScriptedPrompts prompts;
    PolygonEditorModel model;
    model.LoadNew(doc);
    model.Type = "";
    EXPECT_FALSE(model.Commit(doc, prompts));
    model.Type = "3";
    model.SubType = "0";
    EXPECT_FALSE(model.Commit(doc, prompts));
    EXPECT_EQ(prompts.Log.size(), 2u);
    EXPECT_EQ(doc.Polygons.size(), 2u);

    // Its own type and subtype are allowed when modifying.
    PolygonEditorModel modify;
    modify.Load(doc, 1);
    modify.SubType = "0";
    EXPECT_EQ(modify.Commit(doc, prompts), 1);
    EXPECT_EQ(doc.Polygons[1].SubType, "0");  // the text as typed
}

TEST(PolygonEditorCommit, NewAndChangedObjectsKeepTheDrawOrderInStep) {
    Document doc = TwoPolygons();
    ScriptedPrompts prompts;
    PolygonEditorModel added;
    added.LoadNew(doc);
    added.Type = "2";
    added.SubType = "1";
    added.DrawOrderLevel = "3";
    EXPECT_EQ(added.Commit(doc, prompts), 1);  // sorted between 0x001 and 0x003
    EXPECT_EQ(doc.DrawOrder, (std::vector<DrawOrderEntry>{{1, 1, 0}, {2, 3, 0}, {3, 2, 1}}));

    PolygonEditorModel changed;
    changed.Load(doc, 2);
    EXPECT_EQ(changed.DrawOrderLevel, "2");
    changed.DrawOrderLevel = "";
    changed.Commit(doc, prompts);
    EXPECT_EQ(doc.DrawOrder, (std::vector<DrawOrderEntry>{{1, 1, 0}, {3, 2, 1}}));
    EXPECT_TRUE(prompts.Log.empty());
}

TEST(PolygonEditorCommit, UnchangedCorpusPolygonsGiveBackTheirBytes) {
    MIRVANE_REQUIRE_CORPUS();
    for (const auto& path : testing::CorpusFiles("binary", ".typ")) {
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string())) << path;
        for (int row = 0; row < doc.PolygonCount(); ++row) {
            PolygonEditorModel model;
            model.Load(doc, row);
            // A stroke undone is no change either.
            model.Press({1, 1}, MouseButton::Left);
            model.Release({4, 4});
            model.Undo();
            const PolygonRecord& before = doc.Polygons[row];
            const PolygonRecord after = model.BuildRecord();
            SCOPED_TRACE(path.filename().string() + " polygon " + before.Type + "/" + before.SubType);
            if (DecodePolygon(before).Status != DecodeStatus::Ok) continue;
            EXPECT_EQ(std::tie(after.Flags, after.ColourBytes, after.Length),
                      std::tie(before.Flags, before.ColourBytes, before.Length));
            // Blocks the flags switch off are not written, whatever the record held.
            if (before.Flags & 0x08) { EXPECT_EQ(after.PatternBytes, before.PatternBytes); }
            if (before.Flags & 0x10) { EXPECT_EQ(after.LabelBytes, before.LabelBytes); }
            if (before.Flags & 0x20) { EXPECT_EQ(after.ExtendedLabelBytes, before.ExtendedLabelBytes); }
        }
    }
}

}  // namespace
}  // namespace mirvane
