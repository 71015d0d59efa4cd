#include "special/identification_typ.h"

#include <random>
#include <vector>

#include "document/bitmap_codec.h"
#include "document/encoding.h"
#include "document/object_codec.h"
#include "labels/label_block.h"

namespace mirvane {

namespace {

constexpr int kTypesPerRange = 16;
constexpr int kSubTypesPerType = 32;
constexpr int kTypesWithoutSubTypes = 256;
constexpr std::uint8_t kFrenchLanguage = 1;
constexpr std::uint8_t kPolygonLabelFlag = 0x10;
constexpr std::uint8_t kPolylineLabelFlag = 0x01;
constexpr std::uint8_t kPolylineNoOrientationFlag = 0x02;
constexpr std::uint8_t kPoiLabelFlag = 0x04;
constexpr std::uint8_t kPoiBitmapFlag = 0x01;
constexpr std::uint8_t kLineWidth = 3;
constexpr int kPoiSize = 16;

// One object of the range: its codes and the three colour bytes that name it.
struct Identified {
    int Type = 0;
    int SubType = 0;
    std::uint8_t ColourBytes[3] = {};
};

// Colours are 0x00BBGGRR and stored blue first, so the stored bytes run b0, b1, b2.
std::uint32_t ColourOfBytes(const std::uint8_t (&bytes)[3]) {
    return (std::uint32_t{bytes[0]} << 16) | (std::uint32_t{bytes[1]} << 8) | bytes[2];
}

// Byte 0 the subtype, byte 1 the low two digits of the type and byte 2 its
// high digit under a random nibble, so that neighbours on the map differ.
// Without subtypes byte 2 is random whole.
std::vector<Identified> IdentifiedObjects(const IdentificationRange& range, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<Identified> objects;
    objects.reserve(static_cast<std::size_t>(range.ObjectCount()));
    for (int type = range.FirstType; type <= range.LastType; ++type) {
        const int subTypes = range.WithSubTypes ? kSubTypesPerType : 1;
        for (int subType = 0; subType < subTypes; ++subType) {
            Identified object{type, subType};
            object.ColourBytes[0] = static_cast<std::uint8_t>(subType);
            object.ColourBytes[1] = static_cast<std::uint8_t>(type & 0xFF);
            const std::uint32_t draw = random();
            object.ColourBytes[2] = range.WithSubTypes
                                        ? static_cast<std::uint8_t>(((draw >> 28) << 4) | ((type >> 8) & 0x0F))
                                        : static_cast<std::uint8_t>(draw >> 24);
            objects.push_back(object);
        }
    }
    return objects;
}

Bytes LabelOf(const Identified& object, bool withSubTypes) {
    return EncodeLabelBlock({{kFrenchLanguage, IdentificationLabelText(object.Type, object.SubType, withSubTypes)}});
}

// Both backgrounds transparent: one colour, the object's own.
ColourLayout OneColourLayout() {
    ColourLayout layout;
    layout.DayClear = true;
    layout.NightClear = true;
    return layout;
}

template <typename Record>
Record CodedRecord(const Identified& object, bool withSubTypes) {
    Record record;
    record.Type = TypeText(object.Type);
    record.SubType = SubTypeText(object.SubType);
    record.LabelBytes = LabelOf(object, withSubTypes);
    return record;
}

PolygonRecord PolygonOf(const Identified& object, bool withSubTypes) {
    auto record = CodedRecord<PolygonRecord>(object, withSubTypes);
    DecodedPolygon polygon;
    polygon.Layout = OneColourLayout();
    polygon.Colours = {ColourOfBytes(object.ColourBytes)};
    EncodePolygon(polygon, record);
    record.Flags |= kPolygonLabelFlag;
    record.Length = PolygonRecordLength(record);
    return record;
}

PolylineRecord PolylineOf(const Identified& object, bool withSubTypes) {
    auto record = CodedRecord<PolylineRecord>(object, withSubTypes);
    DecodedPolyline line;
    line.Layout = OneColourLayout();
    line.Colours = {ColourOfBytes(object.ColourBytes)};
    line.LineWidth = kLineWidth;
    EncodePolyline(line, record);
    record.Flags2 = kPolylineLabelFlag | kPolylineNoOrientationFlag;
    record.Length = PolylineRecordLength(record);
    return record;
}

// A solid square of the object's colour.
PoiRecord PoiOf(const Identified& object, bool withSubTypes) {
    auto record = CodedRecord<PoiRecord>(object, withSubTypes);
    DecodedPoi poi;
    poi.Width = kPoiSize;
    poi.Height = kPoiSize;
    poi.Day.ColourMode = 16;
    poi.Day.Palette = {PaletteEntry{ColourOfBytes(object.ColourBytes), kOpaqueAlpha}};
    const int bits = BitsPerPixel(poi.Day.ColourMode, 1).value_or(1);
    poi.Day.Indices = IndexGrid(PaddedRowWidth(kPoiSize, bits), kPoiSize, 0);
    record.Flags = kPoiBitmapFlag | kPoiLabelFlag;
    EncodePoi(poi, record);
    record.Length = PoiRecordLength(record);
    return record;
}

// Every polygon at level 1, so that all of them are drawn.
std::vector<DrawOrderEntry> DrawOrderOf(const std::vector<Identified>& objects) {
    std::vector<DrawOrderEntry> entries;
    entries.reserve(objects.size());
    for (const Identified& object : objects) entries.push_back({1, object.Type, object.SubType});
    SortDrawOrder(entries);
    return entries;
}

}  // namespace

std::string UpperHexDigits(int value, int digits) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text(static_cast<std::size_t>(digits), '0');
    for (int k = digits - 1; k >= 0; --k, value >>= 4) text[static_cast<std::size_t>(k)] = kDigits[value & 0x0F];
    return text;
}

