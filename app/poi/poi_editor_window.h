// frmPOI: the editor of one POI, its day and night bitmaps on the enlarged
// grid with the palette, tools, previews and label controls. Opened on a new
// POI, on a POI of the document, or on a sub-icon of an additional POI group.
#pragma once

#include <QDialog>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "models/poi/poi_editor_model.h"
#include "models/shell/document_changes.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QToolButton;

namespace mirvane {
class MainWindowModel;
}

namespace mirvane::app {

class LabelStringsPanel;
class PixelCanvas;

// What the editor was opened on.
struct PoiEditorTarget {
    enum class Use { New, Modify, Extra };
    Use Kind = Use::New;
    int Row = -1;      // Modify: the row of Document::Pois
    int Group = -1;    // Extra: the row of Document::ExtraPois
    int SubIcon = -1;  // Extra: the sub-icon of that group

    static PoiEditorTarget NewPoi() { return {}; }
    static PoiEditorTarget Poi(int row) { return {Use::Modify, row, -1, -1}; }
    static PoiEditorTarget SubIconOf(int group, int subIcon) { return {Use::Extra, -1, group, subIcon}; }
};

class PoiEditorWindow : public QDialog {
    Q_OBJECT
public:
    PoiEditorWindow(MainWindowModel& main, PoiEditorTarget target, QWidget* parent = nullptr);

    PoiEditorModel& Model() { return model_; }
    void RetranslateUi();
    // Shows the model's state again.
    void Refresh();
    // The import of a picture file without the import window's choices: the
    // file at a fitting size, handed over. False after a message, the bitmap
    // then as it was.
    bool ImportPictureFile(const QString& path);

    void accept() override;  // cmdOK

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildHead();
    QWidget* BuildGrid();
    QWidget* BuildTools();
    QWidget* BuildPalette();
    QWidget* BuildPreviews();
    void RefreshPalette();
    void RefreshPreviews();
    void Edit(const std::function<void()>& change);  // runs a model change, then refreshes
    void PaletteClicked(int index, Qt::MouseButton button);
    void CurrentColourClicked(Qt::MouseButton button);
    void HoverOver(QPoint position);
    std::optional<std::uint8_t> AskAlpha(std::uint8_t start);
    bool CheckHexField(QLineEdit* field, int maximum);
    void ConvertToStandard();  // cmdConvertir
    void Finish(ChangeSet changed, std::optional<ObjectRef> select);

    MainWindowModel& main_;
    PoiEditorTarget target_;
    PoiEditorModel model_;
    bool refreshing_ = false;  // Pret, the other way round
    std::optional<WorkingBitmap> opened_;  // the "Actuel" preview

    QLabel* lblNumero_ = nullptr;
    QLineEdit *txtType_ = nullptr, *txtSubType_ = nullptr;
    QCheckBox *chkBitmap_ = nullptr, *chkBitmapNuit_ = nullptr, *chkGrille_ = nullptr;
    QComboBox *cbbBitmap_ = nullptr, *cbbLargeur_ = nullptr, *cbbHauteur_ = nullptr, *cbbNombreCouleurs_ = nullptr,
              *cbbColorMode_ = nullptr;
    QLabel *lblBitmap_ = nullptr, *lblLargeur_ = nullptr, *lblHauteur_ = nullptr, *lblNombreCouleurs_ = nullptr,
           *lblColorMode_ = nullptr, *lblType_ = nullptr, *lblSubType_ = nullptr, *lblZoom_ = nullptr;
    std::array<QRadioButton*, 2> optBitmap_{};
    PixelCanvas* Picture2_ = nullptr;
    QSlider* sldZoom2_ = nullptr;
    int gridRoom_ = 0;  // the inside of Picture7, in pixels
    QLabel *lblCoordonnees_ = nullptr, *lblCanalalpha_ = nullptr;
    QButtonGroup* tools_ = nullptr;
    QToolButton *optPinceau_ = nullptr, *optPot_ = nullptr, *optPipette_ = nullptr;
    std::vector<std::pair<QPushButton*, std::function<void()>>> commands_;
    QPushButton *cmdRemplir_ = nullptr, *cmdInverser_ = nullptr, *cmdRotatD_ = nullptr, *cmdRotatG_ = nullptr,
                *cmdFlipH_ = nullptr, *cmdFlipV_ = nullptr, *cmdDeplaceD_ = nullptr, *cmdDeplaceG_ = nullptr,
                *cmdDeplaceH_ = nullptr, *cmdDeplaceB_ = nullptr, *cmdCopier_ = nullptr, *cmdColler_ = nullptr,
                *cmdCollerImage_ = nullptr, *cmdImporterBitmap_ = nullptr, *cmdExporterBitmap_ = nullptr;
    QWidget* fraPalette_ = nullptr;
    std::vector<QLabel*> lblpalette_;  // 0 to 253, and 255 the transparent swatch
    QLabel *lblCouleurCourante_ = nullptr, *lblIsGarmin_ = nullptr, *lblInfosPalette_ = nullptr,
           *lblInfosTrueColors_ = nullptr;
    QPushButton *cmdAjouterCouleur_ = nullptr, *cmdSupprimerCouleur_ = nullptr, *cmdCanalAlpha_ = nullptr;
    std::array<QLabel*, 3> Apercu_{};
    std::array<QLabel*, 3> lblApercu_{};
    LabelStringsPanel* labels_ = nullptr;
    QPushButton *cmdOK_ = nullptr, *cmdAnnuler_ = nullptr, *cmdConvertir_ = nullptr;
};

// OpenEditor's POI case: modal, on `row` of Document::Pois or a new POI.
void OpenPoiEditor(MainWindowModel& main, QWidget* parent, std::optional<int> row);

// The window on the POI `object` names (none: a new POI), for --screenshot.
std::unique_ptr<QWidget> PoiEditorWindowForScreenshot(MainWindowModel& main, std::optional<ObjectRef> object);

}  // namespace mirvane::app
