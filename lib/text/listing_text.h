// The text of a listing, generated once as pieces with their role and
// rendered either as plain text or as the rich text the pane shows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

enum class PieceRole : std::uint8_t {
    Text,            // \cf0: values, rows, draw order rows, comment text
    Key,             // {\cf3 Key=}
    Comment,         // {\cf1 ;...}
    HeadingComment,  // {\cf1; ...}: the four lines on top of a decompiled file
    SectionHead,     // {\cf2 [_polygon]}, [end], [_comments], [End]
    IdHead,          // {\fs20 \cf2 [_id]}
    IdEnd,           // { \cf2 [End]}: plain " [End]", the blank is text
    DrawOrderHead,   // {\cf2[_drawOrder]}
    LineBreak,       // \par
    LabelLineBreak,  // \par with no blank, in front of a String key
};

struct ListingPiece {
    PieceRole Role = PieceRole::Text;
    std::uint32_t Offset = 0;  // into the listing's byte buffer
    std::uint32_t Length = 0;
};

// The colour table of the pane: comments, section heads, keys, the rest.
struct RtfColours {
    std::array<std::string, 4> Colour = {"\\red0\\green0\\blue0", "\\red70\\green150\\blue70",
                                         "\\red0\\green0\\blue255", "\\red255\\green0\\blue0"};
};

// Pieces keep each part's role for the rich form; a plain-only listing
// (the command line's) writes the plain text straight away and keeps no
// pieces, a third of the memory.
enum class ListingForm { Pieces, PlainOnly };

class ListingText {
public:
    explicit ListingText(ListingForm form = ListingForm::Pieces) : form_(form) {}

    struct Mark {
        std::size_t Pieces = 0;
        std::size_t Bytes = 0;
    };

    // Room for about this much text, so that a large listing is not copied as
    // it grows; room not written to costs nothing.
    void Reserve(std::size_t bytes) {
        bytes_.reserve(bytes);
        if (form_ == ListingForm::Pieces) pieces_.reserve(bytes / 4);
    }
    void Add(PieceRole role, std::string_view bytes);
    void Text(std::string_view bytes) { Add(PieceRole::Text, bytes); }
    void Key(std::string_view bytes) { Add(PieceRole::Key, bytes); }
    void Comment(std::string_view bytes) { Add(PieceRole::Comment, bytes); }
    void Head(std::string_view bytes) { Add(PieceRole::SectionHead, bytes); }
    void Break(int count = 1);
    void LabelBreak() { Add(PieceRole::LabelLineBreak, {}); }
    // A line break followed by a key and its value.
    void KeyLine(std::string_view key, std::string_view value);
    void TextLine(std::string_view bytes);

    Mark Here() const { return {pieces_.size(), bytes_.size()}; }
    // Drops everything added since `mark`.
    void RollBack(const Mark& mark);

    const std::vector<ListingPiece>& Pieces() const { return pieces_; }
    std::string_view BytesOf(const ListingPiece& piece) const;

    // What the rich text control gives back as text: CR LF line ends, no dress.
    std::string Plain() const&;
    std::string Plain() &&;
    // The rich text with its colour table, in one frame.
    std::string Rich(const RtfColours& colours = {}) const;

    // Messages the listing shows to the user as it goes (a message box each).
    std::vector<std::string> Notices;

private:
    ListingForm form_;
    std::string bytes_;
    std::vector<ListingPiece> pieces_;
};

}  // namespace mirvane
