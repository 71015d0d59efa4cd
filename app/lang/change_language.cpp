#include "app/lang/change_language.h"

#include "app/lang/languages_window.h"
#include "app/shell/main_window.h"

namespace mirvane::app {

void OpenLanguagesWindow(MainWindow& window) {
    auto* dialog = new LanguagesWindow(window.Model().Settings(), window.Model().Prompts(), &window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &LanguagesWindow::LanguageChosen, &window, [&window](int change) {
        if (change == static_cast<int>(LanguageChange::Translated)) window.RetranslateUi();  // ChangerLangue1
    });
    dialog->open();
}

}  // namespace mirvane::app
