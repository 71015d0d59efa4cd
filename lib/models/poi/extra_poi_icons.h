// The sub-icons of the additional POI groups as POI records: read from the
// group's bytes, and written back in place, the groups behind moving with
// the change of length.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "document/document.h"

namespace mirvane {

// Where one sub-icon stands in Document::ExtraPoiDataBytes, its length
// prefix included.
struct SubIconSpan {
    std::size_t Start = 0;
    std::size_t Length = 0;
    std::size_t Prefix = 2;  // bytes of the length prefix, 1 or 2
    std::size_t BodyStart() const { return Start + Prefix; }
    std::size_t BodyLength() const { return Length - Prefix; }
};

// The sub-icons of the group at `groupStart` in `data`: the count byte, a
// byte nothing reads, then each sub-icon behind its length prefix. The walk
// stops at a prefix it cannot read or a zero length; the last span may run
// past the data. `declared` gets the count byte, 0 when even that is missing.
std::vector<SubIconSpan> WalkSubIcons(const Bytes& data, std::size_t groupStart, int& declared);

// The sub-icons of group `group` (a row of Document::ExtraPois); those that
// run past the data are left out.
std::vector<SubIconSpan> SubIconSpans(const Document& doc, int group);

struct SubIconBody {
    PoiRecord Record;      // Flags, size, bitmaps and labels, read as a POI's are
    bool Damaged = false;  // it runs past the data or past its stated length
};
// The sub-icon's body, from its Flags byte on, read as the POI section's
// reader reads a record: a body that declares no colours but does not fill
// its length as true colour is palette coded.
SubIconBody ReadSubIconBody(const Bytes& data, const SubIconSpan& span);

// The sub-icon as a POI record with the group's Type and SubType; none when
// the group or the sub-icon is not there or its bytes cannot be read.
std::optional<PoiRecord> ReadSubIcon(const Document& doc, int group, int subIcon);

// The bytes of a sub-icon: its length prefix, then the record from its flags on.
Bytes SubIconBytes(const PoiRecord& record);

// Puts `record` in place of the sub-icon; false when it is not there.
bool WriteSubIcon(Document& doc, int group, int subIcon, const PoiRecord& record);

}  // namespace mirvane
