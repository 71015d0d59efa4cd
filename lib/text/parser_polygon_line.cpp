// Bodies of [_polygon] and [_line]. A key is found at the start of the line
// in any case; its value is read from the line as typed, by fixed position.
#include "document/encoding.h"
#include "text/parser_context.h"

namespace mirvane::textparse {

namespace {

// Working values of one body.
struct PatternWork {
    std::string Letter;   // code of the first real colour; only it sets a pattern bit
    std::size_t Cpp = 0;  // characters per pixel (polygons)
    std::uint8_t LineWidth = 0;
    int BorderWidth = 255;  // 255: none was given
};

bool HeaderIsSolidTwoColours(const XpmHeader& header) { return header.Text.substr(0, 5) == "0 0 2"; }

// The two colours after a transparent first one in a four-colour header.
void ReadColoursAfterTransparentFirst(ParseContext& ctx, Bytes& colours, std::uint8_t& flags) {
    ctx.Advance();
    if (PassesCTest(ctx.Current())) {
        flags |= 0x04;
        ctx.Advance();
        AppendLineColour(colours, ctx.Current());
    } else {
        AppendLineColour(colours, ctx.Current());
        ctx.Advance();
        AppendLineColour(colours, ctx.Current());
    }
}

// `rows` rows of 32 pixels, 4 bytes each, from the lines that follow; a
// pixel is set when its code is the first real colour's.
void ReadPatternRows(ParseContext& ctx, Bytes& pattern, std::size_t rows, const std::string& letter, std::size_t cpp) {
    pattern.resize(rows * 4, 0);
    for (std::size_t r = 0; r < rows; ++r) {
        ctx.Advance();
        const std::string& row = ctx.Current();
        for (std::size_t b = 0; b < 4; ++b) {
            std::uint8_t byte = 0;
            for (std::size_t k = 0; k < 8; ++k)
                if (Mid(row, b * 8 * cpp + 2 + k * cpp, cpp) == letter) byte |= static_cast<std::uint8_t>(1u << k);
            pattern[r * 4 + b] = byte;
        }
    }
}

void ReadPolygonColours(ParseContext& ctx, PolygonRecord& record, const XpmHeader& header, PatternWork& work) {
    std::uint8_t& flags = record.Flags;
    ctx.Advance();
    const bool sized = StrictNumber(header.Field(1)) > 0;
    if (sized && PassesCTest(ctx.Current())) {
        flags |= 0x02;
        ctx.Advance();
        work.Letter = std::string(Mid(ctx.Current(), 2, 1));
        record.ColourBytes.clear();
        AppendLineColour(record.ColourBytes, ctx.Current());
        if (StrictNumber(header.Field(2)) == 4) ReadColoursAfterTransparentFirst(ctx, record.ColourBytes, flags);
        return;
    }
    work.Letter = std::string(Mid(ctx.Current(), 2, work.Cpp));
    record.ColourBytes.clear();
    AppendLineColour(record.ColourBytes, ctx.Current());
    if (StrictNumber(header.Field(2)) > 1) {
        ctx.Advance();
        if (PassesFixedTest(Lower(ctx.Current()))) {
            flags |= 0x02;
            if (!(flags & 0x01)) flags |= 0x04;
            if (HeaderIsSolidTwoColours(header)) flags &= static_cast<std::uint8_t>(~0x01);
        } else {
            AppendLineColour(record.ColourBytes, ctx.Current());
        }
    }
    if ((flags & 0x01) && !HeaderIsSolidTwoColours(header)) {
        ctx.Advance();
        AppendLineColour(record.ColourBytes, ctx.Current());
        ctx.Advance();
        // Tested on the line as typed: a capital NONE here is read as a colour.
        if (PassesFixedTest(ctx.Current()) || !(flags & 0x08)) flags |= 0x04;
        else AppendLineColour(record.ColourBytes, ctx.Current());
    }
}

void ReadPolygonXpm(ParseContext& ctx, PolygonRecord& record, PatternWork& work) {
    const std::string& line = ctx.Current();
    const XpmHeader header = ReadXpmHeader(line);
    ctx.Try([&] { work.Cpp = StrictByte(header.Field(3)); });
    // Fixed places: Xpm="0 0 1 0" and Xpm="32 32 4 1" with exactly these blanks.
    if (Mid(line, 6, 1) == "0") {
        record.Flags |= Mid(line, 10, 1) == "1" ? 0x06 : 0x07;
    } else {
        record.Flags |= 0x08;
        if (Mid(line, 12, 1) != "2") record.Flags |= 0x01;
    }
    ctx.Try([&] { ReadPolygonColours(ctx, record, header, work); });
    if (record.Flags & 0x08) ctx.Try([&] { ReadPatternRows(ctx, record.PatternBytes, 32, work.Letter, work.Cpp); });
}

void ReadPolygonKeyLine(ParseContext& ctx, PolygonRecord& record, PatternWork& work) {
    if (ReadSharedKey(ctx, record, record.Flags, 0x10, 0x20)) return;
    if (StartsWithNoCase(ctx.Current(), "xpm=")) ReadPolygonXpm(ctx, record, work);
}

// --- lines -------------------------------------------------------------------

bool ReadWidthKey(std::string_view line, PatternWork& work) {
    if (StartsWithNoCase(line, "linewidth")) {
        work.LineWidth = StrictByte(Mid(line, 11));
        return true;
    }
    if (StartsWithNoCase(line, "borderwidth")) {
        work.BorderWidth = StrictByte(Mid(line, 13));
        return true;
    }
    return false;
}

// The widths may stand after the Xpm line: look ahead up to 50 lines or to
// the closing line.
void LookAheadForWidths(ParseContext& ctx, PatternWork& work) {
    for (std::size_t k = ctx.I + 1; k <= ctx.I + 50 && ctx.HasLine(k); ++k) {
        const std::string& line = ctx.Lines[k];
        if (IsEndLine(line)) break;
        ctx.Try([&] { ReadWidthKey(line, work); });
    }
}

void ReadPolylineColours(ParseContext& ctx, PolylineRecord& record, const XpmHeader& header, PatternWork& work) {
    std::uint8_t& flags = record.Flags1;
    ctx.Advance();
    const bool hasRows = StrictNumber(header.Field(1)) > 0;
    work.Letter = std::string(Mid(ctx.Current(), 2, 1));
    record.ColourBytes.clear();
    if (hasRows && PassesCTest(ctx.Current())) {
        flags |= 0x06;
        ctx.Advance();
        work.Letter = std::string(Mid(ctx.Current(), 2, 1));
        AppendLineColour(record.ColourBytes, ctx.Current());
        if (StrictNumber(header.Field(2)) == 4) ReadColoursAfterTransparentFirst(ctx, record.ColourBytes, flags);
        return;
    }
    AppendLineColour(record.ColourBytes, ctx.Current());
    if (StrictNumber(header.Field(2)) > 1) {
        ctx.Advance();
        if (PassesFixedTest(Lower(ctx.Current()))) {
            flags |= 0x02;
            if (!(flags & 0x01)) flags |= 0x04;
        } else {
            // Without BorderWidth a solid two-colour line is a day and night line.
            if (work.BorderWidth > 254 && flags < 8) flags |= 0x07;
            AppendLineColour(record.ColourBytes, ctx.Current());
        }
    } else {
        flags |= 0x06;
    }
    if ((flags & 0x01) && !HeaderIsSolidTwoColours(header)) {
        ctx.Advance();
        AppendLineColour(record.ColourBytes, ctx.Current());
        ctx.Advance();
        if (PassesFixedTest(ctx.Current())) flags |= 0x04;
        else AppendLineColour(record.ColourBytes, ctx.Current());
    }
}

void ReadLineWidths(PolylineRecord& record, const PatternWork& work) {
    if (record.Flags1 & 0x02) {
        record.PatternBytes.assign(1, work.LineWidth);
        return;
    }
    const int total = work.LineWidth + 2 * work.BorderWidth;
    if (total > 255) throw ParseFailure{};
    record.PatternBytes = {work.LineWidth, static_cast<std::uint8_t>(total)};
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
    ctx.Try([&] { ReadPolylineColours(ctx, record, header, work); });
    ctx.Try([&] {
        if (record.Flags1 < 8) ReadLineWidths(record, work);
        else ReadPatternRows(ctx, record.PatternBytes, record.Flags1 >> 3, work.Letter, 1);
    });
}

void ReadPolylineKeyLine(ParseContext& ctx, PolylineRecord& record, PatternWork& work) {
    if (ReadSharedKey(ctx, record, record.Flags2, 0x01, 0x04)) return;
    const std::string& line = ctx.Current();
    if (StartsWithNoCase(line, "useorientation=y")) {
        record.Flags2 &= static_cast<std::uint8_t>(~0x02);
    } else if (ReadWidthKey(line, work)) {
    } else if (StartsWithNoCase(line, "xpm=")) {
        ReadPolylineXpm(ctx, record, work);
    }
}

}  // namespace

void ReadPolygonBody(ParseContext& ctx, PolygonRecord& record) {
    PatternWork work;
    ReadBody(ctx, [&] { ReadPolygonKeyLine(ctx, record, work); });
    ctx.Try([&] { record.Length = PolygonRecordLength(record); });
}

void ReadPolylineBody(ParseContext& ctx, PolylineRecord& record) {
    PatternWork work;
    record.Flags2 |= 0x02;  // no orientation unless UseOrientation=Y says so
    ReadBody(ctx, [&] { ReadPolylineKeyLine(ctx, record, work); });
    ctx.Try([&] { record.Length = PolylineRecordLength(record); });
}

}  // namespace mirvane::textparse
