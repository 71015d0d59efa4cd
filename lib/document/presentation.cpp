#include "document/presentation.h"

#include <cstdio>

#include "document/encoding.h"
#include "lang/lookup.h"
#include "base/numbers.h"

namespace mirvane {

std::string DateCreationCaption(const TypHeader& h) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "    %02d/%02d/%04d     %02d:%02d:%02d", h.Day, h.Month, h.Year, h.Hour,
                  h.Minute, h.Second);
    return buffer;
}

std::string LengthCaption(const std::string& fileLengthText) {
    return GroupedNumber(LeadingNumber(fileLengthText)) + " " + LookupText("Main", "octets", "octets");
}

static std::string Counted(const std::string& caption, const std::string& count) {
    return caption + "  (" + count + ")";
}

std::string PolygonFrameCaption(const Document& doc) {
    return Counted(LookupText("Main", "Liste des polygones", "fraPolygone"), std::to_string(doc.PolygonCount()));
}

std::string PolylineFrameCaption(const Document& doc) {
    return Counted(LookupText("Main", "Liste des polylignes", "fraPolyligne"),
                   std::to_string(doc.PolylineCount) + " - " + std::to_string(doc.ExtraPolylineCount));
}

std::string PoiFrameCaption(const Document& doc) {
    return Counted(LookupText("Main", "Liste des POI", "fraPOI"), std::to_string(doc.PoiCount()));
}

std::string ExtraPoiFrameCaption(const Document& doc) {
    return Counted(LookupText("Main", "Liste des POI additionnels", "fraExtraPOI"), std::to_string(doc.ExtraPoiCount));
}

template <typename Record>
static std::vector<std::string> ListRows(const std::vector<Record>& records) {
    std::vector<std::string> rows;
    rows.reserve(records.size());
    for (const auto& r : records) rows.push_back(ListRowText(r.Type, r.SubType));
    return rows;
}

std::vector<std::string> PolygonListRows(const Document& doc) { return ListRows(doc.Polygons); }
std::vector<std::string> PolylineListRows(const Document& doc) { return ListRows(doc.Polylines); }
std::vector<std::string> PoiListRows(const Document& doc) { return ListRows(doc.Pois); }
std::vector<std::string> ExtraPoiListRows(const Document& doc) { return ListRows(doc.ExtraPois); }

}  // namespace mirvane