IdentificationRange IdentificationRangeAt(int row) {
    if (row <= 0) return {0, kTypesWithoutSubTypes - 1, false};
    const int first = (row - 1) * kTypesPerRange;
    return {first, first + kTypesPerRange - 1, true};
}

std::optional<int> IdentificationRangeRow(int firstType, int lastType) {
    for (int row = 0; row < kIdentificationRangeCount; ++row) {
        const IdentificationRange range = IdentificationRangeAt(row);
        if (range.FirstType == firstType && range.LastType == lastType) return row;
    }
    return std::nullopt;
}

std::string IdentificationLabelText(int type, int subType, bool withSubTypes) {
    if (!withSubTypes) return "  " + UpperHexDigits(type, 2) + "/00";
    return " " + UpperHexDigits(type, 3) + "/" + UpperHexDigits(subType, 2);
}

Document BuildIdentificationTyp(ObjectKind kind, int rangeRow, std::uint32_t seed) {
    const IdentificationRange range = IdentificationRangeAt(rangeRow);
    std::vector<Identified> objects = IdentifiedObjects(range, seed);
    // No map draws a polygon of type 0: its draw order entry, five zero bytes,
    // would read as the step to the next level.
    if (kind == ObjectKind::Polygon) std::erase_if(objects, [](const Identified& object) { return object.Type == 0; });
    Document doc;
    doc.State = DocumentState::New;
    for (const Identified& object : objects) {
        switch (kind) {
            case ObjectKind::Polygon: doc.Polygons.push_back(PolygonOf(object, range.WithSubTypes)); break;
            case ObjectKind::Polyline: doc.Polylines.push_back(PolylineOf(object, range.WithSubTypes)); break;
            case ObjectKind::Poi: doc.Pois.push_back(PoiOf(object, range.WithSubTypes)); break;
        }
    }
    doc.PolylineCount = static_cast<int>(doc.Polylines.size());
    if (kind == ObjectKind::Polygon) doc.DrawOrder = DrawOrderOf(objects);
    return doc;
}

}  // namespace mirvane
