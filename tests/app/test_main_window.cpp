// The main window driven through its widgets, as a user would, with the
// questions answered by the test.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <filesystem>
#include <memory>

#include "document/binary_reader.h"
#include "app_test_support.h"
#include "app/shell/error_list_dialog.h"

using namespace mirvane;

class MainWindowTest : public MainWindowTestBase {
    Q_OBJECT

    QString Caption(const char* frame) { return Find<QGroupBox>(frame)->title(); }
    QList<QAction*> RecentActions() {
        QList<QAction*> found;
        for (QAction* a : window_->findChildren<QAction*>("mnuMRU")) found << a;
        return found;
    }

    // Opens through the menu, the dialog answered with `path`.
    void OpenThroughMenu(const QString& path) {
        prompts_->Paths.push_back(path.toStdString());
        Action("mnuOuvrirTYP")->trigger();
    }

    void DeleteFirstPolygon(bool yes) {
        auto* list = Find<QListWidget>("ListPolygone");
        list->setCurrentRow(0);
        prompts_->Answers.push_back(yes);
        QTest::mouseClick(Find<QPushButton>("cmdSupprimerPolygone"), Qt::LeftButton);
    }

private slots:
    void init() { StartWindow(); }
    void cleanup() { StopWindow(); }

    void startsWithNothingToCloseOrSave() {
        QCOMPARE(window_->windowTitle(), QString("Mirvane v0.1.0"));
        QVERIFY(!Action("mnufermer")->isEnabled());
        QVERIFY(!Action("mnuEnregistrerTyp")->isEnabled());
        QVERIFY(Action("mnuOuvrirTYP")->isEnabled());
        QVERIFY(Action("mnuTypSpeciaux")->isEnabled());  // it starts a new document
        QVERIFY(!Find<QLineEdit>("txtFID")->isEnabled());
        QVERIFY(Find<QPlainTextEdit>("BoxVisualisation")->isReadOnly());
        QCOMPARE(Caption("fraPolygone"), QString("Liste des polygones"));
        QCOMPARE(Action("mnuOuvrirTYP")->shortcut(), QKeySequence(QKeySequence::Open));
        QCOMPARE(Action("mnuEnregistrerTyp")->shortcut(), QKeySequence(QKeySequence::Save));
    }

    void openingABinaryTypFillsTheWindow() {
        REQUIRE_CORPUS_FILE("jbm-osm.typ");
        OpenThroughMenu(CorpusFile("jbm-osm.typ"));
        Document expected;
        QVERIFY(OpenBinaryTyp(expected, CorpusFile("jbm-osm.typ").toStdString()));
        QCOMPARE(window_->windowTitle(), QString("Mirvane v0.1.0 - [jbm-osm.typ]"));
        QCOMPARE(Find<QListWidget>("ListPolygone")->count(), expected.PolygonCount());
        QCOMPARE(Find<QListWidget>("ListPOI")->count(), expected.PoiCount());
        QCOMPARE(Find<QListWidget>("ListDraworder")->count(), static_cast<int>(expected.DrawOrder.size()));
        QCOMPARE(Caption("fraPolygone"), QString("Liste des polygones  (%1)").arg(expected.PolygonCount()));
        QVERIFY(Caption("frapolyline").contains(" - "));
        QVERIFY(Find<QLabel>("lblNomTyp")->text().endsWith("\njbm-osm.typ"));
        QCOMPARE(Find<QLineEdit>("txtFID")->text(), QString::number(*expected.Identity.Fid));
        QVERIFY(Action("mnufermer")->isEnabled());
        QVERIFY(Find<QPushButton>("cmdSupprimerPOI")->isEnabled());
        QVERIFY(Find<QPushButton>("cmdAppliquerModif")->isHidden());
        const QString text = Find<QPlainTextEdit>("BoxVisualisation")->toPlainText();
        QVERIFY(text.contains("[_id]"));
        QVERIFY(text.contains("[_polygon]"));
        // This file's code page is not one the combo lists: its log is shown once.
        QCOMPARE(prompts_->Texts("errors").size(), expected.ReadErrorFlag ? 1u : 0u);
    }

