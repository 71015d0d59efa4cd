// What the main window shows of a document, as text, so that the window and
// the tests use the same code.
#pragma once

#include <string>
#include <vector>

#include "document/document.h"

namespace mirvane {

// lblDateCreation: four blanks, "dd/mm/yyyy", five blanks, "hh:mm:ss".
std::string DateCreationCaption(const TypHeader& header);

// lblLongueur: the length in groups of three digits, a blank and "octets".
std::string LengthCaption(const std::string& fileLengthText);

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

}  // namespace mirvane
