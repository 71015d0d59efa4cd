// Label blocks (LabelBytes) and extended label blocks (ExtendedLabelBytes).
// Text stays bytes in the document's code page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/bytes.h"

namespace mirvane {

// Whole length of a label block (prefix included) from its first one or two bytes.
int LabelBlockLength(std::uint8_t first, std::uint8_t second);
bool LabelPrefixIsOneByte(std::uint8_t first);

// Whole length of an extended label block from its first byte.
int ExtendedLabelBlockLength(std::uint8_t first);

struct LabelText {
    std::uint8_t LanguageCode = 0;
    std::string Text;  // bytes in the document's code page, no terminator
    bool operator==(const LabelText&) const = default;
};

// Decodes a whole block, prefix included. No value for a bad block (first
// byte below 2, or a block that ends inside its prefix).
std::optional<std::vector<LabelText>> DecodeLabelBlock(const Bytes& block);

// One-byte prefix (L * 2 + 1) below 128 payload bytes, two bytes (L * 4 + 2) from 128.
Bytes EncodeLabelBlock(const std::vector<LabelText>& texts);

// The payload (language code, text, 0, ...) behind the prefix above. A two-byte
// prefix keeps only its low 16 bits.
template <typename Payload>
Bytes PrefixedLabelBlock(const Payload& payload) {
    const std::size_t length = payload.size();
    Bytes block;
    block.reserve(length + 2);
    if (length < 128) {
        block.push_back(static_cast<std::uint8_t>(length * 2 + 1));
    } else {
        const std::size_t prefix = length * 4 + 2;
        block.push_back(static_cast<std::uint8_t>(prefix & 0xFF));
        block.push_back(static_cast<std::uint8_t>((prefix >> 8) & 0xFF));
    }
    block.insert(block.end(), payload.begin(), payload.end());
    return block;
}

struct ExtendedLabelStyle {
    int FontStyle = 0;    // bits 0-2: 0 Default .. 4 LargeFont
    int CustomColor = 0;  // bits 3-4: 0 No, 1 Day, 2 Night, 3 DayAndNight
    std::uint32_t DayColour = 0;    // 0x00BBGGRR
    std::uint32_t NightColour = 0;  // 0x00BBGGRR
    bool operator==(const ExtendedLabelStyle&) const = default;
};

// What the block holds. No value for an empty block, or for one that ends
// before the colours its first byte announces.
std::optional<ExtendedLabelStyle> DecodeExtendedLabelBlock(const Bytes& block);
Bytes EncodeExtendedLabelBlock(const ExtendedLabelStyle& style);

// "Default", "NoLabel (invisible)", "SmallFont", "NormalFont", "LargeFont"; empty past 4.
std::string FontStyleText(int fontStyle);
// "No", "Day", "Night", "DayAndNight".
std::string CustomColorText(int customColor);

}  // namespace mirvane
