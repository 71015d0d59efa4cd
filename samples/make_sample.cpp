// Writes the bundled samples, small TYP files made by Mirvane's own writer
// from records built in code: sample.typ has polygons, lines and POIs of
// every kind; extra-pois.typ has groups of additional POIs as well.
#include <cstring>
#include <iostream>

#include "document/binary_writer.h"
#include "support/sample_document.h"

int main(int argc, char** argv) {
    const bool extraPois = argc == 3 && std::strcmp(argv[2], "--extra-pois") == 0;
    if (argc != 2 && !extraPois) {
        std::cerr << "usage: mirvane_make_sample OUT.typ [--extra-pois]\n";
        return 2;
    }
    mirvane::SampleOptions options;
    options.Polygons = mirvane::kPolygonVariants * (extraPois ? 1 : 2);
    options.Polylines = mirvane::kPolylineVariants * (extraPois ? 1 : 2);
    options.Pois = mirvane::kPoiVariants * (extraPois ? 1 : 2);
    options.PoiSize = 16;
    mirvane::Document doc = mirvane::MakeSampleDocument(options);
    const std::string comment = extraPois ? "Mirvane sample: groups of additional POIs"
                                          : "Mirvane sample: every kind of polygon, line and POI";
    doc.HeaderGapBytes.assign(comment.begin(), comment.end());
    doc.Identity.HeaderSize = 156;
    if (extraPois)
        mirvane::AddSampleExtraPois(doc, {{0x11a, 0x01, {{16, 16}, {24, 20}, {32, 32}, {48, 48}, {20, 28}, {72, 40}}},
                                          {0x12b, 0x00, {{16, 16}, {64, 64}}},
                                          {0x2c0, 0x1f, {{10, 10}}}});
    if (const auto failure = mirvane::SaveBinaryTyp(doc, argv[1], {2026, 11, 22, 12, 0, 0})) {
        std::cerr << mirvane::SaveFailureMessage(*failure) << "\n";
        return 1;
    }
    return 0;
}
