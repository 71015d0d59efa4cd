// The change of language in the main window, frmLangues driven by its widgets,
// dialogs taking their captions from the language, and the windows opened from
// the main window: frmLabels and frmCompiler.
#include <QAction>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "app/lang/change_language.h"
#include "app/shell/labels_window.h"
#include "app/text/compiler_window.h"
#include "app_test_support.h"
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
        QCOMPARE(polygons->title(), QString("Polygons  (%1)").arg(doc_->PolygonCount()));
        QCOMPARE(Find<QMenu>("mnuFichier")->title(), QString("&File"));
        QVERIFY(prompts_->Log.empty());
        SavePicture(*window_, "main_window_english.png");

        ChooseLanguage(QString::fromUtf8("Français"));
        QCOMPARE(prompts_->Texts("inform").size(), 1u);  // a restart is needed
        // Until the restart the menus keep their English texts.
        QCOMPARE(Find<QMenu>("mnuFichier")->title(), QString("&File"));
    }

    void labelsFollowTheHeaderSize() {
        auto* labels = Find<QPushButton>("cmdLabels");
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
        QVERIFY(started && started->CommandLine.starts_with("/opt/cgpsmapper/cgpsmapper typ "));
    }
};

QTEST_MAIN(LanguagesTest)
#include "test_languages.moc"
