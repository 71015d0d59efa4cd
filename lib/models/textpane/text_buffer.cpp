#include "models/textpane/text_buffer.h"

#include <algorithm>

namespace mirvane {

void MemoryTextBuffer::SetSelection(std::size_t start, std::size_t length) {
    selStart_ = std::min(start, text_.size());
    selLength_ = std::min(length, text_.size() - selStart_);
}

long long MemoryTextBuffer::Find(std::string_view word, std::size_t start, FindOptions options) {
    const auto match = FindInText(text_, word, start, options);
    if (!match) return -1;
    SetSelection(match->Position, match->Length);
    return static_cast<long long>(match->Position);
}

void MemoryTextBuffer::ReplaceSelection(std::string_view text) {
    text_.replace(selStart_, selLength_, text);
    SetSelection(selStart_ + text.size(), 0);
}

std::size_t MemoryTextBuffer::ReplaceAll(std::string_view word, std::string_view replacement, std::size_t start,
                                         FindOptions options) {
    ReplaceAllResult result = ReplaceAllInText(text_, word, replacement, start, options);
    text_ = std::move(result.Text);
    SetSelection(result.End, 0);
    return result.Count;
}

}  // namespace mirvane
