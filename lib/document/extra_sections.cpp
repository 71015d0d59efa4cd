#include "document/extra_sections.h"

#include <algorithm>
#include <cstdio>

#include "lang/lookup.h"

namespace mirvane {

namespace {

// Row n of a table as " 0A 1B ..."; bytes the table does not hold are left out.
std::string HexRow(const Bytes& table, std::int64_t recordSize, std::int64_t row) {
    std::string text;
    if (recordSize <= 0) return text;
    const std::int64_t first = row * recordSize;
    const std::int64_t last = std::min<std::int64_t>(first + recordSize, static_cast<std::int64_t>(table.size()));
    for (std::int64_t at = first; at < last; ++at) {
        char hex[4];
        std::snprintf(hex, sizeof hex, " %02X", table[static_cast<std::size_t>(at)]);
        text += hex;
    }
    return text;
}

}  // namespace

LabelsBrowserContent LabelsBrowserText(const Document& doc) {
    LabelsBrowserContent content;
    content.Caption = LookupText("Labels", "Liste des POIs supplémentaires", "lblLabels");
    content.CloseCaption = LookupText("Labels", "Fermer", "lblFermer");
    const HeaderExtra2& e = doc.Extra2;
    if (e.LabelTextLength < 1) {
        content.Text = LookupText("Labels", "Aucun POI supplémentaire", "txtPasdePOI");
        return content;
    }
    const Bytes& strings = doc.LabelTextBytes;
    const std::size_t end = std::min<std::size_t>(static_cast<std::size_t>(e.LabelTextLength), strings.size());
    std::size_t pos = 0;
    while (pos < end) {
        std::size_t stop = pos;
        while (stop < end && strings[stop] != 0) ++stop;
        content.Text += kLineBreak;
        content.Text += HexRow(doc.LabelTable1Bytes, e.LabelTable1RecordSize, content.RowCount) + "\t" +
                        HexRow(doc.LabelTable2Bytes, e.LabelTable2RecordSize, content.RowCount) + "\t\t";
        content.Text.append(strings.begin() + static_cast<long>(pos), strings.begin() + static_cast<long>(stop));
        ++content.RowCount;
        pos = stop + 1;
    }
    content.Caption += "  (" + std::to_string(content.RowCount) + ")";
    return content;
}

}  // namespace mirvane
