// frmPolygone: the editor of one polygon definition, opened modally for a
// new polygon or for a row of ListPolygone.
#pragma once

#include <memory>
#include <optional>

#include "app/pattern/pattern_editor_window.h"
#include "document/document.h"
#include "models/pattern/polygon_editor_model.h"

class QCheckBox;

namespace mirvane {
class MainWindowModel;
}

namespace mirvane::app {

class PolygonEditorWindow : public PatternEditorWindow {
    Q_OBJECT
public:
    // A new polygon without `row`, else the polygon at that row.
    PolygonEditorWindow(MainWindowModel& main, std::optional<int> row, QWidget* parent = nullptr);

    PolygonEditorModel& Model() { return model_; }

protected:
    PixelPicture PreviewPicture() const override;
    QSize PreviewSize() const override { return {64, 64}; }
    bool PatternShown() const override { return model_.Bitmap(); }
    void RefreshKind() override;
    void RetranslateKind() override;
    void CopyPattern() override { model_.CopyToClipboard(); }
    void PastePattern() override { model_.PasteFromClipboard(); }
    bool Store() override;

private:
    MainWindowModel& main_;
    PolygonEditorModel model_;
    int number_ = 0;  // lblNumero: the row, or the count for a new polygon
    QCheckBox* chkBitmap_ = nullptr;
    QLabel* lblDraworder_ = nullptr;
    QLineEdit* txtDraworder_ = nullptr;
};

// The window on `object` (a polygon), or on a new polygon; for --screenshot.
std::unique_ptr<PolygonEditorWindow> PolygonEditorWindowOn(MainWindowModel& main, std::optional<ObjectRef> object);

// Shows the editor modally; on OK the document holds the polygon and the
// main window shows its row.
void EditPolygon(MainWindowModel& main, QWidget* parent, std::optional<int> row);

}  // namespace mirvane::app
