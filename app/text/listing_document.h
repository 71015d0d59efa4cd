// The listing in the text pane: the pieces of a listing become the text of a
// QTextDocument, coloured by their role, decoded from the document's code page.
#pragma once

#include <QString>
#include <array>
#include <string>

#include "models/textpane/text_pane_session.h"
#include "text/listing_text.h"

class QTextDocument;

namespace mirvane::app {

// Replaces the content of `document` in one pass; the undo stack starts empty.
void FillListingDocument(QTextDocument& document, const ListingText& listing, int codePage,
                         const std::array<PaneColour, 4>& colours);

// The pane's text as document bytes: CR LF line ends, encoded in `codePage`.
std::string PaneBytes(const QTextDocument& document, int codePage);

// Document bytes for a widget: decoded, CR LF as "\n".
QString DecodePaneText(const std::string& bytes, int codePage);

}  // namespace mirvane::app
