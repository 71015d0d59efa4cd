// Labels of real files: every block decodes, encodes back to the same bytes,
// and its texts survive the trip through UTF-8 in the file's code page.
#include <gtest/gtest.h>

#include "corpus.h"
#include "document/binary_reader.h"
#include "base/codepage.h"
#include "labels/label_block.h"
#include "labels/language_codes.h"

using namespace mirvane;
using namespace mirvane::testing;

namespace {

struct LabelCounts {
    int blocks = 0, texts = 0, nonAscii = 0, extended = 0, codesPastTable = 0;
};

void CheckLabels(const Bytes& labelBytes, const Bytes& extendedBytes, int codePage, LabelCounts& counts) {
    if (!labelBytes.empty()) {
        ++counts.blocks;
        const auto texts = DecodeLabelBlock(labelBytes);
        ASSERT_TRUE(texts.has_value());
        EXPECT_EQ(EncodeLabelBlock(*texts), labelBytes);
        for (const auto& label : *texts) {
            ++counts.texts;
            // Real files use codes past the editors' table (37 is Japanese in one of them).
            if (label.LanguageCode >= LanguageCodeCount()) ++counts.codesPastTable;
            const std::string shown = DecodeCodePage(label.Text, codePage);
            bool lossless = false;
            EXPECT_EQ(EncodeCodePage(shown, codePage, &lossless), label.Text);
            EXPECT_TRUE(lossless);
            if (shown.size() != label.Text.size()) ++counts.nonAscii;
        }
    }
    if (!extendedBytes.empty()) {
        ++counts.extended;
        const auto style = DecodeExtendedLabelBlock(extendedBytes);
        ASSERT_TRUE(style.has_value());
        EXPECT_EQ(EncodeExtendedLabelBlock(*style), extendedBytes);
    }
}

}  // namespace

TEST(CorpusLabels, LabelsRoundTripInTheirCodePage) {
    MIRVANE_REQUIRE_CORPUS();
    auto files = CorpusFiles("binary", ".typ");
    const auto compiled = CorpusFiles("mkgmap", ".typ");
    files.insert(files.end(), compiled.begin(), compiled.end());
    ASSERT_FALSE(files.empty());
    LabelCounts counts;
    for (const auto& path : files) {
        SCOPED_TRACE(path.string());
        Document doc;
        ASSERT_TRUE(OpenBinaryTyp(doc, path.string()));
        const int codePage = doc.Header.CodePage;
        for (const auto& r : doc.Polygons) CheckLabels(r.LabelBytes, r.ExtendedLabelBytes, codePage, counts);
        for (const auto& r : doc.Polylines) CheckLabels(r.LabelBytes, r.ExtendedLabelBytes, codePage, counts);
        for (const auto& r : doc.Pois) CheckLabels(r.LabelBytes, r.ExtendedLabelBytes, codePage, counts);
    }
    EXPECT_GT(counts.texts, 0);
    std::cout << files.size() << " files: " << counts.blocks << " label blocks, " << counts.texts << " texts ("
              << counts.nonAscii << " beyond ASCII), " << counts.extended << " extended label blocks, " << counts.codesPastTable
              << " texts with a language code past the table\n";
}
