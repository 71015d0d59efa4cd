#include "app/shell/error_list_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"

namespace mirvane::app {

namespace {

QString ErrorsTr(std::string_view defaultText, std::string_view key) { return Tr("Erreurs", defaultText, key); }

}  // namespace

ErrorListDialog::ErrorListDialog(const QString& text, QWidget* parent) : QDialog(parent) {
    setObjectName("frmErreur");
    resize(760, 420);

    lblErreurs_ = MakeNamed<QLabel>(this, "lblErreurs");
    box_ = MakeNamed<QPlainTextEdit>(this, "txtErreurs");
    box_->setReadOnly(true);
    box_->setLineWrapMode(QPlainTextEdit::NoWrap);
    box_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QString shown = text;
    box_->setPlainText(shown.replace("\r\n", "\n"));

    cmdCopy_ = MakeNamed<QPushButton>(this, "cmdCopy");
    cmdFermer_ = MakeNamed<QPushButton>(this, "cmdFermer");
    cmdFermer_->setDefault(true);
    connect(cmdCopy_, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(box_->toPlainText()); });
    connect(cmdFermer_, &QPushButton::clicked, this, &QDialog::accept);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdCopy_);
    buttons->addWidget(cmdFermer_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblErreurs_);
    layout->addWidget(box_, 1);
    layout->addLayout(buttons);
    RetranslateUi();
}

void ErrorListDialog::RetranslateUi() {
    setWindowTitle(ErrorsTr("Erreurs", "Erreurs"));
    lblErreurs_->setText(ErrorsTr("Erreurs rencontrées dans le fichier", "lblErreurs"));
    cmdCopy_->setText(ErrorsTr("Copier dans le presse-papier", "cmdCopier"));
    cmdFermer_->setText(ErrorsTr("Fermer", "cmdFermer"));
}

}  // namespace mirvane::app
