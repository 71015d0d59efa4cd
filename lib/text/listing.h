// The text listing of a TYP document: the only writer of the text dialect.
// Bytes stay bytes: labels and the comment text are copied in the document's
// code page, and the program's own accented words are Windows-1252.
#pragma once

#include <stdexcept>
#include <string>

#include "document/document.h"
#include "text/listing_clock.h"
#include "text/listing_text.h"

namespace mirvane {

// A record that lacks what its flags announce, found while listing it. The
// object routines catch it, log the object and drop its text.
struct ListingFault : std::runtime_error {
    ListingFault() : std::runtime_error("record lacks what its flags announce") {}
};

// What the whole listing takes from the main window beside the document.
struct ListingContext {
    std::string DateCreation;  // caption of lblDateCreation (DateCreationCaption)
    ListingClock Now;          // for "; Décompilé le ... à ..."
    bool WithHeadings = true;  // the four heading comments of a document read from a binary
};

// The whole document, as cmdvoirtxt_Click shows it. Broken objects are
// logged in doc.ReadErrorLog and left out; the rest is listed.
ListingText ListWholeDocument(Document& doc, const ListingContext& context,
                              ListingForm form = ListingForm::Pieces);

// Append the text of one object. An index out of range lists nothing.
void AffichePolygone(Document& doc, int index, ListingText& text);
void AffichePolyline(Document& doc, int index, ListingText& text);
void AffichePOI(Document& doc, int index, ListingText& text);

// The String<N>= lines of a label block. A bad block is logged with the
// type and subtype of the object `index` of `kind`.
void lecture_Labels(ListingText& text, const Bytes& labelBytes, Document& doc, int index, ObjectKind kind);

// FontStyle=, CustomColor= and the custom colour lines. A block too short
// for its colours throws ListingFault.
void lecture_ExtendedLabels(const Bytes& extendedLabelBytes, ListingText& text);

// The listing shown when an object is picked; its Rich() form is the pane's
// content. An object the document does not hold lists nothing.
ListingText ListOneObject(Document& doc, ObjectRef object);

}  // namespace mirvane