    void openingATextFileFillsTheLists() {
        REQUIRE_CORPUS_FILE("jbm-osm.typ");
        const QString text = QString(MIRVANE_SHARED_DIR) + "/corpus/text/jbm-osm.txt";
        if (!QFileInfo::exists(text)) QSKIP("no text corpus");
        QVERIFY(Action("mnuouvrirtxt")->isEnabled());
        prompts_->Paths.push_back(text.toStdString());
        Action("mnuouvrirtxt")->trigger();
        Document binary;
        QVERIFY(OpenBinaryTyp(binary, CorpusFile("jbm-osm.typ").toStdString()));
        QCOMPARE(window_->windowTitle(), QString("Mirvane v0.1.0 - [jbm-osm.txt]"));
        QCOMPARE(Find<QListWidget>("ListPolygone")->count(), binary.PolygonCount());
        QCOMPARE(Find<QListWidget>("ListPOI")->count(), binary.PoiCount());
        QCOMPARE(Find<QComboBox>("cbbHeadersize")->currentIndex(), 0);
        QVERIFY(Find<QLabel>("lblDateCreation")->text().isEmpty());
        QVERIFY(model_->Recent().Items().front() == text.toStdString());
    }

    void aTruncatedFileOpensWithTheErrorList() {
        QFile whole(SampleFile());
        QVERIFY(whole.open(QIODevice::ReadOnly));
        QTemporaryDir folder;
        QFile half(folder.filePath("moitie.typ"));
        QVERIFY(half.open(QIODevice::WriteOnly));
        half.write(whole.read(whole.size() / 2));
        half.close();
        OpenThroughMenu(half.fileName());
        QCOMPARE(window_->windowTitle(), QString("Mirvane v0.1.0 - [moitie.typ]"));
        QCOMPARE(prompts_->Texts("errors").size(), 1u);
        QVERIFY(QString::fromStdString(prompts_->Texts("errors")[0]).contains("moitie.typ"));
        QVERIFY(Action("mnufermer")->isEnabled());
    }

    void pickingARowShowsThatObjectAndViewTextTheWhole() {
        OpenThroughMenu(SampleFile());
        auto* list = Find<QListWidget>("ListPOI");
        auto* pane = Find<QPlainTextEdit>("BoxVisualisation");
        QVERIFY(pane->toPlainText().contains("[_id]"));  // opening shows the whole document
        QVERIFY(!model_->Selection());
        const QRect row = list->visualItemRect(list->item(1));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
        QCOMPARE(list->currentRow(), 1);
        QVERIFY(pane->toPlainText().contains("[_point]"));
        QVERIFY(!pane->toPlainText().contains("[_id]"));
        // The arrow keys move through the list as clicks do.
        QTest::keyClick(list, Qt::Key_Down);
        QTRY_COMPARE(model_->Selection().value_or(ObjectRef{}).Row, 2);
        QVERIFY(model_->Selection()->Kind == ObjectKind::Poi);
        QVERIFY(pane->toPlainText().contains("Type=0x003"));
        QMetaObject::invokeMethod(Find<QPushButton>("cmdvoirtxt"), "click");
        QVERIFY(pane->toPlainText().contains("[_id]"));
    }

