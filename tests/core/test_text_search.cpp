#include <gtest/gtest.h>

#include "models/textpane/search_model.h"
#include "models/textpane/text_search.h"
#include "scripted_prompts.h"

using namespace mirvane;

namespace {

constexpr FindOptions kAnyCase{false, false};
constexpr FindOptions kMatchCase{true, false};
constexpr FindOptions kWholeWord{false, true};

long long Where(std::string_view text, std::string_view word, FindOptions options, std::size_t from = 0) {
    const auto match = FindInText(text, word, from, options);
    return match ? static_cast<long long>(match->Position) : -1;
}

struct SearchWindow : ::testing::Test {
    void Load(std::string text) { pane = MemoryTextBuffer(std::move(text)); }
    MemoryTextBuffer pane;
    ScriptedPrompts prompts;
    SearchModel search{pane, prompts};
};

}  // namespace

TEST(FindInText, CaseOptionCoversAsciiAndLatinLetters) {
    EXPECT_EQ(Where("Type=0x10F", "type", kAnyCase), 0);
    EXPECT_EQ(Where("Type=0x10F", "type", kMatchCase), -1);
    EXPECT_EQ(Where("le Château", "CHÂTEAU", kAnyCase), 3);
    EXPECT_EQ(Where("le Château", "CHÂTEAU", kMatchCase), -1);
    EXPECT_EQ(Where("ŒUVRE Łódź", "łÓDŹ", kAnyCase), 7);  // byte offsets
    EXPECT_EQ(Where("ŸES", "ÿes", kAnyCase), 0);
    EXPECT_EQ(Where("Москва", "МОСКВА", kAnyCase), 0);
    // ß has no single capital: it matches only itself.
    EXPECT_EQ(Where("Straße", "STRASSE", kAnyCase), -1);
}

TEST(FindInText, WholeWordNeedsNoLetterOnEitherSide) {
    EXPECT_EQ(Where("Colour ColourMode", "ColourMode", kWholeWord), 7);
    EXPECT_EQ(Where("ColourMode Colour", "Colour", kWholeWord), 11);
    EXPECT_EQ(Where("Colour_1 Colour", "Colour", kWholeWord), 9);
    // Accented letters are letters: "Été" does not stand alone in "Étés".
    EXPECT_EQ(Where("Étés été", "été", kWholeWord), 7);
    EXPECT_EQ(Where("x=été;", "été", kWholeWord), 2);
    // A word that ends in punctuation needs no boundary behind it.
    EXPECT_EQ(Where("Type=0x01", "Type=", kWholeWord), 0);
}

TEST(FindInText, StartsFromThePositionAndStaysInsideTheText) {
    EXPECT_EQ(Where("ab ab", "ab", kAnyCase, 1), 3);
    EXPECT_EQ(Where("ab", "ab", kAnyCase, 5), -1);
    EXPECT_EQ(Where("abc", "", kAnyCase), -1);
    EXPECT_EQ(Where("ab", "abc", kAnyCase), -1);
    // Broken UTF-8 is read byte by byte and never read past the end.
    EXPECT_EQ(Where("\xC3", "\xC3", kAnyCase), 0);
    EXPECT_EQ(Where("a\xE2\x82", "\x82", kWholeWord), -1);
}

TEST(ReplaceAllInText, EveryLineOfALargeText) {
    std::string big;
    for (int i = 0; i < 20000; ++i) big += "Colour=#ff0000\r\n";
    const auto result = ReplaceAllInText(big, "COLOUR", "Color", 0, kAnyCase);
    EXPECT_EQ(result.Count, 20000u);
    EXPECT_EQ(result.Text.size(), big.size() - 20000);
}

TEST_F(SearchWindow, NextSelectsEachMatchInTurnThenOffersToRestart) {
    Load("one two one");
    search.Word = "one";
    EXPECT_TRUE(search.FindNext());
    EXPECT_EQ(pane.SelStart(), 0u);
    EXPECT_TRUE(search.FindNext());
    EXPECT_EQ(pane.SelStart(), 8u);
    EXPECT_EQ(pane.SelectedText(), "one");

    prompts.Answers = {true};
    EXPECT_TRUE(search.FindNext());
    EXPECT_EQ(pane.SelStart(), 0u);
    ASSERT_EQ(prompts.Log.size(), 1u);
    EXPECT_EQ(prompts.Log[0].Text,
              "Impossible de trouver  \"one\"\r\n\r\nReprendre la recherche depuis le début du fichier?");
}

TEST_F(SearchWindow, EmptyWordFindsNothingAndAsksOnlyOncePerClick) {
    Load("some text");
    prompts.Answers = {true, true, true};
    EXPECT_FALSE(search.FindNext());
    EXPECT_EQ(prompts.Log.size(), 1u);
    EXPECT_EQ(prompts.Log[0].Kind, "ask");
}

TEST_F(SearchWindow, NoToTheRestartLeavesTheCaretBehindTheLastMatch) {
    Load("abc");
    search.Word = "b";
    EXPECT_TRUE(search.FindNext());
    EXPECT_FALSE(search.FindNext());
    EXPECT_EQ(pane.SelStart(), 2u);
    EXPECT_EQ(pane.SelLength(), 0u);
}

TEST_F(SearchWindow, OptionsComeFromTheCheckBoxes) {
    Load("Type type");
    search.Word = "type";
    search.Options.MatchCase = true;
    EXPECT_TRUE(search.FindNext());
    EXPECT_EQ(pane.SelStart(), 5u);
    Load("types type");
    search.Options.MatchCase = false;
    search.Options.WholeWord = true;
    EXPECT_TRUE(search.FindNext());
    EXPECT_EQ(pane.SelStart(), 6u);
}

TEST_F(SearchWindow, ReplaceChangesTheSelectionOnly) {
    Load("red green red");
    search.Word = "red";
    search.Replacement = "blue";
    search.FindNext();
    search.ReplaceSelection();
    EXPECT_EQ(pane.Text(), "blue green red");
    search.FindNext();
    EXPECT_EQ(pane.SelStart(), 11u);
}

TEST_F(SearchWindow, ReplaceAllGoesOnBehindEachReplacementAndCounts) {
    Load("Colour=1 colour=2 Colours=3");
    search.Word = "colour";
    search.Replacement = "colour colour";
    search.Options.WholeWord = true;
    EXPECT_EQ(search.ReplaceAll(), 2u);
    EXPECT_EQ(pane.Text(), "colour colour=1 colour colour=2 Colours=3");
    ASSERT_EQ(prompts.Log.size(), 1u);
    EXPECT_EQ(prompts.Log[0].Kind, "inform");
    EXPECT_EQ(prompts.Log[0].Title, "Terminé");
    EXPECT_EQ(prompts.Log[0].Text, "2  remplacements effectués");
}

TEST_F(SearchWindow, ReplaceAllStartsBehindTheSelection) {
    Load("a a a");
    search.Word = "a";
    search.Replacement = "b";
    search.FindNext();
    EXPECT_EQ(search.ReplaceAll(), 2u);
    EXPECT_EQ(pane.Text(), "a b b");
    EXPECT_EQ(pane.SelStart(), 5u);
}
