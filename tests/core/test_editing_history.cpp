#include <gtest/gtest.h>

#include <string>

#include "models/editing/history.h"

using namespace mirvane;

namespace {

// "loaded", then the given edits.
History<std::string> Edited(std::initializer_list<const char*> edits, std::size_t maxUndoSteps = 100) {
    History<std::string> history("loaded", maxUndoSteps);
    for (const char* edit : edits) history.Commit(edit);
    return history;
}

}  // namespace

TEST(EditingHistory, UndoAndRedoWalkTheStatesAndAnEditDropsTheRedos) {
    History<std::string> history = Edited({"a", "b"});
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.Undo(), "a");
    EXPECT_EQ(history.Undo(), "loaded");
    EXPECT_FALSE(history.CanUndo());
    EXPECT_EQ(history.Undo(), "loaded");
    EXPECT_EQ(history.Redo(), "a");
    history.Commit("c");
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.Redo(), "c");
    EXPECT_EQ(history.Undo(), "a");
    EXPECT_EQ(history.Undo(), "loaded");
}

TEST(EditingHistory, CleanIsTheStateLastLoadedOrSaved) {
    History<std::string> history = Edited({"a"});
    EXPECT_FALSE(history.IsClean());
    history.Undo();
    EXPECT_TRUE(history.IsClean());  // back to what was loaded
    history.Redo();
    history.MarkClean();  // saved with "a"
    history.Commit("b");
    history.Undo();
    EXPECT_TRUE(history.IsClean());
    history.Undo();
    history.Commit("a");  // the same text, but the saved state is gone
    EXPECT_FALSE(history.IsClean());
    history.Undo();
    EXPECT_FALSE(history.IsClean());
    history.Reset("reloaded");
    EXPECT_TRUE(history.IsClean());
    EXPECT_FALSE(history.CanUndo());
}

TEST(EditingHistory, TheLimitDropsTheOldestStatesAndTheirCleanMark) {
    History<std::string> history = Edited({"a", "b", "c"}, 2);
    EXPECT_EQ(history.Undo(), "b");
    EXPECT_EQ(history.Undo(), "a");
    EXPECT_FALSE(history.CanUndo());  // "loaded" is gone, and with it the clean mark
    EXPECT_FALSE(history.IsClean());
    history.Redo();
    history.MarkClean();  // saved with "b"
    history.Commit("d");
    history.Commit("e");  // drops "a"; the mark stays with "b"
    EXPECT_EQ(history.Undo(), "d");
    EXPECT_EQ(history.Undo(), "b");
    EXPECT_TRUE(history.IsClean());
    EXPECT_FALSE(history.CanUndo());
}
