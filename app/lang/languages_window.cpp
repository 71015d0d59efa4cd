#include "app/lang/languages_window.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"

namespace mirvane::app {

namespace {

// The built-in French captions while the language is French.
QString LanguagesTr(std::string_view defaultText, std::string_view key) {
    return Q(FormCaption("Langues", defaultText, key));
}

}  // namespace

LanguagesWindow::LanguagesWindow(SettingsStore& settings, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), model_(settings, prompts) {
    setObjectName("frmLangues");
    model_.Load();

    lblLangues_ = MakeNamed<QLabel>(this, "lblLangues");
    lstLang_ = MakeNamed<QListWidget>(this, "lstLang");
    for (const auto& row : model_.Rows()) lstLang_->addItem(Q(row));
    lstLang_->setCurrentRow(model_.SelectedRow);
    cmdOK_ = MakeNamed<QPushButton>(this, "cmdOK");
    cmdOK_->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblLangues_);
    layout->addWidget(lstLang_, 1);
    layout->addWidget(cmdOK_, 0, Qt::AlignRight);
    resize(300, 320);
    RetranslateUi();

    connect(cmdOK_, &QPushButton::clicked, this, &LanguagesWindow::Choose);
    connect(lstLang_, &QListWidget::itemDoubleClicked, this, &LanguagesWindow::Choose);
}

void LanguagesWindow::RetranslateUi() {
    setWindowTitle(LanguagesTr("Langues disponibles", "frmLangues"));
    lblLangues_->setText(LanguagesTr("Choisissez la langue de Mirvane :", "lblLangues"));
    cmdOK_->setText(LanguagesTr("OK", "cmdOK"));
}

void LanguagesWindow::Choose() {
    model_.SelectedRow = lstLang_->currentRow();
    const LanguageChange change = model_.ApplyChoice();
    accept();
    emit LanguageChosen(static_cast<int>(change));
}

}  // namespace mirvane::app
