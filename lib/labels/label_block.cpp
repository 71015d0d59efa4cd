#include "labels/label_block.h"

namespace mirvane {

bool LabelPrefixIsOneByte(std::uint8_t first) { return (first & 1) != 0; }

int LabelBlockLength(std::uint8_t first, std::uint8_t second) {
    if (LabelPrefixIsOneByte(first)) return 1 + (first - 1) / 2;
    const int w = first | (second << 8);
    return 2 + (w - 2) / 4;
}

int ExtendedLabelBlockLength(std::uint8_t first) {
    switch (first >> 3) {
    case 0: return 1;
    case 1:
    case 2: return 4;
    case 3: return 7;
    default: return first;  // damaged data: the byte itself is taken as the length
    }
}

std::optional<std::vector<LabelText>> DecodeLabelBlock(const Bytes& block) {
    if (block.empty() || block[0] < 2) return std::nullopt;
    const std::size_t prefix = LabelPrefixIsOneByte(block[0]) ? 1 : 2;
    if (block.size() < prefix) return std::nullopt;
    std::vector<LabelText> texts;
    std::size_t pos = prefix;
    // Stops before the block's last byte, which is the last text's terminator.
    while (pos + 1 < block.size()) {
        LabelText label;
        label.LanguageCode = block[pos++];
        while (pos < block.size() && block[pos] != 0) label.Text += static_cast<char>(block[pos++]);
        ++pos;
        texts.push_back(std::move(label));
    }
    return texts;
}

Bytes EncodeLabelBlock(const std::vector<LabelText>& texts) {
    Bytes payload;
    for (const auto& label : texts) {
        payload.push_back(label.LanguageCode);
        payload.insert(payload.end(), label.Text.begin(), label.Text.end());
        payload.push_back(0);
    }
    return PrefixedLabelBlock(payload);
}

std::optional<ExtendedLabelStyle> DecodeExtendedLabelBlock(const Bytes& block) {
    if (block.empty()) return std::nullopt;
    ExtendedLabelStyle style;
    style.FontStyle = block[0] & 7;
    style.CustomColor = (block[0] >> 3) & 3;
    const std::size_t colours = (style.CustomColor & 1) + (style.CustomColor >> 1);
    if (block.size() < 1 + 3 * colours) return std::nullopt;
    std::size_t next = 1;
    if (style.CustomColor & 1) {
        style.DayColour = BgrColourAt(block, next);
        next += 3;
    }
    if (style.CustomColor & 2) style.NightColour = BgrColourAt(block, next);
    return style;
}

Bytes EncodeExtendedLabelBlock(const ExtendedLabelStyle& style) {
    Bytes block;
    block.push_back(static_cast<std::uint8_t>((style.CustomColor & 3) * 8 + (style.FontStyle & 7)));
    if (style.CustomColor & 1) AppendBgrColour(block, style.DayColour);
    if (style.CustomColor & 2) AppendBgrColour(block, style.NightColour);
    return block;
}

std::string FontStyleText(int fontStyle) {
    static const char* const kNames[] = {"Default", "NoLabel (invisible)", "SmallFont", "NormalFont", "LargeFont"};
    return fontStyle >= 0 && fontStyle < 5 ? kNames[fontStyle] : "";
}

std::string CustomColorText(int customColor) {
    static const char* const kNames[] = {"No", "Day", "Night", "DayAndNight"};
    return customColor >= 0 && customColor < 4 ? kNames[customColor] : "";
}

}  // namespace mirvane
