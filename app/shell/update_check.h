// The check for a newer version at start, when the user asked for it.
#pragma once

#include <QString>

class QWidget;

namespace mirvane::app {

// Fetches the plain text version at `address` in the background and, when it
// is newer (or empty), tells the user in a window over `parent`. A failed
// fetch says nothing: the program goes on as it is.
void StartUpdateCheck(const QString& address, QWidget* parent);

}  // namespace mirvane::app
