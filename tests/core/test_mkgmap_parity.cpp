// Every shared text compiled by Mirvane draws what mkgmap's compile of it
// draws, apart from the differences docs/text-dialects.md names.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "base/codepage.h"
#include "compare/drawing_diff.h"
#include "corpus.h"
#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "text/parser.h"

using namespace mirvane;

namespace {

// The kept differences, by their names in docs/text-dialects.md.
enum class Kept {
    Utf8LabelsConverted,
    BorderWidthOfTwoColourLine,
    ThreeDigitExtendedTypeWithSubType,
    LabelBlanksAtTheEndKept,
};

const std::map<std::string, std::set<Kept>> kExpected = {
    {"inis-mapnik_ar-ac1a550",
     {Kept::Utf8LabelsConverted, Kept::BorderWidthOfTwoColourLine, Kept::LabelBlanksAtTheEndKept}},
    {"stac47-garmin-edge-typ", {Kept::BorderWidthOfTwoColourLine}},
    {"sl2garmin-nuvi2639-polygon", {Kept::LabelBlanksAtTheEndKept}},
    {"suke-suke_hike_forBaseCamp",
     {Kept::Utf8LabelsConverted, Kept::BorderWidthOfTwoColourLine, Kept::ThreeDigitExtendedTypeWithSubType}},
    {"suke-tmz", {Kept::Utf8LabelsConverted, Kept::BorderWidthOfTwoColourLine}},
    {"suke-tmz_search", {Kept::ThreeDigitExtendedTypeWithSubType}},
};

// The object a difference line names ("line 0x032,0x00") and what it says.
std::pair<std::string, std::string> SplitLine(const std::string& line) {
    const auto colon = line.find(": ");
    return {line.substr(0, colon), line.substr(colon + 2)};
}

// A label difference: Mirvane's label, mkgmap's.
std::optional<std::pair<std::string, std::string>> LabelPair(const std::string& what) {
    static const std::regex label(R"re(label \d+ "(.*)" -> "(.*)")re");
    std::smatch m;
    if (!std::regex_match(what, m, label)) return std::nullopt;
    return std::pair{m[1].str(), m[2].str()};
}

std::string WithoutBlanksAtTheEnd(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

// mkgmap copied the UTF-8 bytes of the label into the 8-bit code page (and
// dropped the blanks at its end).
bool IsCopiedUtf8Label(const std::string& what) {
    const auto labels = LabelPair(what);
    return labels && labels->second == DecodeCodePage(WithoutBlanksAtTheEnd(labels->first), 1252);
}

// mkgmap drops the blanks that end a label.
bool IsLabelWithBlanksAtTheEnd(const std::string& what) {
    const auto labels = LabelPair(what);
    return labels && labels->first != labels->second && WithoutBlanksAtTheEnd(labels->first) == labels->second;
}

// mkgmap reads the second colour of a two-colour line as its night colour.
bool IsBorderRead(const std::string& object, const std::string& what) {
    static const std::regex border(R"(day background #\w+ -> transparent|night foreground transparent -> #\w+|)"
                                   R"(total width \d+ -> none)");
    return object.starts_with("line ") && std::regex_match(what, border);
}

// mkgmap reads "Type=0x10f" of a POI as type 0x01, subtype 0x0f, and lets
// "SubType=" replace the subtype.
bool IsExtendedTypeRead(const std::string& object, const std::string& what) {
    return object.starts_with("POI 0x") &&
           ((what == "removed" && object[6] == '1') || (what == "added" && object[6] == '0'));
}

std::optional<Kept> Classify(const std::string& line) {
    const auto [object, what] = SplitLine(line);
    if (IsLabelWithBlanksAtTheEnd(what)) return Kept::LabelBlanksAtTheEndKept;
    if (IsCopiedUtf8Label(what)) return Kept::Utf8LabelsConverted;
    if (IsBorderRead(object, what)) return Kept::BorderWidthOfTwoColourLine;
    if (IsExtendedTypeRead(object, what)) return Kept::ThreeDigitExtendedTypeWithSubType;
    return std::nullopt;
}

Document CompiledByMirvane(const std::filesystem::path& text) {
    Document parsed;
    EXPECT_TRUE(OpenTypText(parsed, text.string()));
    if (!parsed.Identity.Fid) parsed.Identity.Fid = 1;
    if (!parsed.Identity.ProductCode) parsed.Identity.ProductCode = 1;
    Bytes binary;
    const auto failure = BuildBinaryTyp(parsed, binary, SaveTime{});
    EXPECT_FALSE(failure) << failure->Description;
    Document compiled;
    ReadBinaryTyp(compiled, binary, text.stem().string() + ".typ");
    EXPECT_EQ(compiled.ReadErrorLog, "");
    return compiled;
}

}  // namespace

TEST(MkgmapParity, EveryTextDrawsAsMkgmapsCompileSaveTheNamedDifferences) {
    MIRVANE_REQUIRE_CORPUS();
    for (const auto& text : mirvane::testing::CorpusFiles("text", ".txt")) {
        const auto theirsPath = mirvane::testing::CorpusDir() / "mkgmap" / (text.stem().string() + ".typ");
        if (!std::filesystem::exists(theirsPath)) continue;
        SCOPED_TRACE(text.filename().string());
        Document theirs;
        ASSERT_TRUE(OpenBinaryTyp(theirs, theirsPath.string()));
        const Document mine = CompiledByMirvane(text);
        std::set<Kept> found;
        for (const auto& line : CompareDrawings(mine, theirs)) {
            const auto kept = Classify(line);
            EXPECT_TRUE(kept) << line;
            if (kept) found.insert(*kept);
        }
        const auto expected = kExpected.find(text.stem().string());
        EXPECT_EQ(found, expected == kExpected.end() ? std::set<Kept>{} : expected->second);
    }
}
