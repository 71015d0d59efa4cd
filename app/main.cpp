#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <exception>

#include "app/shell/application.h"
#include "lang/lookup.h"

namespace {

// The last resort: a failure that escapes a command is told to the user
// and the program goes on with the document it has, instead of ending and
// taking the unsaved work with it.
class GuardedApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& failure) {
            Report(failure.what());
        } catch (...) {
            Report("unknown error");
        }
        return false;
    }

private:
    static void Report(const char* what) {
        std::fprintf(stderr, "mirvane: unexpected failure: %s\n", what);
        const std::string text = mirvane::MainText("Erreur inattendue :", "msgErreurInattendue") + " " + what;
        QMessageBox::critical(nullptr, "Mirvane", QString::fromStdString(text));
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (const auto text = mirvane::app::InformationText(std::vector<std::string>(argv + 1, argv + argc))) {
        std::fputs(text->c_str(), stdout);
        return 0;
    }
    try {
        // A screenshot needs no screen.
        for (int i = 1; i < argc; ++i)
            if (qstrcmp(argv[i], "--screenshot") == 0 && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
                qputenv("QT_QPA_PLATFORM", "offscreen");
        GuardedApplication app(argc, argv);
        QStringList arguments = QApplication::arguments();
        arguments.removeFirst();
        return mirvane::app::RunMirvane(arguments);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "mirvane: unexpected failure: %s\n", failure.what());
    } catch (...) {
        std::fprintf(stderr, "mirvane: unexpected failure\n");
    }
    return 2;
}
