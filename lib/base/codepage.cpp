#include "base/codepage.h"

#include <array>
#include <cstdint>
#include <optional>
#include <unordered_map>

#include "base/codepage_tables.h"

namespace mirvane {

namespace {

using detail::kCodePageTableCount;
using detail::kCodePageUpperHalves;
using detail::kFirstTableCodePage;

constexpr int kFallbackCodePage = 1252;

int TableIndex(int codePage) {
    const int index = codePage - kFirstTableCodePage;
    if (index >= 0 && index < kCodePageTableCount) return index;
    return kFallbackCodePage - kFirstTableCodePage;
}

using ReverseTable = std::unordered_map<char32_t, char>;

// Code point -> byte for the upper half of every table, built once.
const ReverseTable& ReverseTableOf(int tableIndex) {
    static const std::array<ReverseTable, kCodePageTableCount> tables = [] {
        std::array<ReverseTable, kCodePageTableCount> built;
        for (int t = 0; t < kCodePageTableCount; ++t) {
            built[t].reserve(128);
            for (int i = 0; i < 128; ++i)
                built[t].emplace(kCodePageUpperHalves[t][i], static_cast<char>(0x80 + i));
        }
        return built;
    }();
    return tables[tableIndex];
}

// Reads one UTF-8 sequence at `pos`: its length, or 0 when the bytes there are
// not a valid sequence (overlong forms, surrogates and values past U+10FFFF
// included).
std::size_t DecodeUtf8At(std::string_view text, std::size_t pos, char32_t& codePoint) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t lead = byte(pos);
    std::size_t length = 0;
    char32_t minimum = 0;
    if (lead < 0x80) {
        codePoint = lead;
        return 1;
    } else if ((lead & 0xE0) == 0xC0) {
        length = 2, minimum = 0x80, codePoint = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3, minimum = 0x800, codePoint = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4, minimum = 0x10000, codePoint = lead & 0x07;
    } else {
        return 0;
    }
    if (text.size() - pos < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(pos + i) & 0xC0) != 0x80) return 0;
        codePoint = (codePoint << 6) | (byte(pos + i) & 0x3F);
    }
    if (codePoint < minimum || codePoint > 0x10FFFF) return 0;
    if (codePoint >= 0xD800 && codePoint <= 0xDFFF) return 0;
    return length;
}

}  // namespace

bool IsSupportedCodePage(int codePage) {
    return codePage == kUtf8CodePage ||
           (codePage >= kFirstTableCodePage && codePage < kFirstTableCodePage + kCodePageTableCount);
}

void AppendUtf8(std::string& out, char32_t codePoint) {
    const auto put = [&](unsigned value) { out.push_back(static_cast<char>(value)); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0 | (codePoint >> 6));
        put(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        put(0xE0 | (codePoint >> 12));
        put(0x80 | ((codePoint >> 6) & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    } else {
        put(0xF0 | (codePoint >> 18));
        put(0x80 | ((codePoint >> 12) & 0x3F));
        put(0x80 | ((codePoint >> 6) & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    }
}

bool IsValidUtf8(std::string_view text) {
    char32_t codePoint = 0;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t length = DecodeUtf8At(text, pos, codePoint);
        if (length == 0) return false;
        pos += length;
    }
    return true;
}

std::string DecodeCodePage(std::string_view bytes, int codePage) {
    if (codePage == kUtf8CodePage) return std::string(bytes);
    const char16_t* upperHalf = kCodePageUpperHalves[TableIndex(codePage)];
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 2);
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (byte < 0x80)
            out.push_back(c);
        else
            AppendUtf8(out, upperHalf[byte - 0x80]);
    }
    return out;
}

namespace {

// UTF-8 -> bytes in an 8-bit `codePage`; `missing(pos, length)` is told of
// each character (or invalid byte, length 0) the code page lacks and gives
// the byte to write, or false to stop.
template <typename Missing>
bool EncodeToTable(std::string_view utf8, int codePage, std::string& out, Missing&& missing) {
    const ReverseTable& reverse = ReverseTableOf(TableIndex(codePage));
    out.reserve(utf8.size());
    char32_t codePoint = 0;
    for (std::size_t pos = 0; pos < utf8.size();) {
        const std::size_t length = DecodeUtf8At(utf8, pos, codePoint);
        const auto found = length == 0 ? reverse.end() : reverse.find(codePoint);
        if (length != 0 && codePoint < 0x80) out.push_back(static_cast<char>(codePoint));
        else if (found != reverse.end()) out.push_back(found->second);
        else if (!missing(pos, length)) return false;
        pos += length == 0 ? 1 : length;
    }
    return true;
}

}  // namespace

std::string EncodeCodePage(std::string_view utf8, int codePage, bool* lossless) {
    bool allKept = true;
    std::string out;
    if (codePage == kUtf8CodePage) {
        out = std::string(utf8);
    } else {
        EncodeToTable(utf8, codePage, out, [&](std::size_t, std::size_t) {
            out.push_back('?');
            allKept = false;
            return true;
        });
    }
    if (lossless) *lossless = allKept;
    return out;
}

std::optional<std::string> EncodeCodePageExactly(std::string_view utf8, int codePage, std::string& missing) {
    std::string out;
    if (codePage == kUtf8CodePage) return std::string(utf8);
    const bool whole = EncodeToTable(utf8, codePage, out, [&](std::size_t pos, std::size_t length) {
        missing = std::string(utf8.substr(pos, length == 0 ? 1 : length));
        return false;
    });
    if (!whole) return std::nullopt;
    return out;
}

std::string DecodeDocumentBytes(std::string_view bytes, int codePage) {
    if (codePage != kUtf8CodePage) return DecodeCodePage(bytes, IsSupportedCodePage(codePage) ? codePage : 1252);
    std::string text;
    text.reserve(bytes.size());
    std::size_t start = 0;
    while (start < bytes.size()) {
        std::size_t end = bytes.find('\n', start);
        end = end == std::string_view::npos ? bytes.size() : end + 1;
        const std::string_view line = bytes.substr(start, end - start);
        text += IsValidUtf8(line) ? std::string(line) : DecodeCodePage(line, 1252);
        start = end;
    }
    return text;
}

}  // namespace mirvane
