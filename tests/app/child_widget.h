// A control of a window found by its name, as the tests drive them; a name
// that is not there ends the test program with that name.
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>

template <typename T = QWidget>
T* Child(QObject* parent, const QString& name) {
    T* widget = parent->findChild<T*>(name);
    if (!widget) qFatal("no widget %s", qPrintable(name));
    return widget;
}

template <typename T = QWidget>
T* Child(QObject& parent, const QString& name) {
    return Child<T>(&parent, name);
}
