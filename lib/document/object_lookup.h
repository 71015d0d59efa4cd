// Naming an object on a command line by kind, type and optional subtype:
// "polygon:0x03", "line:0x01:0x02", "poi:2f:06".
#pragma once

#include <optional>
#include <string_view>

#include "document/document.h"

namespace mirvane {

struct ObjectName {
    ObjectKind Kind = ObjectKind::Polygon;
    unsigned Type = 0;
    std::optional<unsigned> SubType;  // none: the first object of that type
};

// "polygon", "line" (or "polyline") or "poi", then the type and maybe the
// subtype, in hex with or without 0x; none when the text says something else.
std::optional<ObjectName> ParseObjectName(std::string_view text);

// The row of the first object of that kind, type and subtype.
std::optional<ObjectRef> FindObject(const Document& doc, const ObjectName& name);

}  // namespace mirvane
