#include "compare/object_key.h"

#include <cstdio>

#include "document/encoding.h"

namespace mirvane {

namespace {

const std::string& TypeString(const Document& doc, ObjectRef object) {
    switch (object.Kind) {
        case ObjectKind::Polygon: return doc.Polygons[object.Row].Type;
        case ObjectKind::Polyline: return doc.Polylines[object.Row].Type;
        case ObjectKind::Poi: break;
    }
    return doc.Pois[object.Row].Type;
}

const std::string& SubTypeString(const Document& doc, ObjectRef object) {
    switch (object.Kind) {
        case ObjectKind::Polygon: return doc.Polygons[object.Row].SubType;
        case ObjectKind::Polyline: return doc.Polylines[object.Row].SubType;
        case ObjectKind::Poi: break;
    }
    return doc.Pois[object.Row].SubType;
}

const char* KindWord(ObjectKind kind) {
    switch (kind) {
        case ObjectKind::Polygon: return "polygon";
        case ObjectKind::Polyline: return "line";
        case ObjectKind::Poi: break;
    }
    return "POI";
}

}  // namespace

ObjectKey KeyOf(const Document& doc, ObjectRef object) {
    return {object.Kind, HexValue(TypeString(doc, object)), HexValue(SubTypeString(doc, object))};
}

std::string ObjectName(const ObjectKey& key) {
    char text[48];
    std::snprintf(text, sizeof text, "%s 0x%03x,0x%02x", KindWord(key.Kind), static_cast<unsigned>(key.Type),
                  static_cast<unsigned>(key.SubType));
    return text;
}

bool DrawOrderRowCovers(const DrawOrderEntry& row, int type, int subType) {
    if (row.Type != type) return false;
    return type < 0x100 || row.SubType == subType;
}

}  // namespace mirvane
