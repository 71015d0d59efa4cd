// frmLabels: the additional labels of the document with the rows of their
// two tables in hexadecimal. Read only.
#pragma once

#include <QDialog>

#include "document/document.h"
#include "document/extra_sections.h"

class QPushButton;

namespace mirvane::app {

class LabelsWindow : public QDialog {
    Q_OBJECT
public:
    LabelsWindow(const Document& doc, QWidget* parent = nullptr);

    // Sets the captions. The browser's text gives them, the title with the
    // count of labels, as they were when the window opened.
    void RetranslateUi();

private:
    LabelsBrowserContent content_;
    QPushButton* cmdFermer_;
};

}  // namespace mirvane::app
