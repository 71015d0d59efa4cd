// Widgets made with their objectName: the control's name, by which the tests
// find them.
#pragma once

#include <QString>
#include <QWidget>
#include <utility>

namespace mirvane::app {

// A new W child of `parent` named `name`; `args` come before the parent in
// W's constructor (Qt::Horizontal for a scroll bar, for example).
template <typename W, typename... Args>
W* MakeNamed(QWidget* parent, const char* name, Args&&... args) {
    auto* widget = new W(std::forward<Args>(args)..., parent);
    widget->setObjectName(QString::fromUtf8(name));
    return widget;
}

}  // namespace mirvane::app
