#include "app/text/listing_document.h"

#include <QColor>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include "base/codepage.h"
#include "app/common/texts.h"

namespace mirvane::app {

QString DecodePaneText(const std::string& bytes, int codePage) {
    QString text = DecodeDocumentText(bytes, codePage);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text;
}

void FillListingDocument(QTextDocument& document, const ListingText& listing, int codePage,
                         const std::array<PaneColour, 4>& colours) {
    std::array<QTextCharFormat, 4> formats;
    for (std::size_t i = 0; i < formats.size(); ++i)
        formats[i].setForeground(QColor(colours[i].Red, colours[i].Green, colours[i].Blue));

    document.setUndoRedoEnabled(false);
    document.clear();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    // Pieces of one colour are gathered and inserted as one run.
    QString run;
    int runColour = 0;
    auto addRun = [&](int colour, const QString& text) {
        if (colour != runColour && !run.isEmpty()) {
            cursor.insertText(run, formats[runColour]);
            run.clear();
        }
        runColour = colour;
        run += text;
    };
    for (const ListingPiece& piece : listing.Pieces()) {
        switch (piece.Role) {
        case PieceRole::LineBreak:
        case PieceRole::LabelLineBreak: run += QChar('\n'); break;
        case PieceRole::IdEnd: addRun(0, QStringLiteral(" ")); [[fallthrough]];
        default:
            addRun(PieceColourIndex(piece.Role), DecodePaneText(std::string(listing.BytesOf(piece)), codePage));
            break;
        }
    }
    if (!run.isEmpty()) cursor.insertText(run, formats[runColour]);
    cursor.endEditBlock();
    document.setUndoRedoEnabled(true);
}

std::string PaneBytes(const QTextDocument& document, int codePage) {
    // The raw text keeps no-break spaces, which the plain text turns into blanks.
    QString text = document.toRawText();
    text.replace(QChar::ParagraphSeparator, QStringLiteral("\r\n"));
    return EncodeCodePage(text.toStdString(), codePage);
}

}  // namespace mirvane::app
