#include "app/shell/application.h"

#include <QApplication>
#include <QBuffer>
#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <QTimer>
#include <cstdio>

#include "base/file_io.h"
#include "document/document.h"
#include "document/file_messages.h"
#include "models/shell/main_window_model.h"
#include "models/shell/startup.h"
#include "app/lang/change_language.h"
#include "lang/lookup.h"
#include "app/shell/dialog_prompts.h"
#include "app/shell/main_window.h"
#include "app/shell/qt_settings_store.h"
#include "app/common/texts.h"
#include "app/shell/update_check.h"
#include "app/text/text_pane.h"
#include "text/listing.h"
#include "text/parser.h"

namespace mirvane::app {

std::string ProgramVersionText() {
    return AppVersionText(MIRVANE_VERSION_MAJOR, MIRVANE_VERSION_MINOR, MIRVANE_VERSION_PATCH);
}

std::optional<std::string> InformationText(const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments) {
        if (argument == "--version" || argument == "-v") return "Mirvane " + ProgramVersionText() + "\n";
        if (argument == "--help" || argument == "-h")
            return "Usage: mirvane [FILE.typ|FILE.txt]\n"
                   "       mirvane --screenshot OUT.png [FILE]\n"
                   "       mirvane --help | --version\n"
                   "\n"
                   "Opens FILE in the TYP editor, if given. --screenshot draws the main window\n"
                   "(1280x800) offscreen into OUT.png and ends.\n";
    }
    return std::nullopt;
}

QString FindLanguageFolder() {
    // Beside the program (the build tree gets a copy), ../share/mirvane of a
    // moved installation, the user's data folder, then the installed prefix.
    const QString chosen = Q(ChooseLanguageFolder(QCoreApplication::applicationDirPath().toStdString()));
    if (QFileInfo(chosen).isDir()) return chosen;
    return QDir(MIRVANE_DATA_DIR).filePath("Langues");
}

// Wires the text route: the listing shown in BoxVisualisation, and the
// reading of .txt files, which also enables "open text" and the .txt drops.
void ConnectTextRoute(MainWindow& window, MainWindowModel& model) {
    model.SetTextOpener(OpenTypText);
    window.SetListingFunction([&model](Document& doc) {
        const ListingContext context{model.DateText(), ListingClock::Now()};
        return ListWholeDocument(doc, context);
    }, [](Document& doc, ObjectRef object) {
        return ListOneObject(doc, object);
    });
}

namespace {

int TakeScreenshot(const QString& out, const QString& file) {
    MemorySettingsStore settings;  // leaves the user's settings alone
    SilentPrompts prompts;
    Document doc;
    MainWindowModel model(doc, prompts, settings, ProgramVersionText());
    MainWindow window(model);
    ConnectTextRoute(window, model);
    window.resize(1280, 800);
    if (!file.isEmpty()) model.OpenAny(CommandLinePath(file.toStdString()));
    window.show();
    QApplication::processEvents();
    // Encoded in memory, then written like every other file of the program.
    QByteArray png;
    QBuffer buffer(&png);
    const bool encoded = buffer.open(QIODevice::WriteOnly) && window.grab().save(&buffer, "PNG");
    const WriteResult written =
        encoded ? WriteFileAtomically(PathFromUtf8(out.toStdString()), std::string_view(png.constData(), png.size()))
                : WriteResult{WriteStatus::Failed, "PNG encoding failed"};
    if (!written.Ok()) {
        std::fprintf(stderr, "mirvane: cannot write %s: %s\n", qPrintable(out),
                     WriteFailureText(written.Status, written.Reason).c_str());
        return 1;
    }
    return 0;
}

}  // namespace

int RunMirvane(const QStringList& arguments) {
    QCoreApplication::setApplicationName("Mirvane");
    QCoreApplication::setOrganizationName("Mirvane");
    SetLanguageFolder(FindLanguageFolder().toStdString());

    QStringList args = arguments;
    const int shot = args.indexOf("--screenshot");
    if (shot >= 0) {
        if (shot + 1 >= args.size()) {
            std::fprintf(stderr, "usage: mirvane --screenshot OUT.png [FILE]\n");
            return 2;
        }
        const QString out = args[shot + 1];
        args.remove(shot, 2);
        return TakeScreenshot(out, args.value(0));
    }

    QtSettingsStore settings;
    SettleLanguage(settings);
    const bool checkForUpdate = SettleUpdateCheck(settings);
    RemoveLeftOverBackup(BackupFolder().toStdString());

    DialogPrompts prompts;
    Document doc;
    MainWindowModel model(doc, prompts, settings, ProgramVersionText());
    MainWindow window(model);
    prompts.SetParent(&window);
    if (checkForUpdate) StartUpdateCheck(QString::fromStdString(UpdateAddress(settings)), &window);
    ConnectTextRoute(window, model);
    window.SetAutoSaveChecked(AutoSaveSetting(settings));
    window.show();

    const QString pending = args.value(0);
    if (!pending.isEmpty())
        QTimer::singleShot(0, &window, [&model, pending] { model.OpenAny(CommandLinePath(pending.toStdString())); });
    return QApplication::exec();
}

}  // namespace mirvane::app
