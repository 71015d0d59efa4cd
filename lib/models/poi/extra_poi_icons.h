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
};

// The sub-icons of group `group` (a row of Document::ExtraPois); those that
// run past the data are left out.
std::vector<SubIconSpan> SubIconSpans(const Document& doc, int group);

// The sub-icon as a POI record with the group's Type and SubType; none when
// the group or the sub-icon is not there or its bytes cannot be read.
std::optional<PoiRecord> ReadSubIcon(const Document& doc, int group, int subIcon);

// The bytes of a sub-icon: its length prefix, then the record from its flags on.
Bytes SubIconBytes(const PoiRecord& record);

// Puts `record` in place of the sub-icon; false when it is not there.
bool WriteSubIcon(Document& doc, int group, int subIcon, const PoiRecord& record);

}  // namespace mirvane
