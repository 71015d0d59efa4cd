// Widgets made with their objectName: the control's name, by which the tests
// find them.
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QString>
#include <QWidget>
#include <utility>

namespace mirvane::app {

// A new W child of `parent` named `name`; `args` come before the parent in
// W's constructor (Qt::Horizontal for a scroll bar, for example).
template <typename W, typename... Args>
W* MakeNamed(QWidget* parent, const QString& name, Args&&... args) {
    auto* widget = new W(std::forward<Args>(args)..., parent);
    widget->setObjectName(name);
    return widget;
}

template <typename W, typename... Args>
W* MakeNamed(QWidget* parent, const char* name, Args&&... args) {
    return MakeNamed<W>(parent, QString::fromUtf8(name), std::forward<Args>(args)...);
}

// The name of member `index` of a control array: "txtTexte(2)".
inline QString IndexedName(const char* name, int index) {
    return QStringLiteral("%1(%2)").arg(QString::fromUtf8(name)).arg(index);
}

// A push button that Enter leaves alone, so that Enter reaches the window's
// default button wherever the focus is.
inline QPushButton* MakeButton(QWidget* parent, const QString& name) {
    auto* button = MakeNamed<QPushButton>(parent, name);
    button->setAutoDefault(false);
    return button;
}

inline QPushButton* MakeButton(QWidget* parent, const char* name) {
    return MakeButton(parent, QString::fromUtf8(name));
}

// A text field that takes only what `pattern` allows as it is typed: "[0-9A-Fa-f]{0,3}".
inline QLineEdit* MakeFilteredField(QWidget* parent, const char* name, const char* pattern) {
    auto* field = MakeNamed<QLineEdit>(parent, name);
    field->setValidator(new QRegularExpressionValidator(QRegularExpression(QString::fromUtf8(pattern)), field));
    return field;
}

}  // namespace mirvane::app
