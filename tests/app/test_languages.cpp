// The change of language in the main window, frmLangues driven by its widgets,
// the captions of every dialog in a language, and the windows opened from the
// main window: frmLabels and frmCompiler.
#include <QAction>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "app/colour/colour_identifier.h"
#include "app/colour/colours_dialog.h"
#include "app/colour/palette_dialog.h"
#include "app/lang/change_language.h"
#include "app/lang/languages_window.h"
#include "app/shell/error_list_dialog.h"
#include "app/shell/labels_window.h"
#include "app/text/backups_window.h"
#include "app/text/compiler_window.h"
#include "app/text/search_window.h"
#include "app_test_support.h"
#include "document/binary_reader.h"
#include "lang/lookup.h"

using namespace mirvane;

class LanguagesTest : public MainWindowTestBase {
    Q_OBJECT

    // Picks `language` in frmLangues opened from the menu.
    void ChooseLanguage(const QString& language) {
        Action("mnuChoixLangue")->trigger();
        auto* dialog = Find<QDialog>("frmLangues");
        SavePicture(*dialog, "languages_window.png");
        auto* list = Find<QListWidget>(dialog, "lstLang");
        const auto rows = list->findItems(language, Qt::MatchExactly);
        QCOMPARE(rows.size(), 1);
        list->setCurrentItem(rows.front());
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdOK"), Qt::LeftButton);
        QApplication::processEvents();
    }

    void Open(const char* file) {
        REQUIRE_CORPUS_FILE(file);
        model_->OpenTyp(CorpusFile(file).toStdString());
    }

private slots:
    void initTestCase() { SetLanguageFolder(QString(MIRVANE_SOURCE_DIR "/Langues").toStdString()); }

    void init() {
        SetLanguageName(kBuiltInLanguage);
        StartWindow();
    }
    void cleanup() {
        StopWindow();
        SetLanguageName(kBuiltInLanguage);
    }

    void englishTranslatesTheMainWindowAndFrenchAsksForARestart() {
        Open("jbm-osm.typ");
        auto* polygons = Find<QGroupBox>("fraPolygone");
        prompts_->Log.clear();
        ChooseLanguage("English");
        QCOMPARE(settings_->Get("Paramètres", "Langue"), std::optional<std::string>("English"));
        QCOMPARE(polygons->title(), QString("Polygons  (%1)").arg(doc_->PolygonCount()));
        QCOMPARE(Find<QMenu>("mnuFichier")->title(), QString("&File"));
        QCOMPARE(Find<QPushButton>("cmdvoirtxt")->text(), QString("Show the text"));
        QCOMPARE(Find<QPushButton>("cmdAddPOI")->toolTip(), QString("Add a new POI"));
        QVERIFY(prompts_->Log.empty());
        SavePicture(*window_, "main_window_english.png");

        ChooseLanguage(QString::fromUtf8("Français"));
        QCOMPARE(settings_->Get("Paramètres", "Langue"), std::optional<std::string>("Francais"));
        QCOMPARE(prompts_->Texts("inform"),
                 std::vector<std::string>{"Mirvane|Restart Mirvane to apply changes to Main Window"});
        // Until the restart the menus keep their English texts.
        QCOMPARE(Find<QMenu>("mnuFichier")->title(), QString("&File"));
    }

