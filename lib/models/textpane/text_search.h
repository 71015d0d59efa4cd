// Find and replace over UTF-8 text, with the options of the search window:
// case sensitive or not, whole word or not. Case folding and word letters
// cover ASCII, the Latin letters, Greek and Cyrillic; positions are byte
// offsets into the text.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mirvane {

struct FindOptions {
    bool MatchCase = false;  // chkCasse
    bool WholeWord = false;  // chkMotEntier
};

struct TextMatch {
    std::size_t Position = 0;
    std::size_t Length = 0;  // bytes of the text matched
};

// The first match of `word` starting at or after `from`. An empty word finds nothing.
std::optional<TextMatch> FindInText(std::string_view text, std::string_view word, std::size_t from,
                                    FindOptions options);

struct ReplaceAllResult {
    std::string Text;
    std::size_t Count = 0;
    std::size_t End = 0;  // byte offset just behind the last replacement, or `from` with none
};

// Every match from `from` on replaced by `replacement`, built in one pass.
// The search goes on behind each replacement, so a replacement holding the
// word is never searched again. Whole words are judged on the text as it was.
ReplaceAllResult ReplaceAllInText(std::string_view text, std::string_view word, std::string_view replacement,
                                  std::size_t from, FindOptions options);

// Whether the code point is part of a word (letters, digits, underscore).
bool IsWordCodePoint(char32_t codePoint);
// Lower case for the letters the search folds; other code points unchanged.
char32_t FoldCodePoint(char32_t codePoint);

}  // namespace mirvane
