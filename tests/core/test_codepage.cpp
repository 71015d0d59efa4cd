// Texts in the Windows code pages and UTF-8: round trips, known characters,
// and what a code page cannot hold.
#include <gtest/gtest.h>

#include <string>

#include "base/codepage.h"

using namespace mirvane;

namespace {

std::string AllBytes() {
    std::string bytes;
    for (int b = 0; b < 256; ++b) bytes.push_back(static_cast<char>(b));
    return bytes;
}

}  // namespace

TEST(CodePage, EveryByteOfEveryCodePageSurvivesTheRoundTrip) {
    const std::string bytes = AllBytes();
    for (int codePage = 1250; codePage <= 1258; ++codePage) {
        SCOPED_TRACE(codePage);
        const std::string text = DecodeCodePage(bytes, codePage);
        EXPECT_TRUE(IsValidUtf8(text));
        bool lossless = false;
        EXPECT_EQ(EncodeCodePage(text, codePage, &lossless), bytes);
        EXPECT_TRUE(lossless);
    }
}

// Bytes a code page leaves undefined keep their value; the round trip above
// makes each decoded character encode back.
TEST(CodePage, KnownAndUndefinedCharacters) {
    EXPECT_EQ(DecodeCodePage("\x80", 1252), "€");
    EXPECT_EQ(DecodeCodePage("\xC1\xE1", 1253), "Αα");
    EXPECT_EQ(EncodeCodePage("Москва", 1251), "\xCC\xEE\xF1\xEA\xE2\xE0");
    EXPECT_EQ(EncodeCodePage("Łódź", 1250), "\xA3\xF3\x64\x9F");
    EXPECT_EQ(DecodeCodePage("\x81", 1252), "\u0081");
}

TEST(CodePage, MissingCharactersBecomeQuestionMarks) {
    bool lossless = true;
    EXPECT_EQ(EncodeCodePage("a€Ж😀b", 1250, &lossless), "a\x80??b");
    EXPECT_FALSE(lossless);

    // Invalid UTF-8 bytes are each replaced, and what follows is still read.
    lossless = true;
    EXPECT_EQ(EncodeCodePage("x\xC3(\xE2\x82z", 1252, &lossless), "x?(??z");
    EXPECT_FALSE(lossless);
}

TEST(CodePage, Utf8IsIdentityAndOtherCodePagesReadAs1252) {
    const std::string bytes = AllBytes();
    EXPECT_EQ(DecodeCodePage(bytes, kUtf8CodePage), bytes);
    EXPECT_EQ(EncodeCodePage("Ωmega", kUtf8CodePage), "Ωmega");
    EXPECT_EQ(DecodeCodePage(bytes, 437), DecodeCodePage(bytes, 1252));
    EXPECT_FALSE(IsSupportedCodePage(437));
    EXPECT_TRUE(IsSupportedCodePage(kUtf8CodePage));
}

TEST(CodePage, Utf8Validation) {
    EXPECT_TRUE(IsValidUtf8("é€😀"));
    EXPECT_FALSE(IsValidUtf8("\xC0\x80"));          // overlong NUL
    EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));      // surrogate
    EXPECT_FALSE(IsValidUtf8("\xF4\x90\x80\x80"));  // past U+10FFFF
    EXPECT_FALSE(IsValidUtf8("\xE2\x82"));          // cut short
}
