// frmMain: binds the widgets to the main window model and draws it.
#pragma once

#include <QMainWindow>
#include <functional>
#include <optional>
#include <string>

#include "document/document.h"
#include "models/shell/main_window_model.h"
#include "text/listing_text.h"
#include "app/shell/editor_launch.h"

class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QPushButton;

namespace mirvane::app {

class TextPane;
class IconsFrame;
class PreviewFrame;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // Writes the document as text for BoxVisualisation (the listing), in the
    // document's code page; it may log broken objects in the document.
    using ListingFunction = std::function<ListingText(Document&)>;

    // The text of one object.
    using ObjectListingFunction = std::function<ListingText(Document&, ObjectRef object)>;

    MainWindow(MainWindowModel& model, QWidget* parent = nullptr);
    ~MainWindow() override;

    MainWindowModel& Model() { return model_; }
    void SetListingFunction(ListingFunction listing, ObjectListingFunction objectListing = {});
    void SetAutoSaveChecked(bool checked);
    TextPane& Text() { return *textPane_; }

    // Sets every caption in the current language, then redraws.
    void RetranslateUi();

    // Redraws the widgets that show what changed.
    void Refresh(ChangeSet what = ChangeSet::Everything());

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildMenus();
    QWidget* BuildHeaderPanel();
    QGroupBox* BuildObjectFrame(const char* frameName, const char* listName, const char* kindWord,
                                QListWidget*& list, QPushButton*& remove, ObjectKind kind);
    QWidget* BuildTextPanel();
    // fraApercu above the icons view and the text pane.
    QWidget* BuildPreviewColumn();
    // A row was picked in a list or an icon in the icons view.
    void PickObject(ObjectKind kind, int row);
    // The list row, text, preview and icon of the model's selection.
    void ShowSelection();
    void RefreshLists(ChangeSet what);
    void RefreshIdentity();
    void RefreshRecentMenu();
    void RefreshEnables();
    void RefreshTextPane();
    void RefreshPreview();
    // On leaving txtFID or txtProductCode: checks the value and hands it to the
    // model; false, with the focus back in the field, when it is refused.
    bool FinishIdentityField(QLineEdit* field, bool fid);
    // Takes the identity fields' text before a command; false when refused.
    bool CommitIdentityEdits();
    struct ObjectButtons {
        QPushButton *Add, *Edit, *Delete;
    };
    void DeleteSelected(ObjectKind kind);
    void EditSelected(ObjectKind kind);
    void RunEditor(EditorWindow window, std::optional<ObjectRef> object);
    std::optional<int> SelectedRow(ObjectKind kind) const;
    QListWidget* ListOf(ObjectKind kind) const;
    ObjectButtons ButtonsOf(ObjectKind kind) const;

    MainWindowModel& model_;
    ListingFunction listing_;
    ObjectListingFunction objectListing_;
    int changesListener_ = 0;
    bool refreshing_ = false;
    bool checkingIdentity_ = false;

    QAction *mnuNouveau_, *mnuOuvrirTYP_, *mnuouvrirtxt_, *mnuOuvrirTypMapset_, *mnufermer_;
    QAction *mnuEnregistrerTyp_, *mnuEnregistrerTxt_, *mnuSauvegardeAuto_, *mnuTypSpeciaux_, *mnuquitter_;
    QMenu *mnuFichier_, *mnuOutils_, *mnuLangues_, *recentMenu_;
    QAction *mnuCouleurIdentifieur_, *mnuCompiler_, *mnuChoixLangue_, *mnuInstallerTyp_, *mnuEffacerCache_;

    QGroupBox* fraEntete_;
    QLabel *lblNomTyp_, *lblDateCreation_, *lblLongueur_;
    QLabel *lblDate_, *lblTaille_, *lblFID_, *lblProductCode_, *lblCodepage_, *lblHeadersize_;
    QLineEdit *txtFID_, *txtProductCode_;
    QComboBox *cbbCodepage_, *cbbHeadersize_;
    QPushButton *cmdCreerTYP_, *cmdDraworder_, *cmdIcones_, *cmdLabels_;
    QGroupBox *fraPolygone_, *frapolyline_, *fraPOI_, *fraDraworder_, *fraExtraPOI_;
    QListWidget *ListPolygone_, *ListPolyline_, *ListPOI_, *ListDraworder_, *ListExtraPOI_;
    QPushButton *cmdAddPolygone_, *cmdModifierPolygone_, *cmdSupprimerPolygone_;
    QPushButton *cmdAddPolyline_, *cmdModifierPolyline_, *cmdSupprimerPolyline_;
    QPushButton *cmdAddPOI_, *cmdModifierPOI_, *cmdSupprimerPOI_;
    QPlainTextEdit* BoxVisualisation_;
    QPushButton *cmdvoirtxt_, *cmdEnregistrer_, *cmdAppliquerModif_;
    TextPane* textPane_;
    PreviewFrame* fraApercu_;
    IconsFrame* fraVisualization_;
};

}  // namespace mirvane::app
