// The identification TYP: a new document whose objects of one kind each carry
// their own type and subtype as label and colour, so that a map maker who
// loads it in a map program can read the type codes off the screen.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "document/document.h"

namespace mirvane {

// The ranges offered: row 0 is types 0x00 to 0xFF without subtypes; row k + 1
// is the sixteen types from k * 16 with their 32 subtypes each.
inline constexpr int kIdentificationRangeCount = 19;

struct IdentificationRange {
    int FirstType = 0;
    int LastType = 0;
    bool WithSubTypes = false;
    int ObjectCount() const { return (LastType - FirstType + 1) * (WithSubTypes ? 32 : 1); }
};

IdentificationRange IdentificationRangeAt(int row);
// The row whose range runs exactly from `firstType` to `lastType`.
std::optional<int> IdentificationRangeRow(int firstType, int lastType);

// `value` in `digits` upper-case hexadecimal digits, cut to the rightmost.
std::string UpperHexDigits(int value, int digits);

// The label text, " 01A/1F" with subtypes and "  1A/00" without.
std::string IdentificationLabelText(int type, int subType, bool withSubTypes);

// `seed` only spreads the colours of neighbours; equal seeds give equal documents.
Document BuildIdentificationTyp(ObjectKind kind, int rangeRow, std::uint32_t seed);

}  // namespace mirvane
