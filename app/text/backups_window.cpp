#include "app/text/backups_window.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "app/text/listing_document.h"

namespace mirvane::app {

namespace {

QString BackupsTr(std::string_view defaultText, std::string_view key) { return Tr("Sauvegardetxt", defaultText, key); }

}  // namespace

BackupsWindow::BackupsWindow(const TextBackups& backups, int codePage, QWidget* parent)
    : QDialog(parent), model_(backups), codePage_(codePage) {
    setObjectName("frmSauvegardetxt");
    Text1_ = MakeNamed<QPlainTextEdit>(this, "Text1");
    Text1_->setReadOnly(true);
    Text1_->setLineWrapMode(QPlainTextEdit::NoWrap);
    Text1_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    cmdPrecedent_ = MakeNamed<QPushButton>(this, "cmdPrécédent");
    cmdSuivant_ = MakeNamed<QPushButton>(this, "cmdSuivant");
    cmdCopier_ = MakeNamed<QPushButton>(this, "cmdCopier");
    cmdFermer_ = MakeNamed<QPushButton>(this, "cmdFermer");

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdPrecedent_);
    buttons->addWidget(cmdSuivant_);
    buttons->addStretch();
    buttons->addWidget(cmdCopier_);
    buttons->addWidget(cmdFermer_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Text1_, 1);
    layout->addLayout(buttons);
    resize(720, 520);

    connect(cmdPrecedent_, &QPushButton::clicked, this, [this] {
        model_.ShowPrevious();
        Redraw();
    });
    connect(cmdSuivant_, &QPushButton::clicked, this, [this] {
        model_.ShowNext();
        Redraw();
    });
    connect(cmdCopier_, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(Text1_->toPlainText()); });
    connect(cmdFermer_, &QPushButton::clicked, this, &QDialog::close);
    RetranslateUi();
}

void BackupsWindow::RetranslateUi() {
    cmdPrecedent_->setText(BackupsTr("<<Précédent", "cmdPrecedent"));
    cmdSuivant_->setText(BackupsTr("Suivant >>", "cmdSuivant"));
    cmdCopier_->setText(BackupsTr("Copier dans le presse-papier", "cmdCopier"));
    cmdFermer_->setText(BackupsTr("Fermer", "cmdFermer"));
    Redraw();  // the title and the empty list's message are in the language too
}

void BackupsWindow::Redraw() {
    setWindowTitle(Q(model_.Title()));
    // The message of an empty list is the program's own text, not document bytes.
    Text1_->setPlainText(model_.HasBackups() ? DecodePaneText(model_.Text(), codePage_) : Q(model_.Text()));
    cmdPrecedent_->setEnabled(model_.CanShowPrevious());
    cmdSuivant_->setEnabled(model_.CanShowNext());
}

}  // namespace mirvane::app
