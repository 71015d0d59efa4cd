#include "app/shell/editor_launch.h"

#include "app/draworder/draw_order_window.h"
#include "app/pattern/line_editor_window.h"
#include "app/pattern/polygon_editor_window.h"
#include "app/poi/icons_window.h"
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

void OpenEditor(EditorWindow window, MainWindowModel& model, QWidget* parent, std::optional<ObjectRef> object) {
    const std::optional<int> row = object ? std::optional<int>(object->Row) : std::nullopt;
    switch (window) {
        case EditorWindow::Polygon: EditPolygon(model, parent, row); break;
        case EditorWindow::Polyline: EditLine(model, parent, row); break;
        case EditorWindow::Poi: OpenPoiEditor(model, parent, row); break;
        case EditorWindow::DrawOrder: ShowDrawOrderWindow(model, parent); break;
        case EditorWindow::Icons: ShowIconsWindow(model, parent); break;
    }
}

bool OpenExtraPoiEditor(MainWindowModel& model, QWidget* parent, int group, int subIcon) {
    PoiEditorWindow window(model, PoiEditorTarget::SubIconOf(group, subIcon), parent);
    return window.exec() == QDialog::Accepted;
}

}  // namespace mirvane::app
