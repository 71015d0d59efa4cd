// frmErreur: the errors met while reading, in a read-only box, with a copy button.
#pragma once

#include <QDialog>

class QPlainTextEdit;

namespace mirvane::app {

class ErrorListDialog : public QDialog {
    Q_OBJECT
public:
    ErrorListDialog(const QString& text, QWidget* parent = nullptr);

private:
    QPlainTextEdit* box_;
};

}  // namespace mirvane::app
