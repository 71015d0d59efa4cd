#include "text/listing_text.h"

#include <utility>

namespace mirvane {

namespace {

// The plain text of a piece: CR LF for line ends, a blank in front of " [End]".
void AppendPlain(std::string& out, PieceRole role, std::string_view bytes) {
    switch (role) {
    case PieceRole::LineBreak:
    case PieceRole::LabelLineBreak: out += "\r\n"; break;
    case PieceRole::IdEnd: out += ' '; [[fallthrough]];
    default: out += bytes; break;
    }
}

}  // namespace

void ListingText::Add(PieceRole role, std::string_view bytes) {
    if (form_ == ListingForm::PlainOnly) {
        AppendPlain(bytes_, role, bytes);
        return;
    }
    const auto offset = static_cast<std::uint32_t>(bytes_.size());
    bytes_.append(bytes);
    // Runs of plain text stay one piece: fewer pieces, same output.
    if (role == PieceRole::Text && !pieces_.empty() && pieces_.back().Role == PieceRole::Text &&
        pieces_.back().Offset + pieces_.back().Length == offset) {
        pieces_.back().Length += static_cast<std::uint32_t>(bytes.size());
        return;
    }
    pieces_.push_back({role, offset, static_cast<std::uint32_t>(bytes.size())});
}

void ListingText::Break(int count) {
    for (int i = 0; i < count; ++i) Add(PieceRole::LineBreak, {});
}

void ListingText::KeyLine(std::string_view key, std::string_view value) {
    Break();
    Key(key);
    Text(value);
}

void ListingText::TextLine(std::string_view bytes) {
    Break();
    Text(bytes);
}

void ListingText::RollBack(const Mark& mark) {
    pieces_.resize(mark.Pieces);
    bytes_.resize(mark.Bytes);
    if (!pieces_.empty()) {
        ListingPiece& last = pieces_.back();
        if (last.Offset + last.Length > mark.Bytes) last.Length = static_cast<std::uint32_t>(mark.Bytes - last.Offset);
    }
}

std::string_view ListingText::BytesOf(const ListingPiece& piece) const {
    return std::string_view(bytes_).substr(piece.Offset, piece.Length);
}

std::string ListingText::Plain() const& {
    if (form_ == ListingForm::PlainOnly) return bytes_;
    std::string out;
    out.reserve(bytes_.size() + pieces_.size() * 2);
    for (const ListingPiece& piece : pieces_) AppendPlain(out, piece.Role, BytesOf(piece));
    return out;
}

std::string ListingText::Plain() && {
    if (form_ == ListingForm::PlainOnly) return std::move(bytes_);
    return static_cast<const ListingText&>(*this).Plain();
}

namespace {

// Opening and closing dress of each role in the rich form.
std::string_view RichOpening(PieceRole role) {
    switch (role) {
    case PieceRole::Key: return "{\\cf3 ";
    case PieceRole::Comment: return "{\\cf1 ";
    case PieceRole::HeadingComment: return "{\\cf1";
    case PieceRole::SectionHead: return "{\\cf2 ";
    case PieceRole::IdHead: return "{\\fs20 \\cf2 ";
    case PieceRole::IdEnd: return "{ \\cf2 ";
    case PieceRole::DrawOrderHead: return "{\\cf2";
    case PieceRole::LineBreak: return "\\par ";
    case PieceRole::LabelLineBreak: return "\\par";
    case PieceRole::Text: break;
    }
    return {};
}

bool IsGroup(PieceRole role) {
    return role != PieceRole::Text && role != PieceRole::LineBreak && role != PieceRole::LabelLineBreak;
}

}  // namespace

std::string ListingText::Rich(const RtfColours& colours) const {
    std::string out;
    out.reserve(bytes_.size() + pieces_.size() * 8 + 160);
    out += "{{\\colortbl ";
    for (const std::string& colour : colours.Colour) {
        out += colour;
        out += ';';
    }
    out += "}{\\cf0";
    for (const ListingPiece& piece : pieces_) {
        out += RichOpening(piece.Role);
        out += BytesOf(piece);
        if (IsGroup(piece.Role)) out += '}';
    }
    out += "}}";
    return out;
}

}  // namespace mirvane
