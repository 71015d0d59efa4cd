#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "grid_text.h"
#include "models/editing/history.h"
#include "models/editing/tools/fill.h"
#include "models/editing/tools/pen.h"
#include "models/editing/tools/pipette.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

// Press on the first cell, a move to each further one, release on the last.
template <typename T>
bool Stroke(Tool<T>& tool, EditTarget<T>& target, const std::vector<Cell>& cells,
            MouseButton button = MouseButton::Left) {
    tool.Press(target, cells.front(), button);
    for (std::size_t i = 1; i < cells.size(); ++i) tool.Move(target, cells[i]);
    return tool.Release(target, cells.back());
}

// Left draws 1, right draws 0.
EditTarget<std::uint8_t> Target(const GridRows& rows) { return {GridOf(rows), 1, 0}; }

// Draws every pen cell mirrored too, as an editor with a repeat option would.
struct MirroredTarget : EditTarget<std::uint8_t> {
    using EditTarget::EditTarget;
    bool Paint(Cell cell, const std::uint8_t& value) override {
        const bool here = EditTarget::Paint(cell, value);
        return EditTarget::Paint({grid.Width() - 1 - cell.x, cell.y}, value) || here;
    }
};

// "loaded", then the given edits.
History<std::string> Edited(std::initializer_list<const char*> edits, std::size_t maxUndoSteps = 100) {
    History<std::string> history("loaded", maxUndoSteps);
    for (const char* edit : edits) history.Commit(edit);
    return history;
}

}  // namespace

TEST(PenTool, AFastDragLeavesNoGaps) {
    struct Case {
        std::vector<Cell> stroke;
        GridRows after;
    };
    const Case cases[] = {
        {{{0, 0}, {5, 2}}, {"110000", "001100", "000011"}},
        {{{0, 0}, {5, 0}, {5, 2}}, {"111111", "000001", "000001"}},
        {{{-3, 1}, {8, 1}}, {"000000", "111111", "000000"}},  // dragged across the whole grid and beyond
    };
    for (const Case& c : cases) {
        auto target = Target({"000000", "000000", "000000"});
        PenTool<std::uint8_t> pen;
        Stroke(pen, target, c.stroke);
        EXPECT_EQ(RowsOf(target.grid), c.after) << c.stroke.back().x;
    }
}

TEST(PenTool, EachStrokeReportsWhetherItChangedTheGrid) {
    auto target = Target({"000", "000"});
    PenTool<std::uint8_t> pen;
    EXPECT_TRUE(Stroke(pen, target, {{0, 0}, {2, 0}}));
    EXPECT_FALSE(Stroke(pen, target, {{0, 0}, {2, 0}}));  // already drawn
    EXPECT_FALSE(Stroke(pen, target, {{0, 1}, {2, 1}}, MouseButton::Right));
    EXPECT_FALSE(pen.Release(target, {1, 1}));  // no stroke under way
    EXPECT_TRUE(Stroke(pen, target, {{2, 1}, {1, 0}}, MouseButton::Right));
    EXPECT_EQ(RowsOf(target.grid), (GridRows{"101", "000"}));
}

TEST(EditingTools, EditorsCanDrawPenCellsElsewhereButNotFills) {
    MirroredTarget target(GridOf({"0010", "0010"}), 1, 0);
    PenTool<std::uint8_t> pen;
    EXPECT_TRUE(Stroke(pen, target, {{0, 0}, {0, 0}}));
    EXPECT_EQ(RowsOf(target.grid), (GridRows{"1011", "0010"}));
    FillTool<std::uint8_t> fill;
    EXPECT_TRUE(Stroke(fill, target, {{0, 1}}));
    EXPECT_EQ(RowsOf(target.grid), (GridRows{"1111", "1110"}));
}

// The same tools serve palette indices, pattern bits and true colours.
template <typename T>
class ToolsOnEveryCellType : public ::testing::Test {};
using CellTypes = ::testing::Types<std::uint8_t, std::uint32_t>;
TYPED_TEST_SUITE(ToolsOnEveryCellType, CellTypes);

TYPED_TEST(ToolsOnEveryCellType, ToolsDrawAndPickTheButtonsColours) {
    const TypeParam colour = static_cast<TypeParam>(0x00FF8040), erase = 0;
    EditTarget<TypeParam> target(Grid<TypeParam>(3, 2, erase), colour, erase);
    PenTool<TypeParam> pen;
    FillTool<TypeParam> fill;
    PipetteTool<TypeParam> pipette;
    EXPECT_TRUE(Stroke(pen, target, {{0, 0}, {2, 0}}));
    EXPECT_TRUE(Stroke(pen, target, {{1, 0}, {1, 0}}, MouseButton::Right));
    EXPECT_FALSE(Stroke(fill, target, {{1, 1}}, MouseButton::Right));  // already the erasing colour
    EXPECT_FALSE(Stroke(pipette, target, {{1, 1}}, MouseButton::Right));
    EXPECT_EQ(target.primary, erase);  // either button picks into the current colour
    EXPECT_EQ(target.secondary, erase);
    Stroke(pipette, target, {{0, 0}});
    Stroke(pipette, target, {{5, 0}});  // outside: nothing to pick
    EXPECT_TRUE(Stroke(fill, target, {{1, 1}}));
    EXPECT_EQ(target.grid, Grid<TypeParam>(3, 2, colour));  // the erased cell joined the fill's region
}

TEST(EditingHistory, TheLimitDropsTheOldestStatesAndTheirCleanMark) {
    History<std::string> history = Edited({"a", "b", "c"}, 2);
    EXPECT_EQ(history.Undo(), "b");
    EXPECT_EQ(history.Undo(), "a");
    EXPECT_FALSE(history.CanUndo());  // "loaded" is gone, and with it the clean mark
    EXPECT_FALSE(history.IsClean());
    history.Redo();
    history.MarkClean();  // saved with "b"
    history.Commit("d");  // "c" goes: undoing from here passes "b"
    history.Commit("e");  // drops "a"; the mark stays with "b"
    EXPECT_EQ(history.Undo(), "d");
    EXPECT_EQ(history.Undo(), "b");
    EXPECT_TRUE(history.IsClean());
    EXPECT_FALSE(history.CanUndo());
}
