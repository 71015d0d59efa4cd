// The records of one TYP document. Variable parts stay raw bytes in disk form:
// nothing is decoded at load time, and the writer needs nothing but these records.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/bytes.h"

namespace mirvane {

// Line break used in every text the core builds (logs, listings): CR LF, the
// line end of the TYP texts that map projects share and compilers read.
inline constexpr const char* kLineBreak = "\r\n";

struct TypHeader {
    std::uint16_t HeaderSize = 0;
    std::array<char, 10> Signature{};
    std::uint16_t FormatMark = 0;
    std::uint16_t Year = 0;
    std::uint8_t Month = 0, Day = 0, Hour = 0, Minute = 0, Second = 0;
    std::uint16_t CodePage = 0;
    std::int32_t PoiDataOffset = 0, PoiDataLength = 0;
    std::int32_t PolylineDataOffset = 0, PolylineDataLength = 0;
    std::int32_t PolygonDataOffset = 0, PolygonDataLength = 0;
    std::int16_t FamilyId = 0;
    std::int16_t ProductCode = 0;
    std::int32_t PoiIndexOffset = 0;
    std::uint16_t PoiIndexRecordSize = 0;
    std::int32_t PoiIndexLength = 0;
    std::int32_t PolylineIndexOffset = 0;
    std::uint16_t PolylineIndexRecordSize = 0;
    std::int32_t PolylineIndexLength = 0;
    std::int32_t PolygonIndexOffset = 0;
    std::uint16_t PolygonIndexRecordSize = 0;
    std::int32_t PolygonIndexLength = 0;
    std::int32_t DrawOrderOffset = 0;
    std::uint16_t DrawOrderRecordSize = 0;
    std::int32_t DrawOrderLength = 0;
};

// Bytes 91..109: additional POI sections.
struct HeaderExtra1 {
    std::int32_t ExtraPoiIndexOffset = 0;
    std::uint16_t ExtraPoiIndexRecordSize = 0;
    std::int32_t ExtraPoiIndexLength = 0;
    std::uint8_t ExtraPoiMark = 0;
    std::int32_t ExtraPoiDataOffset = 0;
    std::int32_t ExtraPoiDataLength = 0;
};

// Bytes 110..155: additional label sections.
struct HeaderExtra2 {
    std::array<std::uint8_t, 4> LabelReserved1{};
    std::int32_t LabelTextOffset = 0;
    std::int32_t LabelTextLength = 0;
    std::int32_t LabelTable1RecordSize = 0;
    std::array<std::uint8_t, 4> LabelReserved2{};
    std::int32_t LabelTable1Offset = 0;
    std::int32_t LabelTable1Length = 0;
    std::int32_t LabelTable2RecordSize = 0;
    std::array<std::uint8_t, 4> LabelReserved3{};
    std::int32_t LabelTable2Offset = 0;
    std::int32_t LabelTable2Length = 0;
    std::array<std::uint8_t, 2> LabelReserved4{};
};

// Bytes 156..163, meaning unknown, held raw.
struct HeaderExtra3 {
    std::array<std::uint8_t, 8> Raw{};
};

// Bytes 164..173: the index of polylines for active routing.
struct HeaderExtra4 {
    std::int32_t ExtraPolylineIndexOffset = 0;
    std::uint16_t ExtraPolylineIndexRecordSize = 0;
    std::int32_t ExtraPolylineIndexLength = 0;
};

// The bytes a record was read from, up to the next record, kept only when
// they differ from what its fields encode to (a record shorter than its
// flags say, say): while the fields still encode as they did when read, the
// record is unchanged and the writer stores these bytes.
struct SourceBytes {
    Bytes Slice;
    Bytes Encoded;
    bool Holds() const { return !Slice.empty(); }
};

struct PolygonRecord {
    std::string Type;     // three lowercase hex digits
    std::string SubType;  // two lowercase hex digits
    std::int32_t Offset = 0;
    std::uint8_t Flags = 0;
    Bytes ColourBytes;
    Bytes PatternBytes;  // 128 bytes when Flags bit 3 is set
    Bytes LabelBytes;
    std::int32_t Length = 0;
    Bytes ExtendedLabelBytes;
    SourceBytes Source;
};

struct PolylineRecord {
    std::string Type;
    std::string SubType;
    std::int32_t Offset = 0;
    std::uint8_t Flags1 = 0;
    std::uint8_t Flags2 = 0;
    Bytes ColourBytes;
    Bytes PatternBytes;  // width bytes, or 4 bytes a pattern row
    Bytes LabelBytes;
    std::int32_t Length = 0;
    Bytes ExtendedLabelBytes;
    std::array<std::uint8_t, 2> ExtraIndexBytes{};  // both zero for a regular polyline
    SourceBytes Source;
};

struct PoiBitmap {
    std::uint8_t ColourCount = 0;  // 0 means true colour
    std::uint8_t ColourMode = 0;   // 0, 16 or 32
    Bytes PaletteBytes;
    Bytes PixelBytes;
    bool ForcePalette = false;  // declares 0 colours but is palette coded
};

struct PoiRecord {
    std::string Type;
    std::string SubType;
    std::int32_t Offset = 0;
    std::uint8_t Flags = 0;
    std::uint8_t Width = 0;
    std::uint8_t Height = 0;
    std::array<PoiBitmap, 2> Bitmaps;  // 0 day, 1 night
    Bytes LabelBytes;
    std::int32_t Length = 0;
    Bytes ExtendedLabelBytes;
    SourceBytes Source;
};

struct ExtraPoiRecord {
    std::string Type;
    std::string SubType;
    std::int32_t Offset = 0;
};

enum class ObjectKind { Polygon = 1, Polyline = 2, Poi = 3 };

}  // namespace mirvane
