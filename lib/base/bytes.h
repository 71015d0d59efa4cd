// Raw bytes as they stand on disk.
#pragma once

#include <cstdint>
#include <vector>

namespace mirvane {

using Bytes = std::vector<std::uint8_t>;

}  // namespace mirvane
