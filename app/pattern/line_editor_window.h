// frmPolyline: the editor of one line definition, a solid band or a pattern,
// opened modally for a new line or for a row of ListPolyline.
#pragma once

#include <memory>
#include <optional>

#include "app/pattern/pattern_editor_window.h"
#include "document/document.h"
#include "models/pattern/line_editor_model.h"

class QCheckBox;
class QComboBox;

namespace mirvane {
class MainWindowModel;
}

namespace mirvane::app {

class LineEditorWindow : public PatternEditorWindow {
    Q_OBJECT
public:
    // A new line without `row`, else the line at that row.
    LineEditorWindow(MainWindowModel& main, std::optional<int> row, QWidget* parent = nullptr);

    LineEditorModel& Model() { return model_; }

protected:
    PixelPicture PreviewPicture() const override;
    QSize PreviewSize() const override { return {128, 36}; }
    bool PatternShown() const override { return model_.Height() > 0; }
    void RefreshKind() override;
    void RetranslateKind() override;
    void CopyPattern() override { model_.CopyToClipboard(); }
    void PastePattern() override { model_.PasteFromClipboard(); }
    bool Store() override;

private:
    QWidget* BuildLineFields();
    void CheckWidthOnLeaving(QLineEdit* field, WidthField which);

    MainWindowModel& main_;
    LineEditorModel model_;
    int number_ = 0;  // lblNumero: the row, or the count for a new line
    QLabel *lblHauteur_ = nullptr, *lblLargeur_ = nullptr, *lblBordure_ = nullptr, *lblActivite_ = nullptr;
    QComboBox *cbbHauteur_ = nullptr, *cbbActivite1_ = nullptr;
    QLineEdit *txtLargeur_ = nullptr, *txtBordure_ = nullptr;
    QCheckBox* chkUseOrientation_ = nullptr;
};

// The window on `object` (a line), or on a new line; for --screenshot.
std::unique_ptr<LineEditorWindow> LineEditorWindowOn(MainWindowModel& main, std::optional<ObjectRef> object);

// Shows the editor modally; on OK the document holds the line and the main
// window shows its row.
void EditLine(MainWindowModel& main, QWidget* parent, std::optional<int> row);

}  // namespace mirvane::app
