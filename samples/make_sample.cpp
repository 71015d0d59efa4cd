// Writes the bundled sample: a small TYP made by Mirvane's own writer from
// records built in code (polygons, lines and POIs of every kind).
#include <iostream>

#include "document/binary_writer.h"
#include "support/sample_document.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: mirvane_make_sample OUT.typ\n";
        return 2;
    }
    mirvane::SampleOptions options;
    options.Polygons = mirvane::kPolygonVariants * 2;
    options.Polylines = mirvane::kPolylineVariants * 2;
    options.Pois = mirvane::kPoiVariants * 2;
    options.PoiSize = 16;
    mirvane::Document doc = mirvane::MakeSampleDocument(options);
    const std::string comment = "Mirvane sample: every kind of polygon, line and POI";
    doc.HeaderGapBytes.assign(comment.begin(), comment.end());
    doc.Identity.HeaderSize = 156;
    if (const auto failure = mirvane::SaveBinaryTyp(doc, argv[1], {2026, 11, 22, 12, 0, 0})) {
        std::cerr << mirvane::SaveFailureMessage(*failure) << "\n";
        return 1;
    }
    return 0;
}
