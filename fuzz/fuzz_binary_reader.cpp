// Any bytes read as a binary TYP: the reader must log and go on, never crash,
// hang or read outside the buffer. A clean read is also written back, and
// what was written must read back cleanly, unless a record is kept with bytes
// shorter than its fields: it reads on into whatever follows it.
#include <cstddef>
#include <cstdint>

#include "document/binary_reader.h"
#include "document/binary_writer.h"

namespace {

template <typename Records>
bool AnyShort(const Records& records) {
    for (const auto& r : records)
        if (r.Source.Slice.size() < r.Source.Encoded.size()) return true;
    return false;
}

bool HoldsShortRecord(const mirvane::Document& doc) {
    return AnyShort(doc.Polygons) || AnyShort(doc.Polylines) || AnyShort(doc.Pois);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const mirvane::Bytes file(data, data + size);
    mirvane::Document doc;
    mirvane::ReadBinaryTyp(doc, file, "fuzz.typ");
    if (!doc.ReadErrorFlag) {
        mirvane::Bytes out;
        if (mirvane::BuildBinaryTyp(doc, out, {})) return 0;
        mirvane::Document reread;
        mirvane::ReadBinaryTyp(reread, out, "rewritten.typ");
        if (reread.ReadErrorFlag && !HoldsShortRecord(doc)) __builtin_trap();
    }
    return 0;
}
