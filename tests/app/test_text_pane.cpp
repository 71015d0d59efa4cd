// The text pane driven through its widgets: colours, apply in both scopes,
// backups, search, saving the text, and a Cyrillic label going round.
#include <QAction>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <memory>

#include "document/presentation.h"
#include "app_test_support.h"
#include "text/listing.h"
#include "app/text/text_pane.h"

using namespace mirvane;

namespace {

// "Москва" in Windows-1251.
const std::string kMoscow1251 = "\xCC\xEE\xF1\xEA\xE2\xE0";

std::string SampleText() {
    return "[_id]\r\nProductCode=1\r\nFID=500\r\nCodePage=1251\r\n[End]\r\n\r\n"
           "[_drawOrder]\r\nType=0x01,1\r\nType=0x02,2\r\n[End]\r\n\r\n"
           "[_polygon]\r\nType=0x01\r\nString1=0x04," + kMoscow1251 +
           "\r\nExtendedLabels=N\r\nXpm=\"0 0 1 0\"\r\n\"1 c #FF0000\"\r\n[end]\r\n\r\n"
           "[_polygon]\r\nType=0x02\r\nExtendedLabels=N\r\nXpm=\"0 0 1 0\"\r\n\"1 c #00FF00\"\r\n[end]\r\n";
}

}  // namespace

class TextPaneTest : public MainWindowTestBase {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> dir_;

    QPlainTextEdit* Pane() { return Find<QPlainTextEdit>("BoxVisualisation"); }
    QString Path(const char* name) { return dir_->filePath(name); }

