// The POI editor without its window: real POIs come back byte for byte,
// commands change exactly the pixels they should, undo finds the loaded
// bytes again, colour mode and count changes ask and refuse as users expect.
#include <gtest/gtest.h>

#include "corpus.h"
#include "document/binary_reader.h"
#include "grid_text.h"
#include "models/poi/poi_editor_model.h"
#include "record_compare.h"
#include "scripted_prompts.h"

namespace mirvane {
namespace {

using testing::ExpectSamePoi;
using testing::GridRows;

constexpr std::uint32_t kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000, kWhite = 0xFFFFFF;

// Each pixel as its palette index, '.' for a transparent one.
GridRows PixelRows(const WorkingBitmap& b) {
    GridRows rows;
    for (int y = 0; y < b.Height; ++y) {
        std::string& row = rows.emplace_back();
        for (int x = 0; x < b.Width; ++x)
            row += b.ShownColour({x, y}) ? static_cast<char>('0' + b.Bitmap.Indices.At({x, y})) : '.';
    }
    return rows;
}

// A POI whose rows give palette indices, '.' a transparent pixel, in `mode`.
PoiRecord PaletteRecord(const GridRows& rows, std::vector<PaletteEntry> palette, int mode = 16) {
    WorkingBitmap b{static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), {}, {}};
    b.Bitmap.ColourMode = static_cast<std::uint8_t>(mode);
    b.Bitmap.Palette = std::move(palette);
    b.Bitmap.Indices = IndexGrid(b.Width, b.Height);
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x)
            b.Bitmap.Indices.Set({x, y}, rows[y][x] == '.' ? b.TransparentIndex() : rows[y][x] - '0');
    RepadIndices(b, 255);
    PoiRecord record;
    record.Type = "2f";
    record.SubType = "01";
    record.Flags = 0x01;
    record.Width = static_cast<std::uint8_t>(b.Width);
    record.Height = static_cast<std::uint8_t>(b.Height);
    record.Bitmaps[0] = b.ToRecord();
    return record;
}

struct PoiEditorTest : ::testing::Test {
    // A left-button drag from `from` to `to`.
    void Stroke(Cell from, Cell to) {
        model.Press(from, MouseButton::Left);
        model.Move(to);
        model.Release(to);
    }

    ScriptedPrompts prompts;
    PoiClipboard clipboard;
    PoiEditorModel model{prompts, clipboard};
};

TEST_F(PoiEditorTest, RealPoisComeBackUnchangedAndAfterUndoingEveryCommand) {
    MIRVANE_REQUIRE_CORPUS();
    auto files = testing::CorpusFiles("binary", ".typ");
    const auto compiled = testing::CorpusFiles("mkgmap", ".typ");
    files.insert(files.end(), compiled.begin(), compiled.end());
    ASSERT_FALSE(files.empty());
    std::size_t pois = 0;
    for (const auto& path : files) {
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string()));
        for (std::size_t i = 0; i < doc.Pois.size(); ++i, ++pois) {
            SCOPED_TRACE(path.filename().string() + " POI " + std::to_string(i));
            const PoiRecord& record = doc.Pois[i];
            model.Load(record);
            const auto unchanged = model.BuildRecord();
            ASSERT_TRUE(unchanged);
            ExpectSamePoi(*unchanged, record);
            if (record.Width == 0) continue;

            model.Rotate(Turn::Clockwise);
            model.Flip(true);
            model.ShiftBy(1, 0);
            model.Invert();
            Stroke({0, 0}, {1, 1});
            while (model.CanUndo()) model.Undo();
            EXPECT_FALSE(model.IsModified());
            ExpectSamePoi(*model.BuildRecord(), record);
        }
    }
    EXPECT_GT(pois, 300u);
    EXPECT_TRUE(prompts.Log.empty());
}

TEST_F(PoiEditorTest, WholeBitmapCommandsMoveExactlyTheirPixels) {
    const GridRows start = {"012", "1.0"};
    struct Case {
        const char* name;
        void (*run)(PoiEditorModel&);
        GridRows expected;
    };
    const Case cases[] = {
        {"clockwise", [](PoiEditorModel& m) { m.Rotate(Turn::Clockwise); }, {"10", ".1", "02"}},
        {"counter-clockwise", [](PoiEditorModel& m) { m.Rotate(Turn::CounterClockwise); }, {"20", "1.", "01"}},
        {"flip horizontal", [](PoiEditorModel& m) { m.Flip(true); }, {"210", "0.1"}},
        {"flip vertical", [](PoiEditorModel& m) { m.Flip(false); }, {"1.0", "012"}},
        {"shift right", [](PoiEditorModel& m) { m.ShiftBy(1, 0); }, {"201", "01."}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        model.Load(PaletteRecord(start, {{kRed}, {kGreen}, {kBlue}}));
        c.run(model);
        EXPECT_EQ(PixelRows(model.Shown()), c.expected);
    }
}

TEST_F(PoiEditorTest, InvertTurnsThePaletteAndLeavesTransparentPixels) {
    model.Load(PaletteRecord({"0.", "11"}, {{kRed}, {kWhite}}));
    model.Invert();
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"0.", "11"}));
    EXPECT_EQ(model.Shown().Bitmap.Palette, (std::vector<PaletteEntry>{{0xFFFF00}, {0x000000}}));
}

