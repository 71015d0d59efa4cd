// frmLangues: the list of languages, bound to LanguagesModel.
#pragma once

#include <QDialog>

#include "models/shell/languages_model.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace mirvane::app {

class LanguagesWindow : public QDialog {
    Q_OBJECT
public:
    LanguagesWindow(SettingsStore& settings, UserPrompts& prompts, QWidget* parent = nullptr);

    // Sets every caption in the current language.
    void RetranslateUi();

signals:
    // A LanguageChange, once the choice is stored.
    void LanguageChosen(int change);

private:
    void Choose();

    LanguagesModel model_;
    QLabel* lblLangues_;
    QListWidget* lstLang_;
    QPushButton* cmdOK_;
};

}  // namespace mirvane::app
