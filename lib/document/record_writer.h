// The bytes of one object record as the writer stores it. Whatever the fields
// hold, the result reads back whole: colour layouts 2 and 4 become the known
// layouts of the same picture, each part present under a flag is cut or
// padded to the length a reader takes for it, and a label flag without its
// label is cleared.
#pragma once

#include "document/records.h"

namespace mirvane {

Bytes EncodePolygonRecord(const PolygonRecord& record);
Bytes EncodePolylineRecord(const PolylineRecord& record);
Bytes EncodePoiRecord(const PoiRecord& record);

// What the writer stores: the record's source bytes while it is unchanged
// since it was read, else its encoding.
template <typename Record>
Bytes RecordBytesToWrite(const Record& record, Bytes encoded) {
    if (record.Source.Holds() && encoded == record.Source.Encoded) return record.Source.Slice;
    return encoded;
}

}  // namespace mirvane