TEST_F(PoiEditorTest, PenStrokeHasNoGapsAndIsOneUndoStep) {
    model.Load(PaletteRecord({"00000", "00000"}, {{kRed}, {kGreen}}));
    model.PickEntry(1);
    Stroke({0, 0}, {4, 1});
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"11000", "00111"}));
    model.PickTransparent();
    model.Press({0, 1}, MouseButton::Right);
    model.Release({0, 1});
    EXPECT_EQ(PixelRows(model.Shown())[1], ".0111");
    while (model.CanUndo()) model.Undo();
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"00000", "00000"}));
}

TEST_F(PoiEditorTest, PaintPotFillsShownColoursWithoutCrossingCorners) {
    // Entries 0 and 2 have the same colour: the pot sees one region.
    model.Load(PaletteRecord({"0210", "1100", "0101"}, {{kRed}, {kGreen}, {kRed}}));
    model.PickEntry(1);
    model.Tool = PoiTool::Fill;
    model.Press({0, 0}, MouseButton::Left);
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"1110", "1100", "0101"}));
    model.Tool = PoiTool::Pipette;
    model.Press({3, 0}, MouseButton::Left);
    EXPECT_EQ(model.Paint.Index, 0);
    EXPECT_EQ(model.Tool, PoiTool::Pen);
}

TEST_F(PoiEditorTest, ColourModeChangesKeepOrDropTransparency) {
    const PoiRecord record = PaletteRecord({"0.", "10"}, {{kRed}, {kGreen}});
    model.Load(record);
    EXPECT_FALSE(model.SetColourMode(0));  // transparent pixels cannot go to mode 00
    EXPECT_EQ(prompts.Texts("inform").size(), 1u);
    ExpectSamePoi(*model.BuildRecord(), record);

    ASSERT_TRUE(model.SetColourMode(2));  // the transparent pixel takes a new black entry of alpha 15
    EXPECT_EQ(model.Shown().Bitmap.Palette.back(), (PaletteEntry{0x000000, kTransparentAlpha}));
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"0.", "10"}));

    prompts.Answers = {true};
    ASSERT_TRUE(model.SetColourMode(1));
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"0.", "10"}));
    EXPECT_EQ(model.Shown().ColourCount(), 3);
}

TEST_F(PoiEditorTest, ColourCountChanges) {
    model.Load(PaletteRecord({"012", "..2"}, {{kRed}, {kGreen}, {kBlue}}));
    ASSERT_TRUE(model.SetColourCount(5));  // new entries are white and need no filling
    EXPECT_EQ(model.Shown().Bitmap.Palette[4], (PaletteEntry{kWhite}));
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"012", "..2"}));

    model.Load(PaletteRecord({"0123"}, {{0x000000}, {0x010101}, {kBlue}, {kWhite}}));
    EXPECT_FALSE(model.SetColourCount(2));  // declined: nothing changes
    EXPECT_EQ(model.Shown().ColourCount(), 4);
    prompts.Answers = {true};
    ASSERT_TRUE(model.SetColourCount(3));  // the closest pair loses its first member
    EXPECT_EQ(model.Shown().Bitmap.Palette, (std::vector<PaletteEntry>{{0x010101}, {kBlue}, {kWhite}}));
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"0012"}));

    model.Load(PaletteRecord({"0.", "10"}, {{kRed}, {kGreen}}));
    prompts.Answers = {true};
    ASSERT_TRUE(model.SetColourCount(0));
    const WorkingBitmap& truth = model.Shown();
    EXPECT_FALSE(truth.HasPalette());
    EXPECT_EQ((std::vector{truth.ShownColour({0, 0}), truth.ShownColour({1, 0}), truth.ShownColour({0, 1})}),
              (std::vector<std::optional<std::uint32_t>>{kRed, std::nullopt, kGreen}));
}

TEST_F(PoiEditorTest, NewPoiNeedsATypeAndSubTypeOfItsOwn) {
    model.LoadNew();
    EXPECT_FALSE(model.BuildRecord());  // no Type yet
    model.Type = "2f";
    model.SubType = "03";
    Document doc;
    const auto index = model.Save(doc, std::nullopt);
    ASSERT_TRUE(index);
    EXPECT_FALSE(model.Save(doc, std::nullopt));  // the same Type and SubType again
    EXPECT_EQ(doc.Pois.size(), 1u);
    EXPECT_TRUE(model.Save(doc, *index));
}

