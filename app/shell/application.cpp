#include "app/shell/application.h"

#include <QApplication>
#include <QBuffer>
#include <QByteArray>
#include <QDir>
#include <QLocale>
#include <QFileInfo>
#include <QPixmap>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/file_io.h"
#include "document/document.h"
#include "document/file_messages.h"
#include "document/object_lookup.h"
#include "models/shell/main_window_model.h"
#include "models/shell/startup.h"
#include "app/draworder/draw_order_window.h"
#include "app/poi/icons_window.h"
#include "app/lang/change_language.h"
#include "app/mapsets/mapsets_window.h"
#include "app/pattern/line_editor_window.h"
#include "app/pattern/polygon_editor_window.h"
#include "app/special/special_typ_window.h"
#include "app/poi/import_bitmap_window.h"
#include "app/poi/poi_editor_window.h"
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

// Takes "NAME VALUE" out of the arguments; false when the value is missing.
bool TakeOption(QStringList& args, const QString& name, QString& value) {
    const int at = args.indexOf(name);
    if (at < 0) return true;
    if (at + 1 >= args.size()) return false;
    value = args[at + 1];
    args.remove(at, 2);
    return true;
}

// What a screenshot of a window other than the main one is drawn from.
struct ScreenshotScene {
    QString WindowName, Picture;
    std::optional<ObjectRef> Object;  // from --object, in the opened file
    MainWindowModel& Model;           // and its document
    UserPrompts& Prompts;
};

// The names a language file for the system's locale may have, in the order tried.
std::vector<std::string> SystemLanguageNames() {
    const QLocale locale = QLocale::system();
    const QString code = locale.name().section('_', 0, 0);
    return LanguageFileNames(code.toStdString(), QLocale::languageToString(locale.language()).toStdString());
}

// A window other than the main one, drawn on its own; none for an unknown name.
std::unique_ptr<QWidget> ScreenshotWindow(const ScreenshotScene& scene) {
    const QString& name = scene.WindowName;
    UserPrompts& prompts = scene.Prompts;
    if (name == "frmImporterBitmap") return ImportBitmapWindowWithPicture(prompts, scene.Picture);
    if (name == "frmPOI") return PoiEditorWindowForScreenshot(scene.Model, scene.Object);
    if (name == "frmTypSpeciaux") return std::make_unique<SpecialTypWindow>(prompts);
    if (name == "frmPolygone") return PolygonEditorWindowOn(scene.Model, scene.Object);
    if (name == "frmPolyline") return LineEditorWindowOn(scene.Model, scene.Object);
    if (name == "frmDraworder") return DrawOrderWindowForScreenshot(scene.Model);
    if (name == "frmIcones") return IconsWindowForScreenshot(scene.Model);
    if (name == "frmMapsets") {
        auto window = std::make_unique<MapsetsWindow>(LocalMapsetEnvironment(), prompts, nullptr, false);
        // The offscreen screen is 800 pixels wide, narrower than the window would make itself.
        window->resize(1180, window->height());
        return window;
    }
    return nullptr;
}

int TakeScreenshot(const QString& out, const QString& file, const QString& windowName, const QString& picture,
                   const QString& objectName) {
    MemorySettingsStore settings;  // leaves the user's settings alone
    SilentPrompts prompts;
    Document doc;
    MainWindowModel model(doc, prompts, settings, ProgramVersionText());
    MainWindow window(model);
    ConnectTextRoute(window, model);
    window.resize(1280, 800);
    if (!file.isEmpty()) model.OpenAny(CommandLinePath(file.toStdString()));
    std::optional<ObjectRef> object;
    if (!objectName.isEmpty()) {
        const std::optional<ObjectName> named = ParseObjectName(objectName.toStdString());
        if (!named || !(object = FindObject(doc, *named))) {
            std::fprintf(stderr, "mirvane: no object %s in the file\n", qPrintable(objectName));
            return 2;
        }
        model.Select(*object);
    }
    std::unique_ptr<QWidget> other;
    if (!windowName.isEmpty() &&
        !(other = ScreenshotWindow({windowName, picture, object, model, prompts}))) {
        std::fprintf(stderr, "mirvane: no window %s to draw\n", qPrintable(windowName));
        return 2;
    }
    QWidget& drawn = other ? *other : static_cast<QWidget&>(window);
    drawn.show();
    QApplication::processEvents();
    // Encoded in memory, then written like every other file of the program.
    QByteArray png;
    QBuffer buffer(&png);
    const bool encoded = buffer.open(QIODevice::WriteOnly) && drawn.grab().save(&buffer, "PNG");
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
    if (args.contains("--screenshot")) {
        QString out, windowName, picture, language, objectName;
        if (!TakeOption(args, "--screenshot", out) || !TakeOption(args, "--window", windowName) ||
            !TakeOption(args, "--picture", picture) || !TakeOption(args, "--language", language) ||
            !TakeOption(args, "--object", objectName) || out.isEmpty()) {
            std::fprintf(stderr, "usage: mirvane --screenshot OUT.png [--window frmPolygone | frmPolyline | frmPOI | frmDraworder | "
                                 "frmIcones | frmMapsets | frmTypSpeciaux | frmImporterBitmap --picture PICTURE] "
                                 "[--object polygon|line|poi:TYPE[:SUBTYPE]] [--language NAME] [FILE]\n");
            return 2;
        }
        if (LanguageExists(language.toStdString())) SetLanguageName(language.toStdString());
        return TakeScreenshot(out, args.value(0), windowName, picture, objectName);
    }

    QtSettingsStore settings;
    SettleLanguage(settings, SystemLanguageNames());
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
