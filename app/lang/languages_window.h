// frmLangues: the list of languages, bound to LanguagesModel.
#pragma once

#include <QDialog>

#include "models/shell/languages_model.h"

class QListWidget;

namespace mirvane::app {

class LanguagesWindow : public QDialog {
    Q_OBJECT
public:
    LanguagesWindow(SettingsStore& settings, UserPrompts& prompts, QWidget* parent = nullptr);

signals:
    // A LanguageChange, once the choice is stored.
    void LanguageChosen(int change);

private:
    void Choose();

    LanguagesModel model_;
    QListWidget* lstLang_;
};

}  // namespace mirvane::app
