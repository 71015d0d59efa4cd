// Bodies of [_polygon] and [_line]. A key is found at the start of the line
// in any case; its value is read from the line as typed, by fixed position.
#include <cmath>
#include <optional>
#include <vector>

#include "document/encoding.h"
#include "document/object_codec.h"
#include "text/parser_context.h"

namespace mirvane::textparse {

namespace {

constexpr int kNoBorder = 510;  // twice 255, the border width that means none

// Working values of one body.
struct PatternWork {
    std::string Letter;   // code of the first real colour; only it sets a pattern bit
    std::size_t Cpp = 1;  // characters per pixel; lines have one
    std::uint8_t LineWidth = 0;
    int BorderHalves = kNoBorder;  // twice the border width, so that "1.5" is kept
    LabelWork Labels;
};

// The colour table as an Xpm line builds it. It has no value until the
// colour lines are reached, so that a header that fails before them leaves
// the record's table as it was.
using ColourList = std::optional<std::vector<std::uint32_t>>;

void StoreColours(const ColourList& colours, Bytes& colourBytes) {
    if (colours) colourBytes = EncodeColourTable(*colours);
}

bool HeaderIsSolidTwoColours(const XpmHeader& header) {
    return header.Fields.size() >= 3 && header.Fields[0] == "0" && header.Fields[1] == "0" &&
           header.Fields[2] == "2";
}

double ColourCount(const XpmHeader& header) { return StrictNumber(header.Field(2)); }

ColourLine NextColourLine(ParseContext& ctx, std::size_t cpp) { return ReadColourLine(AdvanceToColourLine(ctx), cpp); }

// The colours after a transparent first one: the first real colour, whose
// code sets the pattern bits, and with a four-colour header the night ones.
void ReadColoursAfterTransparentFirst(ParseContext& ctx, const XpmHeader& header, PatternWork& work,
                                      ColourList& colours, std::uint8_t& flags) {
    const ColourLine day = NextColourLine(ctx, work.Cpp);
    work.Letter = day.Code;
    colours->push_back(day.Colour);
    if (ColourCount(header) != 4) return;
    const ColourLine night = NextColourLine(ctx, work.Cpp);
    if (night.Transparent) {
        flags |= 0x04;
        colours->push_back(NextColourLine(ctx, work.Cpp).Colour);
    } else {
        colours->push_back(night.Colour);
        colours->push_back(NextColourLine(ctx, work.Cpp).Colour);
    }
}

// The night colours of a four-colour header: the third is stored, the fourth
// when it is not transparent.
void ReadNightColours(ParseContext& ctx, const PatternWork& work, ColourList& colours, std::uint8_t& flags,
                      bool clearWithoutPattern) {
    colours->push_back(NextColourLine(ctx, work.Cpp).Colour);
    const ColourLine last = NextColourLine(ctx, work.Cpp);
    if (last.Transparent || clearWithoutPattern) flags |= 0x04;
    else colours->push_back(last.Colour);
}

void ReadPatternRowsInto(ParseContext& ctx, BitGrid& pattern, const std::string& letter, std::size_t cpp) {
    for (int y = 0; y < pattern.Height(); ++y) {
        ctx.AdvancePastComments();
        const std::string_view line = ctx.Current();
        auto row = pattern.Row(y);
        for (std::size_t x = 0; x < row.size(); ++x) row[x] = Mid(line, x * cpp + 2, cpp) == letter;
    }
}

// `rows` rows of 32 pixels from the lines that follow; a pixel is set when
// its code is the first real colour's. Rows the text ends before keep what
// the record held.
void ReadPatternRows(ParseContext& ctx, Bytes& patternBytes, int rows, const std::string& letter, std::size_t cpp) {
    patternBytes.resize(static_cast<std::size_t>(rows) * 4, 0);
    BitGrid pattern = DecodePattern(patternBytes, rows);
    try {
        ReadPatternRowsInto(ctx, pattern, letter, cpp);
    } catch (...) {
        patternBytes = EncodePattern(pattern);
        throw;
    }
    patternBytes = EncodePattern(pattern);
}

void ReadPolygonColours(ParseContext& ctx, std::uint8_t& flags, const XpmHeader& header, PatternWork& work,
                        ColourList& colours) {
    const ColourLine first = NextColourLine(ctx, work.Cpp);
    colours.emplace();
    if (StrictNumber(header.Field(1)) > 0 && first.Transparent) {
        flags |= 0x02;
        ReadColoursAfterTransparentFirst(ctx, header, work, colours, flags);
        return;
    }
    work.Letter = first.Code;
    colours->push_back(first.Colour);
    if (ColourCount(header) > 1) {
        const ColourLine second = NextColourLine(ctx, work.Cpp);
        if (second.Transparent) {
            flags |= 0x02;
            if (!(flags & 0x01)) flags |= 0x04;
            if (HeaderIsSolidTwoColours(header)) flags &= static_cast<std::uint8_t>(~0x01);
        } else {
            colours->push_back(second.Colour);
        }
    }
    if ((flags & 0x01) && !HeaderIsSolidTwoColours(header)) ReadNightColours(ctx, work, colours, flags, !(flags & 0x08));
}

void ReadPolygonXpm(ParseContext& ctx, PolygonRecord& record, PatternWork& work) {
    const XpmHeader header = ReadXpmHeader(ctx.Current());
    ctx.Try([&] { work.Cpp = StrictByte(header.Field(3)); });
    if (header.Field(0) == "0") {
        record.Flags |= header.Field(2) == "1" ? 0x06 : 0x07;
    } else {
        record.Flags |= 0x08;
        if (header.Field(2) != "2") record.Flags |= 0x01;
    }
    ColourList colours;
    ctx.Try([&] { ReadPolygonColours(ctx, record.Flags, header, work, colours); });
    StoreColours(colours, record.ColourBytes);
    if (record.Flags & 0x08)
        ctx.Try([&] { ReadPatternRows(ctx, record.PatternBytes, kPolygonPatternRows, work.Letter, work.Cpp); });
}

void ReadPolygonKeyLine(ParseContext& ctx, PolygonRecord& record, PatternWork& work) {
    if (ReadSharedKey(ctx, record, work.Labels)) return;
    if (StartsWithNoCase(ctx.Current(), "xpm=")) ReadPolygonXpm(ctx, record, work);
}

// --- lines -------------------------------------------------------------------

bool ReadWidthKey(std::string_view line, PatternWork& work) {
    if (StartsWithNoCase(line, "linewidth")) {
        work.LineWidth = StrictByte(Mid(line, 11));
        return true;
    }
    if (StartsWithNoCase(line, "borderwidth")) {
        const double halves = std::nearbyint(2 * StrictNumber(Mid(line, 13)));  // half to even
        if (halves < 0 || halves > kNoBorder) throw ParseFailure{};
        work.BorderHalves = static_cast<int>(halves);
        return true;
    }
    return false;
}

// The widths may stand after the Xpm line: look ahead up to 50 lines or to
// the closing line.
void LookAheadForWidths(ParseContext& ctx, PatternWork& work) {
    for (std::size_t k = ctx.I + 1; k <= ctx.I + 50 && ctx.HasLine(k); ++k) {
        const std::string_view line = ctx.Lines[k];
        if (IsEndLine(line)) break;
        ctx.Try([&] { ReadWidthKey(line, work); });
    }
}

void ReadPolylineColours(ParseContext& ctx, std::uint8_t& flags, const XpmHeader& header, PatternWork& work,
                         ColourList& colours) {
    const ColourLine first = NextColourLine(ctx, work.Cpp);
    colours.emplace();
    if (StrictNumber(header.Field(1)) > 0 && first.Transparent) {
        flags |= 0x06;
        ReadColoursAfterTransparentFirst(ctx, header, work, colours, flags);
        return;
    }
    work.Letter = first.Code;
    colours->push_back(first.Colour);
    if (ColourCount(header) > 1) {
        const ColourLine second = NextColourLine(ctx, work.Cpp);
        if (second.Transparent) {
            flags |= 0x02;
            if (!(flags & 0x01)) flags |= 0x04;
        } else {
            // Without BorderWidth a solid two-colour line is a day and night line.
            if (work.BorderHalves >= kNoBorder && flags < 8) flags |= 0x07;
            colours->push_back(second.Colour);
        }
    } else {
        flags |= 0x06;
    }
    if ((flags & 0x01) && !HeaderIsSolidTwoColours(header)) ReadNightColours(ctx, work, colours, flags, false);
}

// One width byte when the day background is transparent, else two: the
// line's width and the width with both borders.
void ReadLineWidths(PolylineRecord& record, const PatternWork& work) {
    const ColourLayout layout = ColourLayout::Of(record.Flags1);
    const int total = work.LineWidth + work.BorderHalves;
    if (!layout.DayClear && total > 255) throw ParseFailure{};
    record.PatternBytes = EncodeLineWidths(layout, work.LineWidth, static_cast<std::uint8_t>(total));
}

void ReadPolylineXpm(ParseContext& ctx, PolylineRecord& record, PatternWork& work) {
    const XpmHeader header = ReadXpmHeader(ctx.Current());
    LookAheadForWidths(ctx, work);
    ctx.Try([&] {
        const int rows = StrictByte(header.Field(1)) * 8;
        if ((record.Flags1 | rows) > 255) throw ParseFailure{};
        record.Flags1 = static_cast<std::uint8_t>(record.Flags1 | rows);
    });
    ctx.Try([&] {
        if (header.Field(2) == "4") record.Flags1 |= 0x01;
    });
    ColourList colours;
    ctx.Try([&] { ReadPolylineColours(ctx, record.Flags1, header, work, colours); });
    StoreColours(colours, record.ColourBytes);
    ctx.Try([&] {
        if (record.Flags1 < 8) ReadLineWidths(record, work);
        else ReadPatternRows(ctx, record.PatternBytes, record.Flags1 >> 3, work.Letter, 1);
    });
}

void ReadPolylineKeyLine(ParseContext& ctx, PolylineRecord& record, PatternWork& work) {
    if (ReadSharedKey(ctx, record, work.Labels)) return;
    const std::string_view line = ctx.Current();
    if (StartsWithNoCase(line, "useorientation=y")) {
        record.Flags2 &= static_cast<std::uint8_t>(~0x02);
    } else if (ReadWidthKey(line, work)) {
    } else if (const auto extra = KeyValue(line, "extraindex")) {
        const std::uint32_t bytes = TolerantHex(StartsWithNoCase(*extra, "0x") ? extra->substr(2) : *extra);
        if (bytes > 0xFFFF) throw ParseFailure{};
        record.ExtraIndexBytes = {static_cast<std::uint8_t>(bytes >> 8), static_cast<std::uint8_t>(bytes)};
    } else if (StartsWithNoCase(line, "xpm=")) {
        ReadPolylineXpm(ctx, record, work);
    }
}

}  // namespace

void ReadPolygonBody(ParseContext& ctx, PolygonRecord& record) {
    PatternWork work;
    ReadBody(ctx, [&] { ReadPolygonKeyLine(ctx, record, work); });
    FinishRecordLabels(ctx, work.Labels, record, record.Flags, 0x10, 0x20);
    ctx.Try([&] { record.Length = PolygonRecordLength(record); });
}

void ReadPolylineBody(ParseContext& ctx, PolylineRecord& record) {
    PatternWork work;
    record.Flags2 |= 0x02;  // no orientation unless UseOrientation=Y says so
    ReadBody(ctx, [&] { ReadPolylineKeyLine(ctx, record, work); });
    FinishRecordLabels(ctx, work.Labels, record, record.Flags2, 0x01, 0x04);
    ctx.Try([&] { record.Length = PolylineRecordLength(record); });
}

}  // namespace mirvane::textparse
