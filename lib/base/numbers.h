// Number reading with the tolerance of the program's text fields: leading
// blanks skipped, an optional sign, digits up to the first other character,
// 0 when there are none.
#pragma once

#include <cstdint>
#include <string_view>

namespace mirvane {

std::int64_t LeadingNumber(std::string_view text);

}  // namespace mirvane
