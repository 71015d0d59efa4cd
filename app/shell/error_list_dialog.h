// frmErreur: the errors met while reading, in a read-only box, with a copy button.
#pragma once

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace mirvane::app {

class ErrorListDialog : public QDialog {
    Q_OBJECT
public:
    ErrorListDialog(const QString& text, QWidget* parent = nullptr);

    // Sets every caption in the current language.
    void RetranslateUi();

private:
    QLabel* lblErreurs_;
    QPlainTextEdit* box_;
    QPushButton *cmdCopy_, *cmdFermer_;
};

}  // namespace mirvane::app
