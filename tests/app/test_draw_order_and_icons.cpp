// frmDraworder and frmIcones driven by their control names: a draw order
// changed in the grid and by a drag reaches the saved file, Cancel leaves
// every byte; the browser lists the groups of a file and copies a sub-icon.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

#include "app/draworder/draw_order_window.h"
#include "app/poi/icons_window.h"
#include "app_test_support.h"
#include "document/binary_writer.h"

using mirvane::DrawOrderEntry;
using mirvane::app::DrawOrderWindow;
using mirvane::app::IconsWindow;

namespace {

const mirvane::SaveTime kSampleTime{2026, 11, 22, 12, 0, 0};  // the bundled samples' date

QString Indexed(const char* name, int index) { return QStringLiteral("%1(%2)").arg(name).arg(index); }

}  // namespace

class DrawOrderAndIconsTest : public MainWindowTestBase {
    Q_OBJECT

    // The grid row that holds `type`.
    int RowOf(DrawOrderWindow& window, const QString& type) {
        for (int i = 0;; ++i) {
            auto* edit = window.findChild<QLineEdit*>(Indexed("txtTypes", i));
            if (!edit) qFatal("no row of type %s", qPrintable(type));
            if (edit->text() == type) return i;
        }
    }
    void TypeInto(QLineEdit* edit, const QString& text) {
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }

private slots:
    void init() { StartWindow(); }
    void cleanup() { StopWindow(); }

    void DrawOrderReachesTheDocument() {
        QVERIFY(model_->OpenTyp(SampleFile().toStdString()));
        QVERIFY(Find<QPushButton>("cmdDraworder")->isEnabled());
        DrawOrderWindow window(*model_, window_.get());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        // 0x003 dragged from level 3 into the gap between levels 1 and 2. Qt hands a
        // drop event only to the target of a running drag, so the test drops directly.
        auto* tree = Find<mirvane::app::DrawOrderTree>(&window, "treeNiveaux");
        const QList<QTreeWidgetItem*> found = tree->findItems("0x003", Qt::MatchExactly | Qt::MatchRecursive);
        QCOMPARE(found.size(), 1);
        tree->setCurrentItem(found[0]);
        const QRect level2 = tree->visualItemRect(tree->topLevelItem(1));
        QVERIFY(tree->DropCurrentRowAt(QPoint(level2.center().x(), level2.top() + 2)));
        QTest::qWait(1);
        QCOMPARE(Find<QLineEdit>(&window, qPrintable(Indexed("txtNiveau", RowOf(window, "003"))))->text(), "2");
        QCOMPARE(Find<QLineEdit>(&window, qPrintable(Indexed("txtNiveau", RowOf(window, "007"))))->text(), "4");

        // 0x004 removed with its box; 0x002 moved to level 1 in the grid, and Enter is OK.
        Find<QCheckBox>(&window, qPrintable(Indexed("Check1", RowOf(window, "004"))))->click();
        auto* level = Find<QLineEdit>(&window, qPrintable(Indexed("txtNiveau", RowOf(window, "002"))));
        TypeInto(level, "1");
        QTest::keyClick(level, Qt::Key_Return);
        QCOMPARE(window.result(), int(QDialog::Accepted));
        QVERIFY(model_->IsModified());

        const std::vector<DrawOrderEntry> expected{
            {1, 0x001, 0}, {1, 0x002, 0}, {1, 0x005, 0}, {1, 0x009, 0}, {1, 0x00d, 0}, {2, 0x003, 0},
            {3, 0x006, 0}, {3, 0x00a, 0}, {3, 0x00e, 0}, {4, 0x007, 0}, {4, 0x00b, 0}, {4, 0x00f, 0},
            {5, 0x008, 0}, {5, 0x00c, 0}, {5, 0x010, 0}};
        QVERIFY(doc_->DrawOrder == expected);  // the file keeps it: BinaryRoundTrip.DrawOrderLevelsAndMasks
    }

    void CancelLeavesEveryByte() {
        QVERIFY(model_->OpenTyp(SampleFile().toStdString()));
        mirvane::Bytes before, after;
        QVERIFY(!mirvane::BuildBinaryTyp(*doc_, before, kSampleTime).has_value());
        DrawOrderWindow window(*model_, window_.get());
        window.show();

        // A type above 0x1FF is refused when the field is left, and emptied.
        auto* type = Find<QLineEdit>(&window, "txtTypes(0)");
        TypeInto(type, "fff");
        emit type->editingFinished();
        QCOMPARE(type->text(), QString());
        QCOMPARE(prompts_->Texts("inform").size(), std::size_t{1});
        Find<QCheckBox>(&window, "chkAll")->click();
        Find<QPushButton>(&window, "cmdAjouter")->click();
        SavePicture(window, "frmDraworder-test.png");

        QTest::keyClick(&window, Qt::Key_Escape);
        QCOMPARE(window.result(), int(QDialog::Rejected));
        QVERIFY(!model_->IsModified());
        QVERIFY(!mirvane::BuildBinaryTyp(*doc_, after, kSampleTime).has_value());
        QVERIFY(after == before);
    }

    void BrowserListsGroupsAndCopies() {
        QVERIFY(model_->OpenTyp((QString(MIRVANE_SOURCE_DIR) + "/samples/extra-pois.typ").toStdString()));
        QVERIFY(Find<QPushButton>("cmdIcones")->isEnabled());
        mirvane::SharedPoiClipboard().Bitmap.reset();
        IconsWindow window(*model_, window_.get());
        window.show();

        auto* list = Find<QTreeWidget>(&window, "lstvExtraPOI");
        QCOMPARE(list->topLevelItem(2)->text(0), QString("0x2c0"));
        QCOMPARE(Find<QLabel>(&window, "lbltaille(6)")->text(), QString("72 x 40"));
        // The first sub-icon is enlarged 8 times, its transparent corner left clear.
        const QImage enlarged = Find<QLabel>(&window, "Apercu1(0)")->pixmap().toImage();
        QCOMPARE(enlarged.size(), QSize(16 * 8, 16 * 8));
        QCOMPARE(enlarged.pixelColor(0, 0).alpha(), 0);

        auto* copy = Find<QPushButton>(&window, "cmdCopier");
        QTest::mouseClick(Find<QLabel>(&window, "Apercu1(6)"), Qt::LeftButton);
        QVERIFY(!copy->isEnabled());  // 72 x 40 is more than the POI editor holds
        QTest::mouseClick(Find<QLabel>(&window, "Apercu1(2)"), Qt::LeftButton);
        QVERIFY(copy->isEnabled());
        copy->click();
        QVERIFY(mirvane::SharedPoiClipboard().Bitmap.has_value());
        QCOMPARE(mirvane::SharedPoiClipboard().Bitmap->Width, 24);
        SavePicture(window, "frmIcones-test.png");
    }
};

QTEST_MAIN(DrawOrderAndIconsTest)
#include "test_draw_order_and_icons.moc"
