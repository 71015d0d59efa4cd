// Raw bytes as they stand on disk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace mirvane {

using Bytes = std::vector<std::uint8_t>;

// A colour stored as three bytes blue, green, red, from `first` on; in memory
// 0x00BBGGRR. The caller checks that the three bytes are there.
inline std::uint32_t BgrColourAt(const Bytes& bytes, std::size_t first) {
    return bytes[first + 2] | (bytes[first + 1] << 8) | (static_cast<std::uint32_t>(bytes[first]) << 16);
}

inline void AppendBgrColour(Bytes& bytes, std::uint32_t colour) {
    bytes.push_back(static_cast<std::uint8_t>((colour >> 16) & 0xFF));  // blue
    bytes.push_back(static_cast<std::uint8_t>((colour >> 8) & 0xFF));   // green
    bytes.push_back(static_cast<std::uint8_t>(colour & 0xFF));          // red
}

}  // namespace mirvane