    // Types into the pane as the user would: the change event comes from the widget.
    void ReplaceInPane(const QString& from, const QString& to) {
        QTextCursor found = Pane()->document()->find(from);
        QVERIFY(!found.isNull());
        Pane()->setTextCursor(found);
        Pane()->setFocus();
        QTest::keyClicks(Pane(), to);
    }
    void ShowWholeText() { Find<QPushButton>("cmdvoirtxt")->click(); }
    void PickPolygon(int row) {
        auto* list = Find<QListWidget>("ListPolygone");
        list->setCurrentRow(row);
        emit list->itemClicked(list->item(row));
    }
    std::string ListingOfPolygon(int row) { return ListOneObject(*doc_, ObjectRef{ObjectKind::Polygon, row}).Plain(); }
    static bool HasMoscow(const std::string& text) { return text.find("String1=0x04," + kMoscow1251) != std::string::npos; }
    void Apply() { Find<QPushButton>("cmdAppliquerModif")->click(); }

private slots:
    void init() {
        dir_ = std::make_unique<QTemporaryDir>();
        StartWindow();
        window_->Text().Session().SetBackupFolder(dir_->path().toStdString());
        QFile file(Path("sample.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::fromStdString(SampleText()));
        file.close();
        QVERIFY(model_->OpenText(Path("sample.txt").toStdString()));
        QCOMPARE(doc_->Polygons.size(), std::size_t(2));
    }

    void cleanup() { StopWindow(); }

    void listingIsColouredAndDecodedInTheDocumentCodePage() {
        ShowWholeText();
        QTextDocument* text = Pane()->document();
        QVERIFY(Pane()->toPlainText().contains(QString::fromUtf8("String1=0x04,Москва")));
        auto colourAt = [&](const QString& word) {
            QTextCursor at = text->find(word);
            return at.charFormat().foreground().color();
        };
        QCOMPARE(colourAt("[_polygon]"), QColor(0, 0, 255));  // section head
        QCOMPARE(colourAt("ProductCode"), QColor(255, 0, 0));     // key
    }

    void applyOnePolygonKeepsItsCyrillicLabelAndReselectsIt() {
        PickPolygon(0);
        QVERIFY(Pane()->toPlainText().contains(QString::fromUtf8("Москва")));
        ReplaceInPane("FF0000", "0000FF");
        Apply();
        QCOMPARE(doc_->Polygons.size(), std::size_t(2));
        QVERIFY(ListingOfPolygon(0).find("#0000FF") != std::string::npos);
        QVERIFY(HasMoscow(ListingOfPolygon(0)));
        QCOMPARE(Find<QListWidget>("ListPolygone")->currentRow(), 0);
    }

    void applyWholeDocumentReplacesEverything() {
        ShowWholeText();
        QTextCursor second = Pane()->document()->find("Type=0x02");
        QVERIFY(!second.isNull());
        // Cut from the second polygon's section to the end.
        second.movePosition(QTextCursor::PreviousBlock, QTextCursor::MoveAnchor);
        second.movePosition(QTextCursor::StartOfBlock);
        second.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
        Pane()->setTextCursor(second);
        Find<QAction>("mnuSupprimer")->trigger();
        Apply();
        QCOMPARE(doc_->Polygons.size(), std::size_t(1));
        QVERIFY(HasMoscow(ListingOfPolygon(0)));
        QCOMPARE(doc_->Identity.CodePage, 1251);
    }

    void editMenuUndoesOnThePanesOwnStack() {
        ShowWholeText();
        const QString before = Pane()->toPlainText();
        ReplaceInPane("FF0000", "123456");
        QVERIFY(Pane()->toPlainText() != before);
        for (int i = 0; i < 6 && Pane()->toPlainText() != before; ++i) Find<QAction>("mnuAnnuler")->trigger();
        QCOMPARE(Pane()->toPlainText(), before);
        // The listing itself is not on the stack.
        Find<QAction>("mnuAnnuler")->trigger();
        QCOMPARE(Pane()->toPlainText(), before);
    }

    // Each apply keeps a backup, in the file too while automatic backups are on.
    void backupsWindowStepsThroughThreeApplies() {
        Find<QAction>("mnuSauvegardeAuto")->setChecked(true);
        PickPolygon(1);
        for (const char* colour : {"111111", "222222", "333333"}) {
            ReplaceInPane(Pane()->document()->find(QRegularExpression("#[0-9A-F]{6}")).selectedText().mid(1),
                          colour);
            Apply();
        }
        QVERIFY(QFile::exists(Path("Mirvane.save")));
        QCOMPARE(window_->Text().Session().Backups().Count(), std::size_t(3));
        Find<QAction>("mnuSauvegardeTexte")->trigger();
        auto* backups = Find<QDialog>("frmSauvegardetxt");
        QVERIFY(Find<QPlainTextEdit>(backups, "Text1")->toPlainText().contains("333333"));
        SavePicture(*backups, "frmSauvegardetxt.png");
        backups->close();
    }

    void searchAndReplaceAllEditThePane() {
        ShowWholeText();
        Find<QPushButton>("cmdRecherche")->click();
        auto* search = Find<QDialog>("frmRecherche");
        Find<QLineEdit>(search, "Text1")->setText("extendedlabels");
        Find<QPushButton>(search, "cmdSuivant")->click();
        QCOMPARE(Pane()->textCursor().selectedText(), QString("ExtendedLabels"));

        // Replacing in the pane is an edit the document has not taken yet.
        Find<QLineEdit>(search, "txtRemplacer")->setText("Extended Labels");
        Find<QPushButton>(search, "cmdRemplacerTout")->click();
        QVERIFY(Pane()->toPlainText().contains("Extended Labels"));
        QVERIFY(Find<QPushButton>("cmdAppliquerModif")->isEnabled());
        SavePicture(*search, "frmRecherche.png");
    }

    void saveTextKeepsTheCodePageAndLineEnds() {
        ShowWholeText();
        const std::string target = Path("saved.txt").toStdString();
        prompts_->Paths.push_back(target);
        Find<QAction>("mnuEnregistrerTxt")->trigger();
        QFile saved(Path("saved.txt"));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        const QByteArray bytes = saved.readAll();
        QVERIFY(bytes.contains(QByteArray::fromStdString("String1=0x04," + kMoscow1251 + "\r\n")));
        QVERIFY(!bytes.contains("\n\n"));
    }
};

QTEST_MAIN(TextPaneTest)
#include "test_text_pane.moc"
