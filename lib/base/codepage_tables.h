// Upper halves of the Windows code pages 1250..1258 (generated data).
#pragma once

namespace mirvane::detail {

inline constexpr int kFirstTableCodePage = 1250;
inline constexpr int kCodePageTableCount = 9;

// kCodePageUpperHalves[cp - 1250][byte - 0x80] is the code point of that byte.
extern const char16_t kCodePageUpperHalves[kCodePageTableCount][128];

}  // namespace mirvane::detail
