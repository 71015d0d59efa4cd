// How the comparison and the lint name an object: its kind, type and subtype,
// the identity a map uses to find its drawing.
#pragma once

#include <string>

#include "colour/palette.h"
#include "document/document.h"

namespace mirvane {

struct ObjectKey {
    ObjectKind Kind = ObjectKind::Polygon;
    int Type = 0;
    int SubType = 0;
    auto operator<=>(const ObjectKey&) const = default;
};

ObjectKey KeyOf(const Document& doc, ObjectRef object);

// "polygon 0x003,0x00", "line 0x10f,0x01", "POI 0x2f,0x06".
std::string ObjectName(const ObjectKey& key);

// The draw order row a polygon is drawn by: below type 0x100 the row names
// the type alone, as the binary draw order stores no subtype there.
bool DrawOrderRowCovers(const DrawOrderEntry& row, int type, int subType);

}  // namespace mirvane