TEST_F(PoiEditorTest, ClipboardCarriesTheWholeBitmapToAnotherPoi) {
    model.Load(PaletteRecord({"01", "1."}, {{kRed}, {kGreen}}, 32));
    model.Copy();  // a transparent pixel outside the palette cannot be written in mode 32
    EXPECT_EQ(prompts.Texts("warn").size(), 1u);
    EXPECT_FALSE(model.CanPaste());
    model.Load(PaletteRecord({"01", "1."}, {{kRed}, {kGreen}}, 16));
    model.Copy();
    PoiEditorModel other(prompts, clipboard);
    other.Load(PaletteRecord({"000"}, {{kBlue}}, 0));
    ASSERT_TRUE(other.CanPaste());
    other.Paste();
    EXPECT_EQ(other.Shown(), model.Shown());
}

TEST_F(PoiEditorTest, NightBitmapIsEditedOnItsOwnAndMustKeepTheDaySize) {
    model.Load(PaletteRecord({"00", "00"}, {{kRed}, {kGreen}}));
    model.SetNightBitmap(true);
    model.ShowNight(true);
    model.PickEntry(1);
    Stroke({0, 0}, {0, 0});
    EXPECT_EQ(PixelRows(model.Current().Day), (GridRows{"00", "00"}));
    EXPECT_EQ(PixelRows(*model.Current().Night), (GridRows{"10", "00"}));
    const auto record = model.BuildRecord();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Flags & 0x02, 0x02);

    model.Load(PaletteRecord({"000", "000"}, {{kRed}}));
    model.SetNightBitmap(true);
    model.ShowNight(true);
    model.Rotate(Turn::Clockwise);
    EXPECT_FALSE(model.BuildRecord());
    EXPECT_EQ(prompts.Texts("inform").size(), 1u);
}

TEST_F(PoiEditorTest, RemovingColoursRemapsPixelsAndTheLastOneLeavesAnEntryToFill) {
    const PoiRecord record = PaletteRecord({"012", ".21"}, {{kRed}, {0x0000FE}, {kBlue}});
    model.Load(record);
    model.PickEntry(0);
    ASSERT_TRUE(model.RemoveColour());  // No: red's pixels take the nearest colour left
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"001", ".10"}));
    EXPECT_EQ(model.Shown().Bitmap.Palette, (std::vector<PaletteEntry>{{0x0000FE}, {kBlue}}));
    prompts.Answers = {true};
    model.PickEntry(1);
    ASSERT_TRUE(model.RemoveColour());  // Yes: blue's pixels turn transparent
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"00.", "..0"}));
    ASSERT_TRUE(model.RemoveColour());  // the only colour: all transparent, the entry unfilled
    EXPECT_EQ(PixelRows(model.Shown()), (GridRows{"...", "..."}));
    EXPECT_FALSE(model.Shown().PaletteComplete());
    EXPECT_FALSE(model.BuildRecord());
    EXPECT_EQ(prompts.Texts("inform").size(), 1u);  // the refused build
    model.SetEntry(0, kGreen, kOpaqueAlpha);
    EXPECT_TRUE(model.BuildRecord());
    while (model.CanUndo()) model.Undo();
    ExpectSamePoi(*model.BuildRecord(), record);

    model.AddColour(kGreen, 5);  // mode 16 stores no alpha; the new entry is the current colour
    EXPECT_EQ(model.Shown().Bitmap.Palette.back(), (PaletteEntry{kGreen, kOpaqueAlpha}));
    EXPECT_EQ(model.Paint.Index, 3);
}

TEST_F(PoiEditorTest, PicturesComeInAndGoOutWithTheirAlpha) {
    // Opaque, half transparent and fully transparent pixels, on the 16-step
    // scale: a palette of few colours, and 256 colours, too many for one.
    RgbaPicture few(3, 2, ArgbOf(kRed));
    RgbaPicture many(16, 16);
    for (int i = 0; i < 256; ++i) many.SetPixel(i % 16, i / 16, ArgbOf(i * 0x010203, AlphaByteOf(i % 15)));
    for (RgbaPicture* picture : {&few, &many}) {
        picture->SetPixel(1, 0, ArgbOf(kBlue, AlphaByteOf(7)));
        picture->SetPixel(2, 0, 0);
        picture->SetPixel(0, 1, ArgbOf(kGreen, AlphaByteOf(3)));
        model.LoadNew();
        model.TakeImport(ImportBitmap(*picture, ImportColours::AsTheyAre));
        EXPECT_EQ(model.Shown().Bitmap.ColourMode, 32);
        EXPECT_EQ(model.Shown().HasPalette(), picture == &few);
        EXPECT_EQ(model.ExportPicture(), *picture);
        model.Type = "2f";
        model.SubType = "01";
        const auto record = model.BuildRecord();
        ASSERT_TRUE(record);
        PoiEditorModel reopened(prompts, clipboard);
        reopened.Load(*record);
        EXPECT_EQ(reopened.ExportPicture(), *picture);
    }
}

}  // namespace
}  // namespace mirvane
