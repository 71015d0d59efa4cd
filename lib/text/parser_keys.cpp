// Text helpers of the parser and the keys shared by all three object bodies.
#include <cmath>
#include <string>

#include "document/encoding.h"
#include "labels/label_block.h"
#include "lang/lookup.h"
#include "base/ascii.h"
#include "text/parser_context.h"

namespace mirvane::textparse {

const std::string& ParseContext::Line(std::size_t k) const {
    if (k >= Lines.size()) throw ParseFailure{};
    return Lines[k];
}

void ParseContext::Advance() {
    if (I + 1 >= Lines.size()) throw ParseFailure{};
    ++I;
}

constexpr std::size_t kMaxEchoedLine = 200;

void ParseContext::LogFailure() {
    Log.Add("msgLigne", [this] {
        std::string log = kLineBreak;
        log += LookupText("Main", "Ligne", "msgLigne");
        log += ' ';
        log += std::to_string(I + 1);
        log += " : \"";
        // A line of thousands of characters is named, not copied whole.
        if (I < Lines.size())
            log += Lines[I].size() > kMaxEchoedLine ? Lines[I].substr(0, kMaxEchoedLine) + "..." : Lines[I];
        log += '"';
        return log;
    });
}

std::string_view Mid(std::string_view text, std::size_t position, std::size_t length) {
    if (position == 0 || position > text.size()) return {};
    return text.substr(position - 1, length);
}

std::string Lower(std::string_view text) { return AsciiLower(text); }

std::string_view TrimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}

bool StartsWithNoCase(std::string_view text, std::string_view lowerPrefix) {
    if (text.size() < lowerPrefix.size()) return false;
    for (std::size_t k = 0; k < lowerPrefix.size(); ++k) {
        if (AsciiLower(text[k]) != lowerPrefix[k]) return false;
    }
    return true;
}

bool IsEndLine(std::string_view line) { return StartsWithNoCase(TrimBlanks(line), "[end]"); }

std::string ReplaceAll(std::string text, std::string_view from, std::string_view to) {
    std::string out;
    out.reserve(text.size());
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(from, start)) != std::string::npos; start = found + from.size()) {
        out.append(text, start, found - start);
        out += to;
    }
    out.append(text, start, std::string::npos);
    return out;
}

std::vector<std::string_view> SplitAt(std::string_view text, char separator) {
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(separator, start)) != std::string_view::npos; start = found + 1)
        fields.push_back(text.substr(start, found - start));
    fields.push_back(text.substr(start));
    return fields;
}

std::size_t PositionOf(std::string_view text, char c) {
    const auto found = text.find(c);
    return found == std::string_view::npos ? 0 : found + 1;
}

std::uint32_t TolerantHex(std::string_view text) { return LeadingHex(text, 0x0FFFFFFF); }

double StrictNumber(std::string_view text) {
    text = TrimBlanks(text);
    std::size_t k = 0;
    bool negative = false;
    if (k < text.size() && (text[k] == '-' || text[k] == '+')) negative = text[k++] == '-';
    double value = 0;
    bool digits = false;
    for (; k < text.size() && text[k] >= '0' && text[k] <= '9'; ++k, digits = true)
        if (value < 1e15) value = value * 10 + (text[k] - '0');
    if (k < text.size() && text[k] == '.') {
        double scale = 0.1;
        for (++k; k < text.size() && text[k] >= '0' && text[k] <= '9'; ++k, digits = true, scale /= 10)
            value += (text[k] - '0') * scale;
    }
    if (!digits || k != text.size()) throw ParseFailure{};
    return negative ? -value : value;
}

std::uint8_t StrictByte(std::string_view text) {
    const double rounded = std::nearbyint(StrictNumber(text));  // default mode: half to even
    if (rounded < 0 || rounded > 255) throw ParseFailure{};
    return static_cast<std::uint8_t>(rounded);
}

std::string_view XpmHeader::Field(std::size_t k) const {
    if (k >= Fields.size()) throw ParseFailure{};
    return Fields[k];
}

XpmHeader ReadXpmHeader(std::string_view line) {
    const auto open = line.find('"');
    if (open == std::string_view::npos) throw ParseFailure{};
    const auto close = line.find('"', open + 1);
    if (close == std::string_view::npos) throw ParseFailure{};
    XpmHeader header;
    header.Text = line.substr(open + 1, close - open - 1);
    header.Fields = SplitAt(header.Text, ' ');
    return header;
}

std::uint32_t ColourDigitsAt(std::string_view line, std::size_t position) {
    const auto digits = [&](std::size_t at) { return TolerantHex(Mid(line, at, 2)) & 0xFF; };
    return digits(position) | (digits(position + 2) << 8) | (digits(position + 4) << 16);
}

std::uint32_t LineColour(std::string_view line) { return ColourDigitsAt(line, PositionOf(line, 'c') + 3); }

bool PassesCTest(std::string_view line) {
    return Lower(Mid(line, PositionOf(line, 'c') + 2, 4)) == "none";
}

bool PassesFixedTest(std::string_view line) { return Mid(line, 6, 4) == "none"; }

static std::string PaddedRight(std::string_view digits, std::size_t count) {
    std::string text = std::string(count, '0') + std::string(digits);
    return text.substr(text.size() - count);
}

