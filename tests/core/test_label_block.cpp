#include <gtest/gtest.h>

#include "document/encoding.h"
#include "labels/label_block.h"

using namespace mirvane;

namespace {

// One text whose payload (code, text, terminator) is `payloadLength` bytes.
std::vector<LabelText> TextWithPayload(std::size_t payloadLength) {
    return {{1, std::string(payloadLength - 2, 'x')}};
}

}  // namespace

TEST(LabelBlock, OneTextInFrench) {
    EXPECT_EQ(EncodeLabelBlock({{1, "ab"}}), (Bytes{0x09, 0x01, 'a', 'b', 0x00}));
}

TEST(LabelBlock, EmptyTextKeepsItsCodeAndTerminator) {
    const Bytes block = EncodeLabelBlock({{4, ""}, {2, "x"}});
    EXPECT_EQ(block, (Bytes{0x0B, 0x04, 0x00, 0x02, 'x', 0x00}));
    EXPECT_EQ(DecodeLabelBlock(block), (std::vector<LabelText>{{4, ""}, {2, "x"}}));
}

TEST(LabelBlock, PrefixGrowsToTwoBytesAt128PayloadBytes) {
    const Bytes short127 = EncodeLabelBlock(TextWithPayload(127));
    ASSERT_EQ(short127.size(), 128u);
    EXPECT_EQ(short127[0], 255);
    EXPECT_EQ(LabelBlockLength(short127[0], short127[1]), 128);

    const Bytes long128 = EncodeLabelBlock(TextWithPayload(128));
    ASSERT_EQ(long128.size(), 130u);
    EXPECT_EQ(long128[0], 0x02);
    EXPECT_EQ(long128[1], 0x02);
    EXPECT_EQ(LabelBlockLength(long128[0], long128[1]), 130);

    const Bytes long300 = EncodeLabelBlock(TextWithPayload(300));
    EXPECT_EQ(LabelBlockLength(long300[0], long300[1]), 302);
}

TEST(LabelBlock, RoundTripOfSeveralLanguages) {
    const std::vector<LabelText> texts{{1, "Forêt"}, {4, "Forest"}, {0, ""}, {25, std::string(200, '\xEB')}};
    EXPECT_EQ(DecodeLabelBlock(EncodeLabelBlock(texts)), texts);
    // No language at all: an empty payload, which reads back as no text.
    EXPECT_EQ(EncodeLabelBlock({}), Bytes{0x01});
    EXPECT_TRUE(DecodeLabelBlock({0x01}).value_or(std::vector<LabelText>{}).empty());
}

TEST(LabelBlock, DamagedBlocksDecodeWithinTheirBytes) {
    EXPECT_FALSE(DecodeLabelBlock({}).has_value());
    EXPECT_FALSE(DecodeLabelBlock({0x00, 0x01, 'a', 0x00}).has_value());
    EXPECT_FALSE(DecodeLabelBlock({0x01, 0x01, 'a', 0x00}).has_value());
    EXPECT_FALSE(DecodeLabelBlock({0x02}).has_value());  // ends inside its two-byte prefix

    // A text without terminator runs to the end of the block.
    EXPECT_EQ(DecodeLabelBlock({0x07, 0x01, 'a', 'b'}), (std::vector<LabelText>{{1, "ab"}}));
    // Decoding stops before the last byte: a lone trailing code starts no text.
    EXPECT_EQ(DecodeLabelBlock({0x07, 0x01, 'a', 0x00, 0x02}), (std::vector<LabelText>{{1, "a"}}));
    EXPECT_EQ(DecodeLabelBlock({0x03, 0x01}), std::vector<LabelText>{});
}

TEST(ExtendedLabelBlock, AllFourColourChoices) {
    const std::uint32_t day = 0x00332211, night = 0x00665544;  // 0x00BBGGRR
    EXPECT_EQ(EncodeExtendedLabelBlock({3, 0, day, night}), (Bytes{0x03}));
    EXPECT_EQ(EncodeExtendedLabelBlock({2, 1, day, night}), (Bytes{0x0A, 0x33, 0x22, 0x11}));
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
    EXPECT_FALSE(DecodeExtendedLabelBlock({0x10, 0x66, 0x55}));
    EXPECT_EQ(DecodeExtendedLabelBlock({0x02, 0x66}), (ExtendedLabelStyle{2, 0, 0, 0}));  // a byte to spare is no harm
}

TEST(ExtendedLabelBlock, StyleTexts) {
    EXPECT_EQ(FontStyleText(1), "NoLabel (invisible)");
    EXPECT_EQ(FontStyleText(5), "");
    EXPECT_EQ(CustomColorText(3), "DayAndNight");
    EXPECT_EQ(CustomColorText(4), "");
}
