// frmTypSpeciaux: the kind and range of an identification TYP, bound to SpecialTypModel.
#pragma once

#include <QDialog>
#include <optional>

#include "document/document.h"
#include "models/special/special_typ_model.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace mirvane {
class MainWindowModel;
}

namespace mirvane::app {

class SpecialTypWindow : public QDialog {
    Q_OBJECT
public:
    SpecialTypWindow(UserPrompts& prompts, SpecialTypModel::SeedSource seed = {}, QWidget* parent = nullptr);

    // Sets every caption in the current language.
    void RetranslateUi();
    // The document cmdOK built; nothing before, or after Cancel.
    std::optional<Document>& Result() { return result_; }

private:
    void Accept();

    SpecialTypModel model_;
    std::optional<Document> result_;
    QGroupBox* fraTypeObjects_;
    QRadioButton *optPolygone_, *optPolyline_, *optPOI_;
    QComboBox* cbbPlage_;
    QLabel* lblChoisir_;
    QPushButton *cmdOK_, *cmdAnnuler_;
};

// mnuTypSpeciaux: asks for the kind and range, and puts the document built in
// the main window as a new document.
void ShowSpecialTypWindow(QWidget* parent, MainWindowModel& model);

}  // namespace mirvane::app