    void everyDialogTakesItsCaptionsFromTheLanguageFile() {
        SetLanguageName("English");
        QPlainTextEdit pane;
        TextBackups noBackups;
        Document doc;
        app::SearchWindow search(&pane, *prompts_, nullptr);
        app::BackupsWindow backups(noBackups, 1252);
        app::CompilerWindow compiler(*settings_, *prompts_);
        app::ErrorListDialog errors("x");
        app::LabelsWindow labels(doc);
        app::LanguagesWindow languages(*settings_, *prompts_);
        app::PaletteDialog palette(0, PaletteCaller::Editor);
        app::ColoursDialog colours(Raster(1, 1), {});
        app::ColourIdentifierWindow identifier;
        // A title in English shows the dialog translated itself; that each control key has
        // an English text is what scripts/lng_keys.py checks.
        const std::pair<QWidget*, const char*> titles[] = {
            {&search, "Find"},
            {&backups, "Text backup"},
            {&compiler, "Compile a txt file with cGPSmapper"},
            {&errors, "Errors"},
            {&labels, "Additional labels"},
            {&languages, "Available languages"},
            {&palette, "Choose a colour"},
            {&colours, "Colours"},
            {&identifier, "Colour and type identifier"},
        };
        for (const auto& [window, english] : titles) QCOMPARE(window->windowTitle(), QString(english));
    }

    void labelsFollowTheHeaderSize() {
        auto* labels = Find<QPushButton>("cmdLabels");
        QVERIFY(!labels->isEnabled());
        Open("suke-tmz.typ");
        QVERIFY(!labels->isEnabled());
        Open("jbm-osm.typ");
        QVERIFY(labels->isEnabled());
        QTest::mouseClick(labels, Qt::LeftButton);
        auto* dialog = Find<QDialog>("frmLabels");
        QVERIFY(!Find<QPlainTextEdit>(dialog, "txtLabels")->toPlainText().isEmpty());
        SavePicture(*dialog, "labels_window_empty.png");
    }

    void labelsShowBytesInTheDocumentsCodePage() {
        Document doc;
        doc.Identity.CodePage = 1250;
        doc.Extra2.LabelTable1RecordSize = 2;
        doc.Extra2.LabelTable2RecordSize = 1;
        doc.LabelTextBytes = {0x8a, 'k', 'o', 'd', 'a', 0, 'B', 0};
        doc.Extra2.LabelTextLength = static_cast<int>(doc.LabelTextBytes.size());
        doc.LabelTable1Bytes = {0x01, 0xab, 0x02, 0x00};
        doc.LabelTable2Bytes = {0x7f, 0x80};
        app::LabelsWindow window(doc);
        QVERIFY(window.windowTitle().endsWith("  (2)"));
        const QString text = Find<QPlainTextEdit>(&window, "txtLabels")->toPlainText();
        QCOMPARE(text, QString::fromUtf8("\n 01 AB\t 7F\t\tŠkoda\n 02 00\t 80\t\tB"));
        SavePicture(window, "labels_window.png");
    }

    void compilerStartsTheToolWithTheTextAndTheTyp() {
        QTemporaryDir folder;
        settings_->Set("cGPSmapper", "Chemin", "/opt/cgpsmapper/cgpsmapper");
        Action("mnuCompiler")->trigger();
        auto* dialog = Find<app::CompilerWindow>("frmCompiler");
        QVERIFY(prompts_->Log.empty());  // the tool's path was stored
        std::optional<CompilerCommand> started;
        dialog->Start = [&started](const CompilerCommand& command) {
            started = command;
            return true;
        };
        auto* text = Find<QLineEdit>(dialog, "txtFichiertxt");
        text->setFocus();
        QTest::keyClicks(text, folder.filePath("map.txt"));
        QCOMPARE(Find<QLineEdit>(dialog, "txtFichierTyp")->text(), folder.filePath("map.typ"));
        SavePicture(*dialog, "compiler_window.png");
        QTest::mouseClick(Find<QPushButton>(dialog, "Command1"), Qt::LeftButton);
        QVERIFY(started);
        QCOMPARE(started->CommandLine, "/opt/cgpsmapper/cgpsmapper typ " + folder.filePath("map.txt").toStdString() +
                                           " " + folder.filePath("map.typ").toStdString());
        QVERIFY(QFileInfo(folder.filePath("map.typ")).exists());  // made empty before the tool runs
    }
};

QTEST_MAIN(LanguagesTest)
#include "test_languages.moc"
