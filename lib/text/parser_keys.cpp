// Text helpers of the parser and the keys shared by all three object bodies.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>

#include "document/encoding.h"
#include "labels/label_block.h"
#include "lang/lookup.h"
#include "base/ascii.h"
#include "base/codepage.h"
#include "text/parser_context.h"

namespace mirvane::textparse {

std::string_view ParseContext::Line(std::size_t k) const {
    if (k >= Lines.size()) throw ParseFailure{};
    return Lines[k];
}

void ParseContext::Advance() {
    if (I + 1 >= Lines.size()) throw ParseFailure{};
    ++I;
}

// Comments may stand between the lines of a palette or a bitmap; prepared,
// a comment line is empty.
std::size_t ParseContext::SkipComments(std::size_t k) const {
    while (k < Lines.size() && Lines[k].empty()) ++k;
    return k;
}

void ParseContext::AdvancePastComments() {
    const std::size_t next = SkipComments(I + 1);
    if (next >= Lines.size()) throw ParseFailure{};
    I = next;
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
            log += Lines[I].size() > kMaxEchoedLine ? std::string(Lines[I].substr(0, kMaxEchoedLine)) + "..."
                                                    : std::string(Lines[I]);
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

// Every line of an object is tried against each key it may hold, so the key
// is compared before any search for the separator.
std::optional<std::string_view> KeyValue(std::string_view line, std::string_view lowerKey,
                                         std::string_view separators) {
    std::size_t k = line.find_first_not_of(' ');
    if (k == std::string_view::npos || !StartsWithNoCase(line.substr(k), lowerKey)) return std::nullopt;
    k += lowerKey.size();
    while (k < line.size() && line[k] == ' ') ++k;
    if (k == line.size() || separators.find(line[k]) == std::string_view::npos) return std::nullopt;
    return TrimBlanks(line.substr(k + 1));
}

// Existing texts leave out the closing quote ("Xpm="32 32 2 1") and put
// more than one blank between the fields.
XpmHeader ReadXpmHeader(std::string_view line) {
    const auto open = line.find('"');
    if (open == std::string_view::npos) throw ParseFailure{};
    XpmHeader header;
    header.Text = line.substr(open + 1, line.find('"', open + 1) - open - 1);
    for (std::string_view field : SplitAt(header.Text, ' '))
        if (!field.empty()) header.Fields.push_back(field);
    return header;
}

std::uint32_t ColourDigitsAt(std::string_view line, std::size_t position) {
    const auto digits = [&](std::size_t at) { return TolerantHex(Mid(line, at, 2)) & 0xFF; };
    return digits(position) | (digits(position + 2) << 8) | (digits(position + 4) << 16);
}

ColourLine ReadColourLine(std::string_view line, std::size_t cpp) {
    if (line.empty() || line.front() != '"') throw ParseFailure{};
    ColourLine colour;
    colour.Code = std::string(Mid(line, 2, cpp));
    const std::string_view rest = line.substr(std::min(line.size(), 1 + cpp));
    const auto close = rest.find('"');
    if (close != std::string_view::npos) colour.Behind = rest.substr(close + 1);
    std::vector<std::string_view> words;
    for (std::string_view word : SplitAt(rest.substr(0, close), ' '))
        if (!word.empty()) words.push_back(word);
    // The last "c" with a word behind it: the code before it may be a "c" too.
    std::size_t c = words.size();
    for (std::size_t k = words.size(); k-- > 1;)
        if (Lower(words[k - 1]) == "c") {
            c = k - 1;
            break;
        }
    if (c == words.size()) throw ParseFailure{};
    const std::string value = Lower(words[c + 1]);
    colour.Transparent = value == "none";
    if (!colour.Transparent) {
        if (value.front() != '#') throw ParseFailure{};
        colour.Colour = ColourDigitsAt(value, 2);
    }
    return colour;
}

std::string_view AdvanceToColourLine(ParseContext& ctx) {
    if (IsEndLine(ctx.Line(ctx.SkipComments(ctx.I + 1)))) throw ParseFailure{};
    ctx.AdvancePastComments();
    return ctx.Current();
}

namespace {

// The digits of a type after "0x", as far as they are hexadecimal.
std::string_view TypeDigits(std::string_view value) {
    if (StartsWithNoCase(value, "0x")) value.remove_prefix(2);
    std::size_t end = 0;
    while (end < value.size() && std::isxdigit(static_cast<unsigned char>(value[end]))) ++end;
    return value.substr(0, end);
}

std::string PaddedRight(std::string_view digits, std::size_t count) {
    std::string text = std::string(count, '0') + Lower(digits);
    return text.substr(text.size() - count);
}

}  // namespace

TypeAndSubType SplitTypeDigits(std::string_view value) {
    const std::string_view digits = TypeDigits(value);
    if (digits.size() > 5) throw ParseFailure{};
    if (digits.size() <= 3) return {PaddedRight(digits, 3), std::nullopt};
    const std::size_t typeLength = digits.size() - 2;
    return {PaddedRight(digits.substr(0, typeLength), 3), PaddedRight(digits.substr(typeLength), 2)};
}

void ReadTypeKey(std::string_view line, std::string& type, std::string& subType) {
    const auto value = KeyValue(line, "type");
    if (!value) return;
    TypeAndSubType code = SplitTypeDigits(*value);
    type = std::move(code.Type);
    subType = code.SubType.value_or("00");
}

void ReadSubTypeKey(std::string_view line, std::string& subType) {
    if (const auto value = KeyValue(line, "subtype")) subType = PaddedRight(TypeDigits(*value), 2);
}

namespace {

bool IsDecimalNumber(std::string_view text) {
    text = TrimBlanks(text);
    if (text.empty()) return false;
    for (char c : text)
        if (c < '0' || c > '9') return false;
    return true;
}

std::string_view WithoutHexPrefix(std::string_view text) {
    return StartsWithNoCase(text, "0x") ? text.substr(2) : text;
}

// A language code: hexadecimal, with or without "0x", up to 0xFF; no value
// for a text that is no such number.
std::optional<std::uint8_t> LanguageCode(std::string_view text) {
    text = WithoutHexPrefix(TrimBlanks(text));
    if (text.empty()) return std::nullopt;
    for (char c : text)
        if (!std::isxdigit(static_cast<unsigned char>(c))) return std::nullopt;
    const std::uint32_t code = TolerantHex(text);
    if (code > 0xFF) return std::nullopt;
    return static_cast<std::uint8_t>(code);
}

// "String<N>=code,label": the label is all behind the first comma, '=' and
// "0x" included. Without a code ("String=Parking, covered") the whole value
// is a label of code 0; digits alone are a code with an empty label.
LabelWork::Label ReadLabelLine(std::string_view value) {
    LabelWork::Label label;
    const auto comma = value.find(',');
    if (comma != std::string_view::npos) {
        if (const auto code = LanguageCode(value.substr(0, comma))) {
            label.Code = *code;
            label.Text = std::string(value.substr(comma + 1));
            return label;
        }
    } else if (IsDecimalNumber(WithoutHexPrefix(TrimBlanks(value)))) {
        const auto code = LanguageCode(TrimBlanks(value));
        if (!code) throw ParseFailure{};
        label.Code = *code;
        return label;
    }
    label.Text = std::string(value);
    return label;
}

// The most label bytes the two-byte prefix (length * 4 + 2) can count.
constexpr std::size_t kMaxLabelRunBytes = (0xFFFF - 2) / 4;

// The colour behind the first '#': 0x00BBGGRR.
std::uint32_t HashColour(std::string_view value) {
    const auto hash = value.find('#');
    if (hash == std::string_view::npos) throw ParseFailure{};
    return ColourDigitsAt(value, hash + 2);
}

int FontStyleCode(std::string_view value) {
    const std::string font = Lower(value.substr(0, 5));
    if (font == "nolab") return 1;
    if (font == "small") return 2;
    if (font == "norma") return 3;
    if (font == "large") return 4;
    return 0;
}

int CustomColorCode(std::string_view value) {
    const std::string choice = Lower(value);
    if (choice == "day") return 1;
    if (choice == "night") return 2;
    if (choice == "dayandnight") return 3;
    return 0;
}

std::string LogLineStart(const ParseContext& ctx, std::size_t line) {
    return kLineBreak + LookupText("Main", "Ligne", "msgLigne") + " " + std::to_string(line + 1) + " : ";
}

std::string ObjectName(const std::string& type, const std::string& subType) {
    return " Type=0x" + type + " SubType=0x" + subType;
}

// The labels in the document's code page; a label with a character the code
// page lacks is left out and named.
std::vector<LabelText> EncodedLabels(ParseContext& ctx, const LabelWork& work, const std::string& type,
                                     const std::string& subType) {
    std::vector<LabelText> texts;
    for (const auto& label : work.Labels) {
        if (ctx.LabelCodePage == 0) {
            texts.push_back({label.Code, label.Text});
            continue;
        }
        std::string missing;
        if (auto encoded = EncodeCodePageExactly(label.Text, ctx.LabelCodePage, missing)) {
            texts.push_back({label.Code, std::move(*encoded)});
            continue;
        }
        ctx.Log.Add("msgCaractereHorsPage", [&] {
            return LogLineStart(ctx, label.Line) + "\"" + missing + "\" " +
                   LookupText("Main", "absent de la page de code", "msgCaractereHorsPage") + " " +
                   std::to_string(ctx.LabelCodePage) + ", " +
                   LookupText("Main", "libellé laissé de côté pour l'objet", "msgLibelleLaisse") +
                   ObjectName(type, subType);
        });
    }
    return texts;
}

std::size_t PayloadSize(const std::vector<LabelText>& texts) {
    std::size_t size = 0;
    for (const auto& text : texts) size += text.Text.size() + 2;
    return size;
}

Bytes ExtendedLabelBlock(const LabelWork& work) {
    ExtendedLabelStyle style;
    style.FontStyle = work.Font.value_or(0);
    style.CustomColor = work.CustomColor.value_or((work.DayColour ? 1 : 0) | (work.NightColour ? 2 : 0));
    style.DayColour = work.DayColour.value_or(0);
    style.NightColour = work.NightColour.value_or(0);
    return EncodeExtendedLabelBlock(style);
}

}  // namespace

// Texts made for mkgmap give the extended label keys without
// "ExtendedLabels=Y" and in any order.
bool ReadLabelKey(ParseContext& ctx, LabelWork& work) {
    const std::string_view line = ctx.Current();
    if (StartsWithNoCase(line, "string")) {
        const auto equals = line.find('=');
        if (equals == std::string::npos) return false;
        const std::string_view index = TrimBlanks(std::string_view(line).substr(6, equals - 6));
        if (!index.empty() && !IsDecimalNumber(index)) return false;
        // Blanks at the end belong to the label.
        std::string_view value = std::string_view(line).substr(equals + 1);
        value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
        LabelWork::Label label = ReadLabelLine(value);
        label.Line = ctx.I;
        work.Labels.push_back(std::move(label));
    } else if (const auto extended = KeyValue(line, "extendedlabels")) {
        if (StartsWithNoCase(*extended, "y")) work.Extended = true;
    } else if (const auto font = KeyValue(line, "fontstyle")) {
        work.Font = FontStyleCode(*font);
    } else if (const auto choice = KeyValue(line, "customcolor")) {
        work.CustomColor = CustomColorCode(*choice);
    } else if (const auto day = KeyValue(line, "daycustomcolor", ":=")) {
        work.DayColour = HashColour(*day);
    } else if (const auto night = KeyValue(line, "nightcustomcolor", ":=")) {
        work.NightColour = HashColour(*night);
    } else {
        return false;
    }
    return true;
}

// A run too long for the prefix is refused, not cut, and the object keeps no
// label flag: a flag without its block would corrupt the record.
void FinishLabels(ParseContext& ctx, const LabelWork& work, Bytes& labelBytes, Bytes& extendedLabelBytes,
                  std::uint8_t& flags, std::uint8_t labelFlag, std::uint8_t extendedFlag,
                  const std::string& type, const std::string& subType) {
    if (!work.Labels.empty()) {
        const std::vector<LabelText> texts = EncodedLabels(ctx, work, type, subType);
        const std::size_t size = PayloadSize(texts);
        if (size > kMaxLabelRunBytes) {
            ctx.Log.Add("msgLibellesTropLongs", [&] {
                return LogLineStart(ctx, work.Labels.back().Line) +
                       LookupText("Main", "libellés trop longs pour un TYP, laissés de côté pour l'objet",
                                  "msgLibellesTropLongs") +
                       ObjectName(type, subType) + " (" + GroupedNumber(static_cast<std::int64_t>(size)) +
                       " / " + GroupedNumber(static_cast<std::int64_t>(kMaxLabelRunBytes)) + ")";
            });
        } else if (!texts.empty()) {
            labelBytes = EncodeLabelBlock(texts);
            flags |= labelFlag;
        }
    }
    if (work.Extended || work.Font || work.CustomColor || work.DayColour || work.NightColour) {
        extendedLabelBytes = ExtendedLabelBlock(work);
        flags |= extendedFlag;
    }
}

}  // namespace mirvane::textparse
