// Label blocks: a length prefix of one or two bytes, then language code, text
// and terminator for each language; extended label blocks of all four colour
// choices.
#include <gtest/gtest.h>

#include "document/encoding.h"
#include "labels/label_block.h"

using namespace mirvane;

TEST(LabelBlock, TextsComeBackWithTheirCodes) {
    // An empty text keeps its code and terminator.
    const Bytes block = EncodeLabelBlock({{4, ""}, {2, "x"}});
    EXPECT_EQ(block, (Bytes{0x0B, 0x04, 0x00, 0x02, 'x', 0x00}));
    EXPECT_EQ(DecodeLabelBlock(block), (std::vector<LabelText>{{4, ""}, {2, "x"}}));
    const std::vector<LabelText> texts{{1, "Forêt"}, {25, std::string(200, '\xEB')}};
    EXPECT_EQ(DecodeLabelBlock(EncodeLabelBlock(texts)), texts);
    // No language at all: an empty payload, which reads back as no text.
    EXPECT_EQ(EncodeLabelBlock({}), Bytes{0x01});
    EXPECT_TRUE(DecodeLabelBlock({0x01}).value_or(std::vector<LabelText>{}).empty());
}

TEST(LabelBlock, PrefixGrowsToTwoBytesAt128PayloadBytes) {
    struct Case {
        std::size_t Payload;  // code, text and terminator
        std::size_t Size;
        Bytes Prefix;
    };
    for (const Case& c : {Case{127, 128, {0xFF}}, Case{128, 130, {0x02, 0x02}}, Case{300, 302, {0xB2, 0x04}}}) {
        SCOPED_TRACE(c.Payload);
        const Bytes block = EncodeLabelBlock({{1, std::string(c.Payload - 2, 'x')}});
        ASSERT_EQ(block.size(), c.Size);
        EXPECT_EQ(Bytes(block.begin(), block.begin() + static_cast<long>(c.Prefix.size())), c.Prefix);
        EXPECT_EQ(LabelBlockLength(block[0], block[1]), static_cast<int>(c.Size));
    }
}

TEST(LabelBlock, DamagedBlocksDecodeWithinTheirBytes) {
    EXPECT_FALSE(DecodeLabelBlock({}).has_value());
    EXPECT_FALSE(DecodeLabelBlock({0x00, 0x01, 'a', 0x00}).has_value());
    EXPECT_FALSE(DecodeLabelBlock({0x02}).has_value());  // ends inside its two-byte prefix

    // A text without terminator runs to the end of the block.
    EXPECT_EQ(DecodeLabelBlock({0x07, 0x01, 'a', 'b'}), (std::vector<LabelText>{{1, "ab"}}));
    // Decoding stops before the last byte: a lone trailing code starts no text.
    EXPECT_EQ(DecodeLabelBlock({0x07, 0x01, 'a', 0x00, 0x02}), (std::vector<LabelText>{{1, "a"}}));
    EXPECT_EQ(DecodeLabelBlock({0x03, 0x01}), std::vector<LabelText>{});
}

TEST(ExtendedLabelBlock, AllFourColourChoices) {
    const std::uint32_t day = 0x00332211, night = 0x00665544;  // 0x00BBGGRR
    // The night colour alone comes directly after byte 0.
    EXPECT_EQ(EncodeExtendedLabelBlock({4, 2, day, night}), (Bytes{0x14, 0x66, 0x55, 0x44}));
    EXPECT_EQ(EncodeExtendedLabelBlock({0, 3, day, night}), (Bytes{0x18, 0x33, 0x22, 0x11, 0x66, 0x55, 0x44}));

    for (int customColor = 0; customColor < 4; ++customColor) {
        SCOPED_TRACE(customColor);
        const ExtendedLabelStyle style{1, customColor, customColor & 1 ? day : 0, customColor & 2 ? night : 0};
        const Bytes block = EncodeExtendedLabelBlock(style);
        EXPECT_EQ(static_cast<int>(block.size()), ExtendedLabelBlockLength(block[0]));
        EXPECT_EQ(DecodeExtendedLabelBlock(block), style);
    }
}

// The listing shows an object whose block is cut short as broken, so the
// decoder tells a short block from a whole one.
TEST(ExtendedLabelBlock, ShortBlocksHaveNoStyle) {
    EXPECT_FALSE(DecodeExtendedLabelBlock({}));
    EXPECT_FALSE(DecodeExtendedLabelBlock({0x18, 0x33, 0x22, 0x11}));
    EXPECT_EQ(DecodeExtendedLabelBlock({0x02, 0x66}), (ExtendedLabelStyle{2, 0, 0, 0}));  // a byte to spare is no harm
}
