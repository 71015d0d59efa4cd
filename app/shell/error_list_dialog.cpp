#include "app/shell/error_list_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/common/texts.h"

namespace mirvane::app {

ErrorListDialog::ErrorListDialog(const QString& text, QWidget* parent) : QDialog(parent) {
    setObjectName("frmErreur");
    setWindowTitle(Tr("Erreurs", "Erreurs", "Erreurs"));
    resize(760, 420);

    auto* label = new QLabel(Tr("Erreurs", "Erreurs rencontrées dans le fichier", "lblErreurs"), this);
    label->setObjectName("lblErreurs");
    box_ = new QPlainTextEdit(this);
    box_->setObjectName("txtErreurs");
    box_->setReadOnly(true);
    box_->setLineWrapMode(QPlainTextEdit::NoWrap);
    box_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QString shown = text;
    box_->setPlainText(shown.replace("\r\n", "\n"));

    auto* copy = new QPushButton(Tr("Erreurs", "Copier dans le presse-papier", "cmdCopier"), this);
    copy->setObjectName("cmdCopy");
    auto* close = new QPushButton(Tr("Erreurs", "Fermer", "cmdFermer"), this);
    close->setObjectName("cmdFermer");
    close->setDefault(true);
    connect(copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(box_->toPlainText()); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(copy);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(box_, 1);
    layout->addLayout(buttons);
}

}  // namespace mirvane::app
