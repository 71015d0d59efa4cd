// frmImporterBitmap: a picture file becomes a POI bitmap. The source at a
// fitting size, the bitmap at the chosen size, and the bitmap on a day and a
// night map before it is handed over.
#pragma once

#include <QDialog>
#include <array>
#include <memory>
#include <optional>

#include "models/poi/import_bitmap_model.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace mirvane::app {

class RasterPicture;

class ImportBitmapWindow : public QDialog {
    Q_OBJECT
public:
    // Pictures are read with ReadPictureFile unless another reader is given.
    explicit ImportBitmapWindow(UserPrompts& prompts, QWidget* parent = nullptr, PictureReader reader = {});

    ImportBitmapModel& Model() { return model_; }
    const ImportBitmapModel& Model() const { return model_; }

    void RetranslateUi();
    // Shows the model's state again after a change made from outside.
    void Refresh();

    void accept() override;
    void reject() override;

private:
    QWidget* BuildFileRow();
    QWidget* BuildView(ImportView view);
    QWidget* BuildSizeColumn();
    QWidget* BuildMapPreviews();
    void ShowCombo(QComboBox* combo, int value);

    ImportBitmapModel model_;
    QLabel *Label1_ = nullptr, *Label2_ = nullptr, *Label3_ = nullptr, *Label4_ = nullptr, *Label5_ = nullptr,
           *Label6_ = nullptr, *Label7_ = nullptr;
    QLineEdit* Text1_ = nullptr;
    QPushButton *cmdParcourir_ = nullptr, *cmdOuvrir_ = nullptr, *cmdConvertir_ = nullptr,
                *cmdImporterBitmap_ = nullptr, *cmdAnnuler_ = nullptr;
    QComboBox *cbbLargeur_ = nullptr, *cbbHauteur_ = nullptr;
    QLabel *lblLargeur_ = nullptr, *lblHauteur_ = nullptr, *lblNombreCouleurs_ = nullptr;
    std::array<RasterPicture*, 2> Picture2_{};
    std::array<QPushButton*, 2> cmdZoomIn_{}, cmdZoomOut_{}, cmdTailleReelle_{};
    QLabel *lblJour_ = nullptr, *lblNuit_ = nullptr;
    RasterPicture *picJour_ = nullptr, *picNuit_ = nullptr;
};

// Opens the window modally; the bitmap for the POI editor on import, nothing
// on cancel.
std::optional<ImportedBitmap> ImportBitmapFromFile(QWidget* parent, UserPrompts& prompts);

// The window with `picture` opened, for --screenshot.
std::unique_ptr<ImportBitmapWindow> ImportBitmapWindowWithPicture(UserPrompts& prompts, const QString& picture);

}  // namespace mirvane::app
