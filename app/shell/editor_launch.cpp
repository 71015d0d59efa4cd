#include "app/shell/editor_launch.h"

#include "app/draworder/draw_order_window.h"
#include "app/poi/icons_window.h"
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
        case EditorWindow::Poi: return false;
        case EditorWindow::DrawOrder: return true;
        case EditorWindow::Icons: return true;
    }
    return false;
}

void OpenEditor(EditorWindow window, MainWindowModel& model, QWidget* parent, std::optional<ObjectRef> object) {
    switch (window) {
        case EditorWindow::Polygon: break;
        case EditorWindow::Polyline: break;
        case EditorWindow::Poi: break;
        case EditorWindow::DrawOrder: ShowDrawOrderWindow(model, parent); break;
        case EditorWindow::Icons: ShowIconsWindow(model, parent); break;
    }
}

bool OpenExtraPoiEditor(MainWindowModel& model, QWidget* parent, int group, int subIcon) { return false; }

}  // namespace mirvane::app
