// The listing of real TYP files: for the texts that were decompiled from a
// binary of the corpus it must give the same lines, apart from what later
// hand edits of those texts explain. (Every binary's listing parses back to
// the same records: test_parser_listing.)
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "base/codepage.h"
#include "corpus.h"
#include "document/binary_reader.h"
#include "document/presentation.h"
#include "text/listing.h"

namespace mirvane {
namespace {

namespace fs = std::filesystem;

using testing::CorpusDir;

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::string line;
    std::istringstream in(text);
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> ListedLines(const fs::path& binary) {
    Document doc;
    EXPECT_TRUE(OpenBinaryTyp(doc, binary.string()));
    const ListingContext context{DateCreationCaption(doc.Header), ListingClock{2024, 1, 2, 3, 4, 5}};
    return SplitLines(ListWholeDocument(doc, context).Plain());
}

// Lines of a decompiled text as the listing would have them, hand edits and
// the later "alpha=" spelling of the palette lines undone.
std::vector<std::string> ReferenceLines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::string line : SplitLines(text)) {
        if (line.starts_with(";GRMN_TYPE")) continue;
        const std::size_t alpha = line.find("\"  alpha=");
        if (alpha != std::string::npos) line.replace(alpha + 3, 0, "canal");
        lines.push_back(line);
    }
    return lines;
}

// Some texts went once or twice through the wrong conversion: bytes read as
// Windows-1252 and written as UTF-8.
bool SameButMojibake(const std::string& mine, const std::string& theirs) {
    const std::string once = DecodeCodePage(mine, 1252);
    return once == theirs || DecodeCodePage(once, 1252) == theirs;
}

// The lines that differ for no known reason. The four heading lines are left
// out: they name the file, its length and dates of the machine that
// decompiled it, and a binary may have been rebuilt from its text since
// (jbm-contour: 1368 bytes then, 628 now).
std::vector<std::string> UnexplainedLines(const fs::path& binary, const std::string& reference) {
    const std::vector<std::string> mine = ListedLines(binary);
    const std::vector<std::string> theirs = ReferenceLines(reference);
    EXPECT_GE(mine.size(), 4u);
    if (mine.size() != theirs.size())
        return {"line counts " + std::to_string(mine.size()) + " / " + std::to_string(theirs.size())};
    std::vector<std::string> unexplained;
    for (std::size_t i = 4; i < mine.size(); ++i)
        if (mine[i] != theirs[i] && !SameButMojibake(mine[i], theirs[i]))
            unexplained.push_back(std::to_string(i + 1) + ": " + mine[i] + " | " + theirs[i]);
    return unexplained;
}

TEST(ListingCorpus, DecompiledTextsMatchTheirBinaries) {
    int pairs = 0;
    for (const fs::path& textPath : testing::CorpusFiles("text", ".txt")) {
        const fs::path binary = CorpusDir() / "binary" / (textPath.stem().string() + ".typ");
        const std::string reference = testing::ReadFileText(textPath);
        if (!reference.starts_with("; ") || reference.find("; Longueur: ") == std::string::npos ||
            !fs::exists(binary))
            continue;
        ++pairs;
        EXPECT_EQ(UnexplainedLines(binary, reference), std::vector<std::string>{}) << textPath;
    }
    if (pairs == 0) GTEST_SKIP() << "no decompiled texts in " << CorpusDir();
}

}  // namespace
}  // namespace mirvane
