// Number reading with the tolerance of the program's text fields: leading
// blanks skipped, an optional sign, digits up to the first other character,
// 0 when there are none.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mirvane {

std::int64_t LeadingNumber(std::string_view text);

enum class HexCase { Lower, Upper };

// The last `digits` hexadecimal digits of `value`, zeros in front ("%0*x"
// cut to its width). Listings write tens of thousands of these.
std::string HexDigits(std::uint32_t value, int digits, HexCase letters = HexCase::Lower);

}  // namespace mirvane
