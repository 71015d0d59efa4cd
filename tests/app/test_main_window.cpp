// The main window driven through its widgets, as a user would, with the
// questions answered by the test.
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "document/binary_reader.h"
#include "app_test_support.h"

using namespace mirvane;

namespace {

QString Title(const QString& rest = {}) { return "Mirvane v0.1.0" + rest; }

Document ReadBack(const QString& path) {
    Document doc;
    if (!OpenBinaryTyp(doc, path.toStdString())) qWarning("%s does not read back", qPrintable(path));
    return doc;
}

}  // namespace

class MainWindowTest : public MainWindowTestBase {
    Q_OBJECT

    QString PaneText() { return Find<QPlainTextEdit>("BoxVisualisation")->toPlainText(); }
    int Rows(const char* list) { return Find<QListWidget>(list)->count(); }
    QList<QAction*> RecentActions() { return window_->findChildren<QAction*>("mnuMRU"); }

    // Triggers the menu entry, its file dialog answered with `path`.
    void Trigger(const char* action, const QString& path) {
        prompts_->Paths.push_back(path.toStdString());
        Action(action)->trigger();
    }
    void OpenThroughMenu(const QString& path) { Trigger("mnuOuvrirTYP", path); }

    void DeleteFirstPolygon(bool yes) {
        Find<QListWidget>("ListPolygone")->setCurrentRow(0);
        prompts_->Answers.push_back(yes);
        QTest::mouseClick(Find<QPushButton>("cmdSupprimerPolygone"), Qt::LeftButton);
    }

private slots:
    void init() { StartWindow(); }
    void cleanup() { StopWindow(); }

    void openingABinaryTypFillsTheWindow() {
        REQUIRE_CORPUS_FILE("jbm-osm.typ");
        OpenThroughMenu(CorpusFile("jbm-osm.typ"));
        const Document expected = ReadBack(CorpusFile("jbm-osm.typ"));
        QCOMPARE(window_->windowTitle(), Title(" - [jbm-osm.typ]"));
        QCOMPARE(Rows("ListPolygone"), expected.PolygonCount());
        QCOMPARE(Rows("ListDraworder"), static_cast<int>(expected.DrawOrder.size()));
        QCOMPARE(Find<QLineEdit>("txtFID")->text(), QString::number(*expected.Identity.Fid));
        // This file's code page is not one the combo lists: its log is shown once.
        QCOMPARE(prompts_->Texts("errors").size(), expected.ReadErrorFlag ? 1u : 0u);
    }

    void openingATextFileFillsTheLists() {
        REQUIRE_CORPUS_FILE("jbm-osm.typ");
        const QString text = QString(MIRVANE_SHARED_DIR) + "/corpus/text/jbm-osm.txt";
        if (!QFileInfo::exists(text)) QSKIP("no text corpus");
        Trigger("mnuouvrirtxt", text);
        const Document binary = ReadBack(CorpusFile("jbm-osm.typ"));
        QCOMPARE(window_->windowTitle(), Title(" - [jbm-osm.txt]"));
        QCOMPARE(Rows("ListPOI"), binary.PoiCount());
        QVERIFY(model_->Recent().Items().front() == text.toStdString());
    }

    void aTruncatedFileOpensWithTheErrorList() {
        QFile whole(SampleFile());
        QVERIFY(whole.open(QIODevice::ReadOnly));
        QTemporaryDir folder;
        QFile half(folder.filePath("moitie.typ"));
        QVERIFY(half.open(QIODevice::WriteOnly) && half.write(whole.read(whole.size() / 2)) > 0);
        half.close();
        OpenThroughMenu(half.fileName());
        QCOMPARE(window_->windowTitle(), Title(" - [moitie.typ]"));
        QCOMPARE(prompts_->Texts("errors").size(), 1u);
    }

    void pickingARowShowsThatObjectAndViewTextTheWhole() {
        OpenThroughMenu(SampleFile());
        auto* list = Find<QListWidget>("ListPOI");
        QVERIFY(PaneText().contains("[_id]"));  // opening shows the whole document
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
        QCOMPARE(list->currentRow(), 1);
        QVERIFY(PaneText().contains("[_point]") && !PaneText().contains("[_id]"));
        // The arrow keys move through the list as clicks do.
        QTest::keyClick(list, Qt::Key_Down);
        QTRY_COMPARE(model_->Selection(), std::optional(ObjectRef{ObjectKind::Poi, 2}));
        QVERIFY(PaneText().contains("Type=0x003"));
        QMetaObject::invokeMethod(Find<QPushButton>("cmdvoirtxt"), "click");
        QVERIFY(PaneText().contains("[_id]"));
    }

