// Real text files: every one parses, compiles and reads back with the
// records it was compiled from. (That the parser finds every object of them
// shows against mkgmap's compiles: test_mkgmap_parity.)
#include <gtest/gtest.h>

#include "corpus.h"
#include "document/encoding.h"
#include "document/record_writer.h"
#include "record_compare.h"
#include "text/parser.h"

using namespace mirvane;
using namespace mirvane::testing;

TEST(ParserCorpus, EveryTextParsesCompilesAndReadsBack) {
    MIRVANE_REQUIRE_CORPUS();
    const auto files = CorpusFiles("text", ".txt");
    ASSERT_FALSE(files.empty());
    for (const auto& path : files) {
        SCOPED_TRACE(path.filename().string());
        Document doc;
        ASSERT_TRUE(OpenTypText(doc, path.string()));
        // The writer asks for a FID and a product code, as the user would be.
        if (!doc.Identity.Fid) doc.Identity.Fid = 1;
        if (!doc.Identity.ProductCode) doc.Identity.ProductCode = 1;
        const Document back = ReadTyp(BuiltTyp(doc));
        ExpectSamePolylines(doc, back);
        ExpectSamePois(doc, back);
        // A polygon whose colour bytes fit its layout survives, layout 2 (a
        // transparent first colour) written as 6, the same picture. Those that
        // do not fit come from an Xpm header without its closing quote, which
        // leaves no colours.
        ASSERT_EQ(doc.Polygons.size(), back.Polygons.size());
        for (std::size_t i = 0; i < doc.Polygons.size(); ++i) {
            PolygonRecord x = doc.Polygons[i];
            if (static_cast<std::size_t>(ColourCountOf(x.Flags)) * 3 != x.ColourBytes.size()) continue;
            SCOPED_TRACE("polygon " + x.Type + "/" + x.SubType);
            x.Flags = EncodePolygonRecord(x)[0];
            ExpectSamePolygon(x, back.Polygons[i]);
        }
    }
}
