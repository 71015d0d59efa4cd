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

std::vector<std::string> HeaderSizeItems() {
    return {"91 " + LookupText("Main", "(ancien format)", "cbbHeaderSize0"),
            "110 " + LookupText("Main", "(+ Extra POI)", "cbbHeaderSize1"),
            "156 " + LookupText("Main", "(+ labels)", "cbbHeaderSize2"),
            "164 " + LookupText("Main", "(+ inconnu...)", "cbbHeaderSize3"),
            "174 " + LookupText("Main", "(+ Active Routing)", "cbbHeaderSize4")};
}

void SelectHeaderSize(IdentityFields& fields, int headerSize) {
    const std::vector<std::string> items = HeaderSizeItems();
    for (int i = 0; i < 5; ++i) {
        if (kKnownHeaderSizes[i] == headerSize) {
            fields.HeaderSizeIndex = i;
            fields.HeaderSizeText = items[i];
            return;
        }
    }
    fields.HeaderSizeIndex = 5;
    fields.HeaderSizeText =
        std::to_string(headerSize) + " " + LookupText("Main", "octets : format inconnu", "cbbHeaderInconnu");
}

int ChosenHeaderSize(const IdentityFields& fields) {
    if (fields.HeaderSizeIndex >= 0 && fields.HeaderSizeIndex < 5) return kKnownHeaderSizes[fields.HeaderSizeIndex];
    return static_cast<int>(LeadingNumber(fields.HeaderSizeText));
}

static std::string FirstWord(const std::string& text) { return text.substr(0, text.find(' ')); }

std::string HeaderSizeTip(const IdentityFields& fields) {
    std::string tip = LookupText("Main", "La taille de l'entête est de", "cbbHeadersizeTip1") + " " +
                      FirstWord(fields.HeaderSizeText) + " " + LookupText("Main", "octets", "cbbHeadersizeTip2") + ".";
    if (fields.HeaderSizeIndex <= 0) return tip;
    tip += kLineBreak;
    tip += LookupText("Main", "Ce fichier TYP peut donc contenir, en plus des polygones, polylignes et POI habituels",
                      "cbbHeadersizeTip3") + " :";
    static const char* const kDefaults[] = {"des POI supplémentaires", "des labels supplémentaires",
                                            "des données encore inconnues", "des polylignes pour l'active routing",
                                            "d'autres données encore inconnues..."};
    for (int above = 0; above < 5 && fields.HeaderSizeIndex > above; ++above) {
        tip += kLineBreak;
        tip += "\t" + LookupText("Main", kDefaults[above], "cbbHeadersizeTip" + std::to_string(above + 4));
    }
    return tip;
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

int SelectedCodePage(const IdentityFields& fields) {
    return fields.CodePageIndex >= 0 && fields.CodePageIndex <= 8 ? 1250 + fields.CodePageIndex : 0;
}

}  // namespace mirvane