    // Closing a changed document asks: No loses the changes, Yes saves them.
    void closeAsksThenLosesOrSavesTheChanges() {
        QTemporaryDir folder;
        OpenThroughMenu(SampleFile());
        const int polygons = Rows("ListPolygone");
        DeleteFirstPolygon(true);
        prompts_->Answers.push_back(false);
        Action("mnufermer")->trigger();
        QCOMPARE(prompts_->Texts("ask").size(), 2u);
        QCOMPARE(Rows("ListPolygone"), 0);
        OpenThroughMenu(SampleFile());
        DeleteFirstPolygon(true);
        prompts_->Answers.push_back(true);
        Trigger("mnufermer", folder.filePath("moins-un.typ"));
        QCOMPARE(ReadBack(folder.filePath("moins-un.typ")).PolygonCount(), polygons - 1);
    }

    void saveThroughTheMenuUpdatesTitleAndRecentFiles() {
        QTemporaryDir folder;
        OpenThroughMenu(SampleFile());
        Find<QLineEdit>("txtProductCode")->setText("7");
        emit Find<QLineEdit>("txtProductCode")->editingFinished();
        QVERIFY(window_->windowTitle().endsWith(" modifié"));
        Trigger("mnuEnregistrerTyp", folder.filePath("copie.typ"));
        QCOMPARE(window_->windowTitle(), Title(" - [copie.typ]"));
        QVERIFY(RecentActions().first()->text().contains("copie.typ"));
        QCOMPARE(ReadBack(folder.filePath("copie.typ")).Identity.ProductCode, std::optional<std::uint16_t>(7));
    }

    void identityFieldsTakeDigitsOnlyAndCheckTheRange() {
        Action("mnuNouveau")->trigger();
        auto* fid = Find<QLineEdit>("txtFID");
        fid->setFocus();
        QTest::keyClicks(fid, "12a3");
        QCOMPARE(fid->text(), QString("123"));
        fid->setText("65536");
        emit fid->editingFinished();
        QCOMPARE(prompts_->Texts("inform").size(), 1u);
        QVERIFY(!doc_->Identity.Fid);
    }

    void savingRightAfterTypingTakesTheTypedIdentity() {
        QTemporaryDir folder;
        Action("mnuNouveau")->trigger();
        Find<QLineEdit>("txtFID")->setText("4242");  // no editingFinished: the focus never left
        Find<QLineEdit>("txtProductCode")->setText("3");
        Trigger("mnuEnregistrerTyp", folder.filePath("neuf.typ"));
        QCOMPARE(ReadBack(folder.filePath("neuf.typ")).Identity.Fid, std::optional<std::uint16_t>(4242));
    }

    void deletingTheOnlyPolygonLeavesCountZero() {
        Action("mnuNouveau")->trigger();
        doc_->Polygons.push_back(PolygonRecord{.Type = "01f", .SubType = "00"});
        window_->Refresh();
        // The Delete key in the list asks as the button does.
        Find<QListWidget>("ListPolygone")->setCurrentRow(0);
        prompts_->Answers.push_back(true);
        QTest::keyClick(Find<QListWidget>("ListPolygone"), Qt::Key_Delete);
        QVERIFY(doc_->Polygons.empty());
    }

    void recentFilesOpenAndForgetMissingOnes() {
        QTemporaryDir folder;
        settings_->Set(kRecentFilesSection, "1", SampleFile().toStdString());
        settings_->Set(kRecentFilesSection, "2", folder.filePath("parti.typ").toStdString());
        RebuildWindow();
        QCOMPARE(RecentActions().size(), 2);
        RecentActions().first()->trigger();  // parti.typ, gone
        QTRY_COMPARE(RecentActions().size(), 1);
        QVERIFY(!settings_->Get(kRecentFilesSection, "2"));
        RecentActions().first()->trigger();
        QTRY_COMPARE(window_->windowTitle(), Title(" - [sample.typ]"));
    }

    void droppingATypFileOpensIt() {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(SampleFile())});
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &drop);
        QTRY_COMPARE(window_->windowTitle(), Title(" - [sample.typ]"));
    }

    void quitWithAnUntouchedNewDocumentAsks() {
        Action("mnuNouveau")->trigger();
        prompts_->Answers.push_back(true);  // save: no FID, so the quit stops
        QVERIFY(!window_->close());
        QCOMPARE(prompts_->Texts("inform").size(), 1u);
        prompts_->Answers.push_back(false);
        QVERIFY(window_->close());
    }
};

QTEST_MAIN(MainWindowTest)
#include "test_main_window.moc"
