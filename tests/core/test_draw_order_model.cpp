// The draw order editor's rows: the entries they give, and dragging rows
// between levels and into the gaps between them, which must give the entries
// the grid gives when the same levels are typed.
#include <gtest/gtest.h>

#include "models/draworder/draw_order_model.h"

namespace mirvane {
namespace {

// Rows a to f: a and b on level 1, c on 2, d on 3, e unticked on 4, f empty.
DrawOrderModel SixRows() {
    DrawOrderModel model({{1, 0x001, 0}, {1, 0x002, 0}, {2, 0x003, 0}, {3, 0x10f, 2}, {4, 0x005, 0}});
    model.Rows()[4].Kept = false;
    model.AddRow();
    return model;
}

std::vector<std::string> LevelTexts(const DrawOrderModel& model) {
    std::vector<std::string> levels;
    for (const DrawOrderRow& row : model.Rows()) levels.push_back(row.Level);
    return levels;
}

TEST(DrawOrderDragAndDrop, MovesRenumberLevelsAndMatchTheGrid) {
    struct Case {
        const char* what;
        int row, level;
        bool newLevel;
        std::vector<std::string> levels;  // of rows a to f afterwards
    };
    const Case cases[] = {
        {"onto level 1, emptying level 2", 2, 1, false, {"1", "1", "1", "2", "3", ""}},
        {"into the gap before level 1", 3, 1, true, {"2", "2", "3", "1", "4", ""}},
        {"past the last level, the unticked row's", 0, 5, true, {"5", "1", "2", "3", "4", ""}},
        {"alone into the gap after its level", 2, 3, true, {"1", "1", "2", "3", "4", ""}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        DrawOrderModel dragged = SixRows();
        if (c.newLevel) dragged.MoveToNewLevel(c.row, c.level);
        else dragged.MoveToLevel(c.row, c.level);
        EXPECT_EQ(LevelTexts(dragged), c.levels);

        DrawOrderModel typed = SixRows();
        for (std::size_t i = 0; i < c.levels.size(); ++i) typed.Rows()[i].Level = c.levels[i];
        EXPECT_EQ(dragged.Entries(), typed.Entries());
        EXPECT_FALSE(dragged.Rows()[4].Kept);
    }
}

TEST(DrawOrderDragAndDrop, LevelsHoldEveryRowWithALevel) {
    DrawOrderModel model = SixRows();
    model.Rows()[1].Level = "07";  // typed by hand: no renumbering until a drop
    const std::vector<DrawOrderLevel> levels = model.Levels();
    ASSERT_EQ(levels.size(), 5u);
    EXPECT_EQ(levels[3].Rows, std::vector<int>{4});  // the unticked row keeps its place
    EXPECT_EQ(levels[4].Level, 7);

    model.MoveToLevel(3, 2);
    EXPECT_EQ(LevelTexts(model), (std::vector<std::string>{"1", "4", "2", "2", "3", ""}));
    EXPECT_EQ(model.Entries(), (std::vector<DrawOrderEntry>{{1, 1, 0}, {2, 3, 0}, {2, 0x10f, 2}, {4, 2, 0}}));
}

TEST(DrawOrderModel, EntriesLeaveEmptyAndUntickedRowsOutAndKeepDuplicates) {
    DrawOrderModel model({{1, 0x001, 0}, {3, 0x003, 0}});
    model.AddRow();                                   // an empty row is dropped
    model.Rows().push_back({"0", "0", "0", true});    // all zero too
    model.Rows().push_back({"3", "1", "00", true});   // duplicates stay, sorted in
    EXPECT_EQ(model.Entries(), (std::vector<DrawOrderEntry>{{1, 1, 0}, {3, 1, 0}, {3, 3, 0}}));
    model.SetAllKept(false);
    EXPECT_TRUE(model.Entries().empty());
    EXPECT_TRUE(CheckDrawOrderSubType("3F") && CheckDrawOrderLevel("0"));
}

}  // namespace
}  // namespace mirvane
