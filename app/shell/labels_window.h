// frmLabels: the additional labels of the document with the rows of their
// two tables in hexadecimal. Read only.
#pragma once

#include <QDialog>

#include "document/document.h"

namespace mirvane::app {

class LabelsWindow : public QDialog {
    Q_OBJECT
public:
    LabelsWindow(const Document& doc, QWidget* parent = nullptr);
};

}  // namespace mirvane::app
