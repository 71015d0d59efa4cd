#include "base/numbers.h"

namespace mirvane {

std::int64_t LeadingNumber(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    std::int64_t value = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        if (value < 1'000'000'000'000) value = value * 10 + (text[i] - '0');
    }
    return negative ? -value : value;
}

std::string HexDigits(std::uint32_t value, int digits, HexCase letters) {
    const char* const alphabet = letters == HexCase::Upper ? "0123456789ABCDEF" : "0123456789abcdef";
    std::string text(static_cast<std::size_t>(digits > 0 ? digits : 0), '0');
    for (std::size_t k = text.size(); k > 0 && value != 0; --k, value >>= 4) text[k - 1] = alphabet[value & 0xF];
    return text;
}

}  // namespace mirvane
