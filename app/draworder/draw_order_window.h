// frmDraworder: the draw order as a grid of rows (level, type, subtype, keep
// box) in columns of 25, and beside it the same rows as levels holding their
// polygons' pictures, where a row is dragged onto another level or into the
// gap between two levels. Both edit one working copy; OK writes it to the
// document, Cancel drops it.
#pragma once

#include <QDialog>
#include <QTreeWidget>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "models/draworder/draw_order_model.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QGridLayout;

namespace mirvane {
class MainWindowModel;
}

namespace mirvane::app {

// Where a dragged row lands: on a level, or in the gap before it (one past
// the last level: after the last).
struct DrawOrderDrop {
    int Level = 1;
    bool NewLevel = false;
    bool operator==(const DrawOrderDrop&) const = default;
};

// The levels and their rows; a drop tells the window, which moves the row in
// the model and shows the levels again.
class DrawOrderTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit DrawOrderTree(QWidget* parent);
    // A level header's upper half is the gap before that level, its lower
    // half and its rows the level itself; below every level, a new last one.
    DrawOrderDrop DropAt(QPoint viewportPosition) const;
    // What a drop of the current row at that point does; false when no row is current.
    bool DropCurrentRowAt(QPoint viewportPosition);

signals:
    void RowDropped(int row, DrawOrderDrop drop);

protected:
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<DrawOrderDrop> shown_;  // the drop the pointer is over
};

class DrawOrderWindow : public QDialog {
    Q_OBJECT
public:
    DrawOrderWindow(MainWindowModel& model, QWidget* parent = nullptr);

    DrawOrderModel& Model() { return drawOrder_; }
    void RetranslateUi();

    // cmdOK: the rows kept become the document's draw order.
    void accept() override;

private:
    enum class Field { Level, Type, SubType };
    struct RowWidgets {
        QLabel* Preview = nullptr;
        QLineEdit *Level = nullptr, *Type = nullptr, *SubType = nullptr;  // txtNiveau, txtTypes, txtSubTypes
        QCheckBox* Kept = nullptr;                                        // Check1
    };

    QWidget* BuildGrid();
    QWidget* BuildLevels();
    void AddRowWidgets();
    void EnsureColumnHeaders(int column);
    void FitGrid();
    void CaptionHeaders(const std::array<QLabel*, 3>& labels);
    void FinishField(int row, Field field);
    void ShowRow(int row);
    void ShowRows();
    void ShowLevels();
    QPixmap PreviewOf(const DrawOrderRow& row, int side) const;

    MainWindowModel& model_;
    DrawOrderModel drawOrder_;
    bool fieldRefused_ = false;  // a field check failed while Enter was on its way to OK
    std::vector<RowWidgets> rows_;
    std::vector<std::array<QLabel*, 3>> headers_;  // level, type, subtype captions of each column of rows
    QScrollArea* Picture1_ = nullptr;
    QGridLayout* grid_ = nullptr;
    QCheckBox* chkAll_ = nullptr;
    QLabel *lblExemple1_ = nullptr, *lblExemple2_ = nullptr, *lblExemple3_ = nullptr, *lblExemple4_ = nullptr;
    QLabel* lblGlisser_ = nullptr;
    DrawOrderTree* treeNiveaux_ = nullptr;
    QPushButton *cmdAjouter_ = nullptr, *cmdOK_ = nullptr, *cmdAnnuler_ = nullptr;
};

// cmdDraworder: the window, modal; true when OK changed the document.
bool ShowDrawOrderWindow(MainWindowModel& model, QWidget* parent);

// The window on the open document, for --screenshot.
std::unique_ptr<QWidget> DrawOrderWindowForScreenshot(MainWindowModel& model);

}  // namespace mirvane::app
