// frmIcones: the groups of additional POIs of the document, the sub-icons of
// the chosen group as thumbnails, one of them enlarged, and the two actions:
// open a sub-icon in the POI editor, copy it to the POI clipboard.
#pragma once

#include <QDialog>
#include <QLabel>
#include <array>
#include <memory>

#include "models/poi/extra_poi_browser_model.h"

class QCheckBox;
class QPushButton;
class QScrollArea;
class QTreeWidget;

namespace mirvane {
class MainWindowModel;
}

namespace mirvane::app {

// A thumbnail that tells its clicks; the selection border is drawn round it.
class SubIconThumbnail : public QLabel {
    Q_OBJECT
public:
    explicit SubIconThumbnail(QWidget* parent);
    void SetBordered(bool bordered);

signals:
    void Clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

class IconsWindow : public QDialog {
    Q_OBJECT
public:
    IconsWindow(MainWindowModel& model, QWidget* parent = nullptr);

    ExtraPoiBrowserModel& Model() { return browser_; }
    void RetranslateUi();

private:
    QWidget* BuildList();
    QWidget* BuildEnlargement();
    QWidget* BuildThumbnails();
    // lstvExtraPOI filled again from the model, `group` selected.
    void ShowGroups(int group);
    void ShowSubIcons();
    void ShowEnlarged();
    void EditSubIcon();

    MainWindowModel& model_;
    ExtraPoiBrowserModel browser_;
    QTreeWidget* lstvExtraPOI_ = nullptr;
    QLabel *Label1_ = nullptr, *Label2_ = nullptr, *Label3_ = nullptr, *Label5_ = nullptr, *Label6_ = nullptr;
    QLabel* lblDetail_ = nullptr;
    QScrollArea* enlargement_ = nullptr;
    QLabel* Apercu0_ = nullptr;  // Apercu1(0)
    std::array<SubIconThumbnail*, ExtraPoiBrowserModel::kThumbnails> thumbnails_{};  // Apercu1(1) to (6)
    std::array<QLabel*, ExtraPoiBrowserModel::kThumbnails> sizes_{};                 // lbltaille(1) to (6)
    std::array<QWidget*, ExtraPoiBrowserModel::kThumbnails> cells_{};
    QCheckBox* Check1_ = nullptr;
    QPushButton *cmdModifier_ = nullptr, *cmdCopier_ = nullptr, *cmdFermer_ = nullptr;
};

// cmdIcones: the browser, modal.
void ShowIconsWindow(MainWindowModel& model, QWidget* parent);

// The browser on the open document, for --screenshot.
std::unique_ptr<QWidget> IconsWindowForScreenshot(MainWindowModel& model);

}  // namespace mirvane::app
