// The text pane as the search window sees it: plain text with a selection,
// find and replace. The desktop program implements it over its text widget;
// MemoryTextBuffer holds UTF-8 text in memory.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "models/textpane/text_search.h"

namespace mirvane {

// Positions and lengths are in the buffer's own unit; the search window only
// adds them up.
class TextBuffer {
public:
    virtual ~TextBuffer() = default;
    virtual std::size_t SelStart() const = 0;
    virtual std::size_t SelLength() const = 0;
    virtual void SetSelection(std::size_t start, std::size_t length) = 0;
    // The first match at or after `start`, selected; its position, or -1 with
    // the selection left alone.
    virtual long long Find(std::string_view word, std::size_t start, FindOptions options) = 0;
    // Replaces the selection; the caret stands behind the new text, nothing selected.
    virtual void ReplaceSelection(std::string_view text) = 0;
    // Replaces every match from `start` on in one edit; the caret stands
    // behind the last replacement. Returns the count.
    virtual std::size_t ReplaceAll(std::string_view word, std::string_view replacement, std::size_t start,
                                   FindOptions options) = 0;
};

// UTF-8 text in memory; positions are byte offsets.
class MemoryTextBuffer : public TextBuffer {
public:
    explicit MemoryTextBuffer(std::string text = {}) : text_(std::move(text)) {}

    const std::string& Text() const { return text_; }
    std::string SelectedText() const { return text_.substr(selStart_, selLength_); }

    std::size_t SelStart() const override { return selStart_; }
    std::size_t SelLength() const override { return selLength_; }
    void SetSelection(std::size_t start, std::size_t length) override;
    long long Find(std::string_view word, std::size_t start, FindOptions options) override;
    void ReplaceSelection(std::string_view text) override;
    std::size_t ReplaceAll(std::string_view word, std::string_view replacement, std::size_t start,
                           FindOptions options) override;

private:
    std::string text_;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
};

}  // namespace mirvane
