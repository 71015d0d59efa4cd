// Colours of the document (0x00BBGGRR) as the widgets show them.
#pragma once

#include <QColor>
#include <QString>
#include <cstdint>

#include "colour/palette.h"

namespace mirvane::app {

inline QColor QColourOf(std::uint32_t colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

// "#RRGGBB", the text of a colour field.
inline QString HtmlOf(std::uint32_t colour) { return QString::fromStdString(ColourText(static_cast<Colour>(colour))); }

// A field filled with `colour`: its text white where the green is dark, else
// black, so that it stays readable.
inline QString FilledStyle(std::uint32_t colour) {
    const bool dark = ((colour >> 8) & 0xFF) < 202;
    return QStringLiteral("background: %1; color: %2;")
        .arg(HtmlOf(colour), dark ? QStringLiteral("white") : QStringLiteral("black"));
}

}  // namespace mirvane::app
