// The listing of real TYP files: it must never crash, and for the texts that
// were decompiled from a binary of the corpus it must give the same lines,
// apart from what later hand edits of those texts explain.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "corpus.h"
#include "document/binary_reader.h"
#include "document/presentation.h"
#include "listing_test_support.h"
#include "text/listing.h"

namespace mirvane {
namespace {

namespace fs = std::filesystem;

using testing::CorpusDir;
using testing::CorpusFiles;

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

ListingText ListBinary(const fs::path& path, Document& doc) {
    Bytes file;
    EXPECT_TRUE(ReadWholeFile(path.string(), file));
    ReadBinaryTyp(doc, file, path.string());
    return ListWholeDocument(doc, {DateCreationCaption(doc.Header), ListingClock{2024, 1, 2, 3, 4, 5}});
}

TEST(ListingCorpus, EveryBinaryIsListed) {
    std::vector<fs::path> files = CorpusFiles("binary", ".typ");
    const std::vector<fs::path> mkgmap = CorpusFiles("mkgmap", ".typ");
    files.insert(files.end(), mkgmap.begin(), mkgmap.end());
    if (files.empty()) GTEST_SKIP() << "no corpus in " << CorpusDir();
    for (const fs::path& path : files) {
        Document doc;
        const ListingText text = ListBinary(path, doc);
        const std::string plain = text.Plain();
        EXPECT_NE(plain.find("[_id]"), std::string::npos) << path;
        // Every object that does not take the error route has its section.
        const auto sections = [&](const char* head) {
            std::size_t count = 0;
            for (std::size_t at = plain.find(head); at != std::string::npos; at = plain.find(head, at + 1)) ++count;
            return count;
        };
        EXPECT_EQ(sections("[_polygon]"), doc.Polygons.size()) << path;
        EXPECT_EQ(sections("[_line]"), static_cast<std::size_t>(doc.PolylineCount)) << path;
        EXPECT_EQ(sections("[_point]"), doc.Pois.size()) << path;
        // Labels are not escaped in the rich form; where none holds rich text
        // syntax, the rich form reads back as the plain one.
        if (plain.find_first_of("\\{}") == std::string::npos) {
            EXPECT_EQ(testing::RichToPlain(text.Rich()), plain) << path;
        }
    }
}

// Windows-1252 bytes 0x80..0x9F as Unicode; the rest is Latin-1.
constexpr char16_t kCp1252High[32] = {0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021,
                                      0x2C6,  0x2030, 0x160,  0x2039, 0x152,  0x8D,   0x17D,  0x8F,
                                      0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

// The wrong conversion some files went through: bytes read as Windows-1252
// and written as UTF-8.
std::string Cp1252ToUtf8(const std::string& bytes) {
    std::string out;
    for (unsigned char c : bytes) {
        const char32_t u = c >= 0x80 && c < 0xA0 ? kCp1252High[c - 0x80] : c;
        if (u < 0x80) {
            out += static_cast<char>(u);
        } else if (u < 0x800) {
            out += static_cast<char>(0xC0 | (u >> 6));
            out += static_cast<char>(0x80 | (u & 0x3F));
        } else {
            out += static_cast<char>(0xE0 | (u >> 12));
            out += static_cast<char>(0x80 | ((u >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (u & 0x3F));
        }
    }
    return out;
}

bool IsHandEdit(const std::string& line) { return line.rfind(";GRMN_TYPE", 0) == 0; }

// Lines of a decompiled text as the listing would have them, hand edits and
// the later "alpha=" spelling of the palette lines undone.
std::vector<std::string> ReferenceLines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::string line : SplitLines(text)) {
        if (IsHandEdit(line)) continue;
        const std::size_t alpha = line.find("\"  alpha=");
        if (alpha != std::string::npos) line.replace(alpha + 3, 0, "canal");
        lines.push_back(line);
    }
    return lines;
}

bool SameButMojibake(const std::string& mine, const std::string& theirs) {
    const std::string once = Cp1252ToUtf8(mine);
    return once == theirs || Cp1252ToUtf8(once) == theirs;
}

struct PairResult {
    int Mojibake = 0;
    std::vector<std::string> Unexplained;
};

PairResult ComparePair(const fs::path& binary, const std::string& reference) {
    Document doc;
    const std::vector<std::string> mine = SplitLines(ListBinary(binary, doc).Plain());
    const std::vector<std::string> theirs = ReferenceLines(reference);
    PairResult result;
    // The four heading lines are left out: they name the file, its length and
    // dates of the machine that decompiled it, and a binary may have been
    // rebuilt from its text since (jbm-contour: 1368 bytes then, 628 now).
    EXPECT_GE(mine.size(), 4u);
    if (mine.size() != theirs.size()) {
        result.Unexplained.push_back("line counts " + std::to_string(mine.size()) + " / " +
                                     std::to_string(theirs.size()));
        return result;
    }
    for (std::size_t i = 4; i < mine.size(); ++i) {
        if (mine[i] == theirs[i]) continue;
        if (SameButMojibake(mine[i], theirs[i])) {
            ++result.Mojibake;
        } else {
            result.Unexplained.push_back(std::to_string(i + 1) + ": " + mine[i] + " | " + theirs[i]);
        }
    }
    return result;
}

TEST(ListingCorpus, DecompiledTextsMatchTheirBinaries) {
    int pairs = 0;
    for (const fs::path& textPath : CorpusFiles("text", ".txt")) {
        const fs::path binary = CorpusDir() / "binary" / (textPath.stem().string() + ".typ");
        const std::string reference = testing::ReadFileText(textPath);
        if (reference.rfind("; ", 0) != 0 || reference.find("; Longueur: ") == std::string::npos ||
            !fs::exists(binary))
            continue;
        ++pairs;
        const PairResult result = ComparePair(binary, reference);
        EXPECT_TRUE(result.Unexplained.empty()) << textPath << ":\n" << ::testing::PrintToString(result.Unexplained);
    }
    if (pairs == 0) GTEST_SKIP() << "no decompiled texts in " << CorpusDir();
}

}  // namespace
}  // namespace mirvane
