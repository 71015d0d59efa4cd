// Lists and draws records made of fuzzed bytes, whole and object by object:
// neither the listing nor the decoders may crash or read out of bounds,
// whatever the flags say about the byte arrays. The records are built here rather than
// by the binary reader so that every run reaches the listing.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>

#include "document/encoding.h"
#include "document/object_preview.h"
#include "text/listing.h"

namespace {

using namespace mirvane;

Bytes Block(FuzzedDataProvider& in, std::size_t most) {
    return in.ConsumeBytes<std::uint8_t>(in.ConsumeIntegralInRange<std::size_t>(0, most));
}

PoiBitmap Bitmap(FuzzedDataProvider& in) {
    PoiBitmap bitmap;
    bitmap.ColourCount = in.ConsumeIntegral<std::uint8_t>();
    bitmap.ColourMode = in.PickValueInArray<std::uint8_t>({0, 16, 32, 8});
    bitmap.ForcePalette = in.ConsumeBool();
    bitmap.PaletteBytes = Block(in, 900);
    bitmap.PixelBytes = Block(in, 4000);
    return bitmap;
}

Document FuzzedDocument(FuzzedDataProvider& in) {
    Document doc;
    doc.State = DocumentState::Loaded;
    doc.HeaderGapBytes = Block(in, 64);
    doc.DrawOrderRows.push_back(in.ConsumeRandomLengthString(40));
    for (int i = in.ConsumeIntegralInRange(0, 4); i > 0; --i) {
        PolygonRecord r;
        r.Type = TypeText(in.ConsumeIntegralInRange(0, 0x1FF));
        r.SubType = "00";
        r.Flags = in.ConsumeIntegral<std::uint8_t>();
        r.ColourBytes = Block(in, 12);
        r.PatternBytes = Block(in, 128);
        r.LabelBytes = Block(in, 40);
        r.ExtendedLabelBytes = Block(in, 7);
        doc.Polygons.push_back(std::move(r));
    }
    for (int i = in.ConsumeIntegralInRange(0, 4); i > 0; --i) {
        PolylineRecord r;
        r.Type = "001";
        r.SubType = "00";
        r.Flags1 = in.ConsumeIntegral<std::uint8_t>();
        r.Flags2 = in.ConsumeIntegral<std::uint8_t>();
        r.ColourBytes = Block(in, 12);
        r.PatternBytes = Block(in, 124);
        r.LabelBytes = Block(in, 40);
        r.ExtendedLabelBytes = Block(in, 7);
        doc.Polylines.push_back(std::move(r));
    }
    doc.PolylineCount = in.ConsumeIntegralInRange<int>(-1, static_cast<int>(doc.Polylines.size()) + 1);
    for (int i = in.ConsumeIntegralInRange(0, 3); i > 0; --i) {
        PoiRecord r;
        r.Type = "02f";
        r.SubType = "01";
        r.Flags = in.ConsumeIntegral<std::uint8_t>();
        r.Width = in.ConsumeIntegralInRange<std::uint8_t>(0, 40);
        r.Height = in.ConsumeIntegralInRange<std::uint8_t>(0, 40);
        r.Bitmaps[0] = Bitmap(in);
        r.Bitmaps[1] = Bitmap(in);
        r.LabelBytes = Block(in, 40);
        r.ExtendedLabelBytes = Block(in, 7);
        doc.Pois.push_back(std::move(r));
    }
    return doc;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    Document doc = FuzzedDocument(in);
    const ListingText text = ListWholeDocument(doc, {"", {}});
    (void)text.Rich();
    (void)text.Plain();
    for (ObjectKind kind : kObjectKinds) {
        for (int i = -1; i < 5; ++i) {
            (void)ListOneObject(doc, ObjectRef{kind, i}).Rich();
            (void)PreviewOfObject(doc, ObjectRef{kind, i});
        }
    }
    return 0;
}
