#include "app/lang/change_language.h"

#include <QAbstractButton>
#include <QAction>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>

#include "models/shell/main_window_texts.h"
#include "app/lang/languages_window.h"
#include "app/shell/main_window.h"
#include "app/common/texts.h"

namespace mirvane::app {

namespace {

// The label that a form layout shows before `field`.
QLabel* FieldLabelOf(QWidget* field) {
    for (QWidget* parent = field->parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto* form = qobject_cast<QFormLayout*>(parent->layout()))
            if (auto* label = qobject_cast<QLabel*>(form->labelForField(field))) return label;
    }
    return nullptr;
}

void SetCaption(QObject* target, const QString& text) {
    if (auto* menu = qobject_cast<QMenu*>(target)) menu->setTitle(text);
    else if (auto* action = qobject_cast<QAction*>(target)) action->setText(text);
    else if (auto* button = qobject_cast<QAbstractButton*>(target)) button->setText(text);
    else if (auto* frame = qobject_cast<QGroupBox*>(target)) frame->setTitle(text);
    else if (auto* label = qobject_cast<QLabel*>(target)) label->setText(text);
}

void SetText(QObject* target, const MainWindowText& row) {
    const QString text = MainTr("", row.Key);
    switch (row.Role) {
    case TextRole::Caption: SetCaption(target, text); break;
    case TextRole::ToolTip:
        if (auto* widget = qobject_cast<QWidget*>(target)) widget->setToolTip(text);
        else if (auto* action = qobject_cast<QAction*>(target)) action->setToolTip(text);
        break;
    case TextRole::FieldLabel:
        if (auto* field = qobject_cast<QWidget*>(target))
            if (QLabel* label = FieldLabelOf(field)) label->setText(text);
        break;
    }
}

}  // namespace

void ChangerLangue1(MainWindow& window) {
    for (const MainWindowText& row : kMainWindowTexts) {
        for (QObject* target : window.findChildren<QObject*>(row.ObjectName)) SetText(target, row);
    }
    window.Refresh();
}

void OpenLanguagesWindow(MainWindow& window) {
    auto* dialog = new LanguagesWindow(window.Model().Settings(), window.Model().Prompts(), &window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &LanguagesWindow::LanguageChosen, &window, [&window](int change) {
        if (change == static_cast<int>(LanguageChange::Translated)) ChangerLangue1(window);
    });
    dialog->open();
}

}  // namespace mirvane::app
