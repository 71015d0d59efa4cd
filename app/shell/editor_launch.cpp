#include "app/shell/editor_launch.h"

#include "app/poi/poi_editor_window.h"
#include "models/shell/main_window_model.h"

namespace mirvane::app {

EditorWindow EditorOf(ObjectKind kind) {
    switch (kind) {
        case ObjectKind::Polygon: return EditorWindow::Polygon;
        case ObjectKind::Polyline: return EditorWindow::Polyline;
        case ObjectKind::Poi: break;
    }
    return EditorWindow::Poi;
}

bool EditorBuilt(EditorWindow window) {
    switch (window) {
        case EditorWindow::Polygon: return false;
        case EditorWindow::Polyline: return false;
        case EditorWindow::Poi: return true;
        case EditorWindow::DrawOrder: return false;
        case EditorWindow::Icons: return false;
    }
    return false;
}

void OpenEditor(EditorWindow window, MainWindowModel& model, QWidget* parent, std::optional<ObjectRef> object) {
    switch (window) {
        case EditorWindow::Polygon: break;
        case EditorWindow::Polyline: break;
        case EditorWindow::Poi:
            OpenPoiEditor(model, parent, object && object->Kind == ObjectKind::Poi ? std::optional(object->Row)
                                                                                   : std::nullopt);
            break;
        case EditorWindow::DrawOrder: break;
        case EditorWindow::Icons: break;
    }
}

bool OpenExtraPoiEditor(MainWindowModel& model, QWidget* parent, int group, int subIcon) {
    PoiEditorWindow window(model, PoiEditorTarget::SubIconOf(group, subIcon), parent);
    return window.exec() == QDialog::Accepted;
}

}  // namespace mirvane::app
