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

}  // namespace mirvane
