#include "models/textpane/text_search.h"

#include <algorithm>
#include <vector>

namespace mirvane {

namespace {

struct Decoded {
    char32_t CodePoint;
    std::size_t Length;
};

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// One code point at `pos` (< text.size()). A malformed sequence counts as its
// first byte alone, so every loop moves on.
Decoded DecodeAt(std::string_view text, std::size_t pos) {
    const auto lead = static_cast<unsigned char>(text[pos]);
    std::size_t length = lead < 0x80 ? 1 : (lead >> 5) == 0x6 ? 2 : (lead >> 4) == 0xE ? 3 : (lead >> 3) == 0x1E ? 4 : 0;
    if (length <= 1 || pos + length > text.size()) return {lead, 1};
    char32_t value = lead & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[pos + i]);
        if (!IsContinuation(byte)) return {lead, 1};
        value = (value << 6) | (byte & 0x3F);
    }
    return {value, length};
}

// The code point that ends just before `pos`, if any.
std::optional<char32_t> CodePointBefore(std::string_view text, std::size_t pos) {
    if (pos == 0) return std::nullopt;
    std::size_t start = pos - 1;
    while (start > 0 && pos - start < 4 && IsContinuation(static_cast<unsigned char>(text[start]))) --start;
    const Decoded decoded = DecodeAt(text, start);
    if (start + decoded.Length == pos) return decoded.CodePoint;
    return static_cast<char32_t>(static_cast<unsigned char>(text[pos - 1]));
}

std::optional<char32_t> CodePointAt(std::string_view text, std::size_t pos) {
    if (pos >= text.size()) return std::nullopt;
    return DecodeAt(text, pos).CodePoint;
}

bool IsWordAt(std::optional<char32_t> codePoint) { return codePoint && IsWordCodePoint(*codePoint); }

// The word as code points, folded when the case does not matter.
std::vector<char32_t> Pattern(std::string_view word, bool matchCase) {
    std::vector<char32_t> pattern;
    for (std::size_t pos = 0; pos < word.size();) {
        const Decoded decoded = DecodeAt(word, pos);
        pattern.push_back(matchCase ? decoded.CodePoint : FoldCodePoint(decoded.CodePoint));
        pos += decoded.Length;
    }
    return pattern;
}

// Length in bytes of the match of `pattern` at `pos`, or nothing.
std::optional<std::size_t> MatchAt(std::string_view text, std::size_t pos, const std::vector<char32_t>& pattern,
                                   bool matchCase) {
    std::size_t cursor = pos;
    for (char32_t expected : pattern) {
        if (cursor >= text.size()) return std::nullopt;
        const Decoded decoded = DecodeAt(text, cursor);
        const char32_t actual = matchCase ? decoded.CodePoint : FoldCodePoint(decoded.CodePoint);
        if (actual != expected) return std::nullopt;
        cursor += decoded.Length;
    }
    return cursor - pos;
}

bool IsWholeWord(std::string_view text, const TextMatch& match, const std::vector<char32_t>& pattern) {
    // An edge of the word that is no letter needs no boundary there.
    const bool startsWithLetter = IsWordCodePoint(pattern.front());
    const bool endsWithLetter = IsWordCodePoint(pattern.back());
    if (startsWithLetter && IsWordAt(CodePointBefore(text, match.Position))) return false;
    if (endsWithLetter && IsWordAt(CodePointAt(text, match.Position + match.Length))) return false;
    return true;
}

std::optional<TextMatch> FindWithPattern(std::string_view text, const std::vector<char32_t>& pattern,
                                         std::size_t from, FindOptions options) {
    if (pattern.empty()) return std::nullopt;
    for (std::size_t pos = from; pos < text.size(); ++pos) {
        if (IsContinuation(static_cast<unsigned char>(text[pos]))) continue;
        const auto length = MatchAt(text, pos, pattern, options.MatchCase);
        if (!length) continue;
        const TextMatch match{pos, *length};
        if (!options.WholeWord || IsWholeWord(text, match, pattern)) return match;
    }
    return std::nullopt;
}

}  // namespace

bool IsWordCodePoint(char32_t c) {
    if (c < 0x80) return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
    if (c < 0xC0) return c == 0xAA || c == 0xB5 || c == 0xBA;
    if (c < 0x100) return c != 0xD7 && c != 0xF7;
    if (c < 0x370) return true;  // Latin extended, IPA, combining accents
    if (c < 0x530) return c != 0x37E && c != 0x387;  // Greek and Cyrillic without their punctuation
    // Punctuation, symbols and the ideographic punctuation are no word parts.
    if (c >= 0x2000 && c < 0x2C00) return false;
    if (c >= 0x3000 && c < 0x3040) return false;
    if (c >= 0xFE30 && c < 0xFE50) return false;
    if (c >= 0xFF00 && c < 0xFF10) return false;
    return c != 0xFEFF && c != 0xFFFD;
}

char32_t FoldCodePoint(char32_t c) {
    if (c >= 'A' && c <= 'Z') return c + 32;
    if (c < 0xC0) return c;
    if (c <= 0xDE) return c == 0xD7 ? c : c + 32;
    if (c < 0x100) return c;
    // Latin Extended-A pairs capital and small letters side by side; the dotted
    // and dotless i and the letters without a pair stay as they are.
    if (c < 0x130 || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177)) return (c % 2 == 0) ? c + 1 : c;
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return (c % 2 == 1) ? c + 1 : c;
    if (c == 0x178) return 0xFF;
    if (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) return c + 32;
    if (c >= 0x410 && c <= 0x42F) return c + 32;
    if (c >= 0x400 && c <= 0x40F) return c + 80;
    return c;
}

std::optional<TextMatch> FindInText(std::string_view text, std::string_view word, std::size_t from,
                                    FindOptions options) {
    return FindWithPattern(text, Pattern(word, options.MatchCase), from, options);
}

ReplaceAllResult ReplaceAllInText(std::string_view text, std::string_view word, std::string_view replacement,
                                  std::size_t from, FindOptions options) {
    ReplaceAllResult result;
    from = std::min(from, text.size());
    result.Text.reserve(text.size());
    result.Text.append(text.substr(0, from));
    result.End = from;
    const std::vector<char32_t> pattern = Pattern(word, options.MatchCase);
    std::size_t copied = from;
    while (auto match = FindWithPattern(text, pattern, copied, options)) {
        result.Text.append(text.substr(copied, match->Position - copied));
        result.Text.append(replacement);
        result.End = result.Text.size();
        ++result.Count;
        copied = match->Position + match->Length;
    }
    result.Text.append(text.substr(copied));
    return result;
}

}  // namespace mirvane