void ReadTypeKey(std::string_view line, std::string& type, std::string& subType) {
    const std::string key = Lower(ReplaceAll(std::string(line), "0x", ""));
    if (key.size() == 10) {
        type = key.substr(5, 3);
        subType = key.substr(8, 2);
    } else {
        type = PaddedRight(Mid(key, 6), 3);
        subType = "00";
    }
}

void ReadSubTypeKey(std::string_view line, std::string& subType) {
    const std::string key = Lower(ReplaceAll(std::string(line), "0x", ""));
    subType = PaddedRight(Mid(key, 9), 2);
}

namespace {

bool IsDecimalNumber(std::string_view text) {
    text = TrimBlanks(text);
    if (text.empty()) return false;
    for (char c : text)
        if (c < '0' || c > '9') return false;
    return true;
}

char CodeCharacter(std::string_view hexDigits) {
    const std::uint32_t code = TolerantHex(hexDigits);
    if (code > 255) throw ParseFailure{};
    return static_cast<char>(code);
}

// One "String<N>=" line into the run's text: language code, label, zero.
void AppendLabelLine(std::string_view line, std::string& acc) {
    const auto fields = SplitAt(line, '=');
    if (fields.size() < 2) throw ParseFailure{};
    const std::string field = ReplaceAll(std::string(fields[1]), "0x", "");
    std::string piece;
    if (line.find(',') == std::string_view::npos) {
        if (IsDecimalNumber(field)) piece += CodeCharacter(field);
        else piece += '\0' + field;
    } else {
        const auto comma = field.find(',');
        if (comma == std::string::npos) throw ParseFailure{};
        piece += CodeCharacter(std::string_view(field).substr(0, comma));
        piece.append(field, comma + 1, std::string::npos);
    }
    piece += '\0';
    acc += piece;
}

// The most label bytes the two-byte prefix (length * 4 + 2) can count.
constexpr std::size_t kMaxLabelRunBytes = (0xFFFF - 2) / 4;

// Colour bytes after the first '#': RR into `red`, GG into `red` - 1, BB into `red` - 2.
void ReadHashColour(std::string_view line, Bytes& block, std::size_t red) {
    const std::size_t hash = PositionOf(line, '#');
    for (std::size_t k = 0; k < 3; ++k)
        block[red - k] = static_cast<std::uint8_t>(TolerantHex(Mid(line, hash + 1 + 2 * k, 2)));
}

std::uint8_t FontStyleCode(std::string_view fiveCharacters) {
    const std::string font = Lower(fiveCharacters);
    if (font == "nolab") return 1;
    if (font == "small") return 2;
    if (font == "norma") return 3;
    if (font == "large") return 4;
    return 0;
}

}  // namespace

// A run too long for the prefix is refused, not cut, and the object keeps no
// label flag: a flag without its block would corrupt the record.
bool ReadLabelRun(ParseContext& ctx, Bytes& labelBytes, const std::string& type, const std::string& subType) {
    std::string acc;
    std::size_t k = ctx.I;
    for (; ctx.HasLine(k) && StartsWithNoCase(ctx.Lines[k], "string"); ++k) {
        ctx.I = k;
        ctx.Try([&] { AppendLabelLine(ctx.Lines[k], acc); });
    }
    ctx.I = k - 1;
    if (!ctx.HasLine(k)) ctx.LogFailure();  // the run was read up to the last line and past it
    if (acc.size() > kMaxLabelRunBytes) {
        ctx.Log.Add("msgLibellesTropLongs", [&] {
            return kLineBreak + LookupText("Main", "Ligne", "msgLigne") + " " + std::to_string(ctx.I + 1) + " : " +
                   LookupText("Main", "libellés trop longs pour un TYP, laissés de côté pour l'objet",
                              "msgLibellesTropLongs") +
                   " Type=0x" + type + " SubType=0x" + subType + " (" +
                   GroupedNumber(static_cast<std::int64_t>(acc.size())) + " / " +
                   GroupedNumber(static_cast<std::int64_t>(kMaxLabelRunBytes)) + ")";
        });
        return false;
    }
    labelBytes = PrefixedLabelBlock(acc);
    return true;
}

void ReadExtendedLabels(ParseContext& ctx, Bytes& block) {
    block.assign(1, FontStyleCode(Mid(ctx.Line(ctx.I + 1), 11, 5)));
    if (!ctx.HasLine(ctx.I + 2)) return;
    const std::string colourChoice = Lower(Mid(ctx.Lines[ctx.I + 2], 13));
    if (colourChoice == "day" || colourChoice == "night") {
        block[0] = static_cast<std::uint8_t>(block[0] + (colourChoice == "day" ? 8 : 16));
        block.resize(4, 0);
        ReadHashColour(ctx.Line(ctx.I + 3), block, 3);
    } else if (colourChoice == "dayandnight") {
        block[0] = static_cast<std::uint8_t>(block[0] + 24);
        block.resize(7, 0);
        ReadHashColour(ctx.Line(ctx.I + 3), block, 3);
        ReadHashColour(ctx.Line(ctx.I + 4), block, 6);
    }
}

}  // namespace mirvane::textparse
