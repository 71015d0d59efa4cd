// What the main window shows of a document, as text, so that the window and
// the tests use the same code.
#pragma once

#include <string>
#include <vector>

#include "document/document.h"

namespace mirvane {

inline constexpr int kKnownHeaderSizes[] = {91, 110, 156, 164, 174};

// lblDateCreation: four blanks, "dd/mm/yyyy", five blanks, "hh:mm:ss".
std::string DateCreationCaption(const TypHeader& header);

// lblLongueur: the length in groups of three digits, a blank and "octets".
std::string LengthCaption(const std::string& fileLengthText);

// The five items of cbbHeadersize.
std::vector<std::string> HeaderSizeItems();

// Index and text of cbbHeadersize for a header size; an unknown size gives
// index 5 and the text "<size> octets : format inconnu".
void SelectHeaderSize(IdentityFields& fields, int headerSize);

// The header size the writer uses: the known size of the index, else the
// first blank-separated word of the combo's text.
int ChosenHeaderSize(const IdentityFields& fields);

// Tool tip of cbbHeadersize.
std::string HeaderSizeTip(const IdentityFields& fields);

// "Liste des polygones  (12)" and the like; polylines show both counts.
std::string PolygonFrameCaption(const Document& doc);
std::string PolylineFrameCaption(const Document& doc);
std::string PoiFrameCaption(const Document& doc);
std::string ExtraPoiFrameCaption(const Document& doc);

// Rows of ListPolygone, ListPolyline, ListPOI and ListExtraPOI in record order.
std::vector<std::string> PolygonListRows(const Document& doc);
std::vector<std::string> PolylineListRows(const Document& doc);
std::vector<std::string> PoiListRows(const Document& doc);
std::vector<std::string> ExtraPoiListRows(const Document& doc);

// Code page of cbbCodepage's selection, 0 when none.
int SelectedCodePage(const IdentityFields& fields);

}  // namespace mirvane
