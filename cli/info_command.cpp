#include <cstdio>
#include <iostream>

#include "commands.h"
#include "document/binary_reader.h"
#include "document/presentation.h"
#include "lang/lookup.h"

namespace mirvane::cli {

namespace {

const char* const kHelp =
    "Usage: mirvane-cli info FILE.typ\n"
    "Prints the header fields, object counts and sections of a binary TYP, and the\n"
    "errors met while reading it (on stderr).\n";

// Quantities follow the language's digit grouping; identifiers (FID, code
// page) stay plain.
void PrintSection(const char* name, std::int64_t offset, std::int64_t length, int recordSize = -1) {
    std::printf("  %-22s offset %13s  length %13s", name, GroupedNumber(offset).c_str(), GroupedNumber(length).c_str());
    if (recordSize >= 0) std::printf("  record size %d", recordSize);
    std::printf("\n");
}

void PrintDocument(const Document& doc) {
    const TypHeader& h = doc.Header;
    std::printf("File:         %s\n", doc.FilePath.c_str());
    std::printf("Length:       %s\n", LengthCaption(doc.FileLengthText).c_str());
    std::printf("Header size:  %d\n", h.HeaderSize);
    std::printf("Signature:    %.10s\n", h.Signature.data());
    std::printf("Created:     %s\n", DateCreationCaption(h).c_str());
    std::printf("Code page:    %d\n", h.CodePage);
    std::printf("FID:          %s\n", IdentityNumberText(doc.Identity.Fid).c_str());
    std::printf("Product code: %s\n", IdentityNumberText(doc.Identity.ProductCode).c_str());
    std::printf("Polygons:     %s\n", GroupedNumber(doc.PolygonCount()).c_str());
    std::printf("Polylines:    %s (+ %s for active routing)\n", GroupedNumber(doc.PolylineCount).c_str(),
                GroupedNumber(doc.ExtraPolylineCount).c_str());
    std::printf("POIs:         %s\n", GroupedNumber(doc.PoiCount()).c_str());
    std::printf("Extra POIs:   %s\n", GroupedNumber(doc.ExtraPoiCount).c_str());
    std::printf("Extra labels: %s\n", GroupedNumber(doc.LabelCount).c_str());
    std::printf("Draw order:   %s rows\n", GroupedNumber(static_cast<std::int64_t>(doc.DrawOrder.size())).c_str());
    std::printf("Comment:      %s bytes\n", GroupedNumber(static_cast<std::int64_t>(doc.HeaderGapBytes.size())).c_str());
    std::printf("Sections:\n");
    PrintSection("polygon data", h.PolygonDataOffset, h.PolygonDataLength);
    PrintSection("polygon index", h.PolygonIndexOffset, h.PolygonIndexLength, h.PolygonIndexRecordSize);
    PrintSection("polyline data", h.PolylineDataOffset, h.PolylineDataLength);
    PrintSection("polyline index", h.PolylineIndexOffset, h.PolylineIndexLength, h.PolylineIndexRecordSize);
    PrintSection("POI data", h.PoiDataOffset, h.PoiDataLength);
    PrintSection("POI index", h.PoiIndexOffset, h.PoiIndexLength, h.PoiIndexRecordSize);
    PrintSection("draw order", h.DrawOrderOffset, h.DrawOrderLength, h.DrawOrderRecordSize);
    if (h.HeaderSize >= 110) {
        PrintSection("extra POI data", doc.Extra1.ExtraPoiDataOffset, doc.Extra1.ExtraPoiDataLength);
        PrintSection("extra POI index", doc.Extra1.ExtraPoiIndexOffset, doc.Extra1.ExtraPoiIndexLength,
                     doc.Extra1.ExtraPoiIndexRecordSize);
    }
    if (h.HeaderSize >= 156) {
        PrintSection("label text", doc.Extra2.LabelTextOffset, doc.Extra2.LabelTextLength);
        PrintSection("label table 1", doc.Extra2.LabelTable1Offset, doc.Extra2.LabelTable1Length,
                     doc.Extra2.LabelTable1RecordSize);
        PrintSection("label table 2", doc.Extra2.LabelTable2Offset, doc.Extra2.LabelTable2Length,
                     doc.Extra2.LabelTable2RecordSize);
    }
    if (h.HeaderSize >= 174)
        PrintSection("routing index", doc.Extra4.ExtraPolylineIndexOffset, doc.Extra4.ExtraPolylineIndexLength,
                     doc.Extra4.ExtraPolylineIndexRecordSize);
}

}  // namespace

int InfoCommand(const Arguments& args) {
    if (WantsHelp(args)) {
        std::cout << kHelp;
        return kExitOk;
    }
    if (args.size() != 1) {
        std::cerr << kHelp;
        return kExitFailure;
    }
    Document doc;
    if (!OpenOrReport(doc, args[0], OpenBinaryTyp)) return kExitFailure;
    PrintDocument(doc);
    std::fflush(stdout);
    return ReportLog(doc.ReadErrorLog, doc.ReadErrorFlag);
}

}  // namespace mirvane::cli