    void closeWithNoLosesTheChanges() {
        OpenThroughMenu(SampleFile());
        DeleteFirstPolygon(true);
        QVERIFY(window_->windowTitle().endsWith(" modifié"));
        QCOMPARE(Find<QLabel>("lblLongueur")->text(), QString("modifié"));
        prompts_->Answers.push_back(false);
        Action("mnufermer")->trigger();
        QCOMPARE(prompts_->Texts("ask").size(), 2u);
        QCOMPARE(window_->windowTitle(), QString("Mirvane v0.1.0"));
        QCOMPARE(Find<QListWidget>("ListPolygone")->count(), 0);
        QVERIFY(Find<QPlainTextEdit>("BoxVisualisation")->toPlainText().isEmpty());
        QCOMPARE(Caption("fraPolygone"), QString("Liste des polygones"));
        QVERIFY(!Action("mnufermer")->isEnabled());
        QVERIFY(!Find<QPushButton>("cmdSupprimerPolygone")->isEnabled());
    }

    void closeWithYesSavesAndTheFileReadsBack() {
        QTemporaryDir folder;
        const QString target = folder.filePath("moins-un.typ");
        OpenThroughMenu(SampleFile());
        const int polygons = Find<QListWidget>("ListPolygone")->count();
        DeleteFirstPolygon(true);
        prompts_->Answers.push_back(true);
        prompts_->Paths.push_back(target.toStdString());
        Action("mnufermer")->trigger();
        QVERIFY(prompts_->Texts("warn").empty());
        Document saved;
        QVERIFY(OpenBinaryTyp(saved, target.toStdString()));
        QCOMPARE(saved.PolygonCount(), polygons - 1);
    }

    void saveThroughTheMenuUpdatesTitleAndRecentFiles() {
        QTemporaryDir folder;
        const QString target = folder.filePath("copie.typ");
        OpenThroughMenu(SampleFile());
        Find<QLineEdit>("txtProductCode")->setText("7");
        emit Find<QLineEdit>("txtProductCode")->editingFinished();
        QVERIFY(window_->windowTitle().endsWith(" modifié"));
        prompts_->Paths.push_back(target.toStdString());
        Action("mnuEnregistrerTyp")->trigger();
        QCOMPARE(window_->windowTitle(), QString("Mirvane v0.1.0 - [copie.typ]"));
        QVERIFY(RecentActions().first()->text().contains("copie.typ"));
        Document saved;
        QVERIFY(OpenBinaryTyp(saved, target.toStdString()));
        QCOMPARE(saved.Identity.ProductCode, std::optional<std::uint16_t>(7));
    }

    void identityFieldsTakeDigitsOnlyAndCheckTheRange() {
        Action("mnuNouveau")->trigger();
        QCOMPARE(window_->windowTitle(), QString("Mirvane v0.1.0 - Nouveau TYP"));
        QCOMPARE(Find<QComboBox>("cbbCodepage")->currentText(), QString("1252"));
        QCOMPARE(Find<QComboBox>("cbbHeadersize")->currentIndex(), 0);
        auto* fid = Find<QLineEdit>("txtFID");
        QVERIFY(fid->isEnabled());
        fid->setFocus();
        QTest::keyClicks(fid, "12a3");
        QCOMPARE(fid->text(), QString("123"));
        fid->setText("65536");
        emit fid->editingFinished();
        QCOMPARE(prompts_->Texts("inform").size(), 1u);
        QVERIFY(prompts_->Texts("inform")[0].find("65535") != std::string::npos);
        QVERIFY(!doc_->Identity.Fid);
        fid->setText("0");
        emit fid->editingFinished();
        QCOMPARE(doc_->Identity.Fid, std::optional<std::uint16_t>(0));
        // A new document never shows the modified mark.
        QCOMPARE(window_->windowTitle(), QString("Mirvane v0.1.0 - Nouveau TYP"));
    }

