#include <gtest/gtest.h>

#include "models/textpane/search_model.h"
#include "models/textpane/text_search.h"
#include "scripted_prompts.h"

using namespace mirvane;

namespace {

struct SearchWindow : ::testing::Test {
    void Load(std::string text) { pane = MemoryTextBuffer(std::move(text)); }
    MemoryTextBuffer pane;
    ScriptedPrompts prompts;
    SearchModel search{pane, prompts};
};

}  // namespace

TEST(FindInText, CaseWholeWordAndStartPosition) {
    constexpr FindOptions kAnyCase{false, false}, kMatchCase{true, false}, kWholeWord{false, true};
    struct Case {
        const char *Text, *Word;
        FindOptions Options;
        std::size_t From;
        long long Expected;  // byte offset, -1: not found
    };
    const Case cases[] = {
        {"le Château", "CHÂTEAU", kAnyCase, 0, 3},
        {"le Château", "CHÂTEAU", kMatchCase, 0, -1},
        {"Straße", "STRASSE", kAnyCase, 0, -1},  // ß has no single capital
        {"Colour ColourMode", "ColourMode", kWholeWord, 0, 7},
        {"Type=0x01", "Type=", kWholeWord, 0, 0},  // ends in punctuation: no boundary needed
        {"ab ab", "ab", kAnyCase, 1, 3},
        {"ab", "ab", kAnyCase, 5, -1},
        // Broken UTF-8 is read byte by byte and never read past the end.
        {"\xC3", "\xC3", kAnyCase, 0, 0},
        {"a\xE2\x82", "\x82", kWholeWord, 0, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.Text) + " / " + c.Word);
        const auto match = FindInText(c.Text, c.Word, c.From, c.Options);
        EXPECT_EQ(match ? static_cast<long long>(match->Position) : -1, c.Expected);
    }
}

TEST_F(SearchWindow, NextSelectsEachMatchInTurnThenOffersToRestart) {
    Load("one two one");
    search.Word = "one";
    for (std::size_t start : {0u, 8u}) {
        EXPECT_TRUE(search.FindNext());
        EXPECT_EQ(pane.SelStart(), start);
    }

    prompts.Answers = {true};
    EXPECT_TRUE(search.FindNext());
    EXPECT_EQ(pane.SelStart(), 0u);
    EXPECT_EQ(prompts.Log.size(), 1u);

    // No leaves the caret behind the last match.
    EXPECT_TRUE(search.FindNext());
    EXPECT_FALSE(search.FindNext());
    EXPECT_EQ(pane.SelStart(), 11u);
    EXPECT_EQ(pane.SelLength(), 0u);
}

TEST_F(SearchWindow, EmptyWordFindsNothingAndAsksOnlyOncePerClick) {
    Load("some text");
    prompts.Answers = {true, true, true};
    EXPECT_FALSE(search.FindNext());
    EXPECT_EQ(prompts.Texts("ask").size(), 1u);
}

TEST_F(SearchWindow, ReplaceChangesTheSelectionAndReplaceAllWhatIsBehindIt) {
    Load("red green red red");
    search.Word = "red";
    search.Replacement = "blue";
    search.FindNext();
    search.ReplaceSelection();
    EXPECT_EQ(pane.Text(), "blue green red red");
    search.FindNext();
    EXPECT_EQ(pane.SelStart(), 11u);
    EXPECT_EQ(search.ReplaceAll(), 1u);
    EXPECT_EQ(pane.Text(), "blue green red blue");
    EXPECT_EQ(pane.SelStart(), 19u);
}

TEST_F(SearchWindow, ReplaceAllGoesOnBehindEachReplacementAndCounts) {
    Load("Colour=1 colour=2 Colours=3");
    search.Word = "colour";
    search.Replacement = "colour colour";
    search.Options.WholeWord = true;
    EXPECT_EQ(search.ReplaceAll(), 2u);
    EXPECT_EQ(pane.Text(), "colour colour=1 colour colour=2 Colours=3");
    EXPECT_EQ(prompts.Texts("inform").size(), 1u);
    EXPECT_EQ(prompts.Log.size(), 1u);
}
