// The editor windows the main window opens: the object editors from the Add
// and Edit buttons, a double click or Enter in a list, and the draw order
// editor and the additional POI browser from their buttons.
#pragma once

#include <optional>

#include "document/document.h"

class QWidget;

namespace mirvane {
class MainWindowModel;
}

namespace mirvane::app {

enum class EditorWindow { Polygon, Polyline, Poi, DrawOrder, Icons };

EditorWindow EditorOf(ObjectKind kind);

// Shows the window modally over `parent`, on `object` (none: a new object, or
// the whole document for the draw order and the browser). On OK the window
// has written the document and told the model what changed.
void OpenEditor(EditorWindow window, MainWindowModel& model, QWidget* parent, std::optional<ObjectRef> object);

// The POI editor on sub-icon `subIcon` of the additional POI group `group`
// (a row of Document::ExtraPois), from the additional POI browser; true when
// OK changed the document.
bool OpenExtraPoiEditor(MainWindowModel& model, QWidget* parent, int group, int subIcon);

}  // namespace mirvane::app