    void savingRightAfterTypingTakesTheTypedIdentity() {
        QTemporaryDir folder;
        const QString target = folder.filePath("neuf.typ");
        Action("mnuNouveau")->trigger();
        auto* fid = Find<QLineEdit>("txtFID");
        auto* product = Find<QLineEdit>("txtProductCode");
        fid->setText("4242");  // no editingFinished: the focus never left
        product->setText("3");
        prompts_->Paths.push_back(target.toStdString());
        Action("mnuEnregistrerTyp")->trigger();
        QVERIFY(prompts_->Texts("inform").empty());
        Document saved;
        QVERIFY(OpenBinaryTyp(saved, target.toStdString()));
        QCOMPARE(saved.Identity.Fid, std::optional<std::uint16_t>(4242));
        QCOMPARE(window_->windowTitle(), QString("Mirvane v0.1.0 - [neuf.typ]"));
    }

    void deletingTheOnlyPolygonLeavesCountZero() {
        Action("mnuNouveau")->trigger();
        PolygonRecord only;
        only.Type = "01f";
        only.SubType = "00";
        doc_->Polygons.push_back(only);
        window_->Refresh();
        QCOMPARE(Caption("fraPolygone"), QString("Liste des polygones  (1)"));
        DeleteFirstPolygon(false);
        QCOMPARE(Find<QListWidget>("ListPolygone")->count(), 1);
        // The Delete key in the list asks the same question.
        prompts_->Answers.push_back(false);
        QTest::keyClick(Find<QListWidget>("ListPolygone"), Qt::Key_Delete);
        QCOMPARE(prompts_->Texts("ask").size(), 2u);
        DeleteFirstPolygon(true);
        QCOMPARE(Find<QListWidget>("ListPolygone")->count(), 0);
        QCOMPARE(Caption("fraPolygone"), QString("Liste des polygones  (0)"));
        QVERIFY(doc_->Polygons.empty());
        QVERIFY(prompts_->Texts("ask").back().find("Type:0x01f  SubType:0x00") != std::string::npos);
    }

    void recentFilesOpenAndForgetMissingOnes() {
        QTemporaryDir folder;
        const QString gone = folder.filePath("parti.typ");
        settings_->Set(kRecentFilesSection, "1", SampleFile().toStdString());
        settings_->Set(kRecentFilesSection, "2", gone.toStdString());
        RebuildWindow();
        QCOMPARE(RecentActions().size(), 2);
        QVERIFY(RecentActions().first()->text().endsWith("parti.typ"));
        RecentActions().first()->trigger();
        QTRY_COMPARE(RecentActions().size(), 1);
        QCOMPARE(prompts_->Texts("inform").back(), std::string("Mirvane|Fichier introuvable"));
        QVERIFY(!settings_->Get(kRecentFilesSection, "2"));
        RecentActions().first()->trigger();
        QTRY_COMPARE(window_->windowTitle(), QString("Mirvane v0.1.0 - [sample.typ]"));
    }

    void droppingATypFileOpensIt() {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(SampleFile())});
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &drop);
        QTRY_COMPARE(window_->windowTitle(), QString("Mirvane v0.1.0 - [sample.typ]"));
    }

    void quitWithAnUntouchedNewDocumentAsks() {
        Action("mnuNouveau")->trigger();
        prompts_->Answers.push_back(true);  // save: no FID, so the quit stops
        QVERIFY(!window_->close());
        QVERIFY(window_->isVisible());
        QCOMPARE(prompts_->Texts("inform").back(), std::string("FID absent|Il faut indiquer le FID."));
        prompts_->Answers.push_back(false);
        QVERIFY(window_->close());
    }

    void errorListShowsTheLogReadOnlyAndCopies() {
        app::ErrorListDialog dialog("Erreurs rencontrées\r\nLigne 3");
        auto* box = dialog.findChild<QPlainTextEdit*>("txtErreurs");
        QVERIFY(box && box->isReadOnly());
        QCOMPARE(box->toPlainText(), QString("Erreurs rencontrées\nLigne 3"));
        dialog.findChild<QPushButton*>("cmdCopy")->click();
        QCOMPARE(QApplication::clipboard()->text(), box->toPlainText());
    }
};

QTEST_MAIN(MainWindowTest)
#include "test_main_window.moc"
