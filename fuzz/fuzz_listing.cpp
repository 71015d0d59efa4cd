// Lists whatever the binary reader makes of fuzzed bytes, whole and object by
// object with previews: the listing must never crash or read out of bounds.
#include <cstddef>
#include <cstdint>

#include "document/binary_reader.h"
#include "text/listing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace mirvane;
    Document doc;
    ReadBinaryTyp(doc, Bytes(data, data + size), "fuzz.typ");
    const ListingText text = ListWholeDocument(doc, {"", {}});
    (void)text.Rich();
    (void)text.Plain();
    for (int scope = 1; scope <= 3; ++scope) {
        const std::size_t count = scope == 1 ? doc.Polygons.size() : scope == 2 ? doc.Polylines.size() : doc.Pois.size();
        for (std::size_t i = 0; i < count && i < 64; ++i) (void)ListOneObject(doc, scope, static_cast<int>(i), true);
    }
    return 0;
}
