#include <QApplication>

#include "app/shell/application.h"

int main(int argc, char** argv) {
    // A screenshot needs no screen.
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], "--screenshot") == 0 && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStringList arguments = QApplication::arguments();
    arguments.removeFirst();
    return mirvane::app::RunMirvane(arguments);
}
