#include "app/text/backups_window.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/text/listing_document.h"

namespace mirvane::app {

namespace {

QPushButton* MakeButton(QWidget* parent, const QString& name, const std::string& caption) {
    auto* button = new QPushButton(QString::fromStdString(caption), parent);
    button->setObjectName(name);
    return button;
}

}  // namespace

BackupsWindow::BackupsWindow(const TextBackups& backups, int codePage, QWidget* parent)
    : QDialog(parent), model_(backups), hasBackups_(!backups.Empty()), codePage_(codePage) {
    setObjectName("frmSauvegardetxt");
    Text1_ = new QPlainTextEdit(this);
    Text1_->setObjectName("Text1");
    Text1_->setReadOnly(true);
    Text1_->setLineWrapMode(QPlainTextEdit::NoWrap);
    Text1_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    previous_ = MakeButton(this, QStringLiteral("cmdPrécédent"), model_.cmdPrecedent_Caption);
    next_ = MakeButton(this, "cmdSuivant", model_.cmdSuivant_Caption);
    auto* copy = MakeButton(this, "cmdCopier", model_.cmdCopier_Caption);
    auto* close = MakeButton(this, "cmdFermer", model_.cmdFermer_Caption);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(previous_);
    buttons->addWidget(next_);
    buttons->addStretch();
    buttons->addWidget(copy);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Text1_, 1);
    layout->addLayout(buttons);
    resize(720, 520);

    connect(previous_, &QPushButton::clicked, this, [this] {
        model_.cmdPrecedent_Click();
        Redraw();
    });
    connect(next_, &QPushButton::clicked, this, [this] {
        model_.cmdSuivant_Click();
        Redraw();
    });
    connect(copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(Text1_->toPlainText()); });
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    Redraw();
}

void BackupsWindow::Redraw() {
    setWindowTitle(QString::fromStdString(model_.Caption));
    // The message of an empty list is the program's own text, not document bytes.
    Text1_->setPlainText(hasBackups_ ? DecodePaneText(model_.Text1, codePage_) : QString::fromStdString(model_.Text1));
    previous_->setEnabled(model_.cmdPrecedent_Enabled);
    next_->setEnabled(model_.cmdSuivant_Enabled);
}

}  // namespace mirvane::app
