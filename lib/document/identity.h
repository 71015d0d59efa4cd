// Which map a TYP belongs to and how it is laid out: FID, product code, code
// page and header size, with the rules for reading them from text.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mirvane {

inline constexpr int kDefaultCodePage = 1252;
inline constexpr int kDefaultHeaderSize = 91;
// The code pages the program offers, in the order of its list: the Windows
// ones and UTF-8, which map projects use as much as any other.
inline constexpr std::array<int, 10> kListedCodePages = {1250, 1251, 1252, 1253, 1254,
                                                         1255, 1256, 1257, 1258, 65001};

struct TypIdentity {
    // Not given until a file, a text or the user sets them; a save refuses
    // a document without them.
    std::optional<std::uint16_t> Fid;
    std::optional<std::uint16_t> ProductCode;
    // Any code page: one the program does not list is kept and written back.
    int CodePage = kDefaultCodePage;
    int HeaderSize = kDefaultHeaderSize;
    bool operator==(const TypIdentity&) const = default;
};

bool IsListedCodePage(int codePage);
// Row of a code page in kListedCodePages, -1 for one it does not hold.
int ListedCodePageRow(int codePage);

// A FID or product code from text: a whole number from 0 to 65535, blanks
// around allowed. The header holds them as signed 16-bit fields, and texts
// may give them so: -32768 to -1 read as the same 16 bits (-1 is 65535).
std::optional<std::uint16_t> ParseIdentityNumber(std::string_view text);

// The input error of a value ParseIdentityNumber refuses; it names the range.
std::string IdentityRangeMessage();

// Decimal digits, or nothing when the value is not given.
std::string IdentityNumberText(const std::optional<std::uint16_t>& value);

// Why a document cannot be saved yet: the first of FID and product code
// that is not given, as a message box would show it.
struct MissingIdentity {
    std::string Title;
    std::string Text;
};
std::optional<MissingIdentity> FindMissingIdentity(const TypIdentity& identity);

}  // namespace mirvane
