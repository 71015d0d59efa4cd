#include "app/lang/languages_window.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/common/texts.h"

namespace mirvane::app {

LanguagesWindow::LanguagesWindow(SettingsStore& settings, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), model_(settings, prompts) {
    setObjectName("frmLangues");
    model_.Form_Load();
    setWindowTitle(Q(model_.Caption));

    auto* label = new QLabel(Q(model_.lblLangues_Caption), this);
    label->setObjectName("lblLangues");
    lstLang_ = new QListWidget(this);
    lstLang_->setObjectName("lstLang");
    for (const auto& row : model_.lstLang) lstLang_->addItem(Q(row));
    lstLang_->setCurrentRow(model_.SelectedRow);
    auto* ok = new QPushButton(Q(model_.cmdOK_Caption), this);
    ok->setObjectName("cmdOK");
    ok->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(lstLang_, 1);
    layout->addWidget(ok, 0, Qt::AlignRight);
    resize(300, 320);

    connect(ok, &QPushButton::clicked, this, &LanguagesWindow::Choose);
    connect(lstLang_, &QListWidget::itemDoubleClicked, this, &LanguagesWindow::Choose);
}

void LanguagesWindow::Choose() {
    model_.SelectedRow = lstLang_->currentRow();
    const LanguageChange change = model_.cmdOK_Click();
    accept();
    emit LanguageChosen(static_cast<int>(change));
}

}  // namespace mirvane::app
