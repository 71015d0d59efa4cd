// The preview frame and the icons view of the main window, driven through
// their widgets on a corpus file.
#include <QApplication>
#include <QFileInfo>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <memory>

#include "app_test_support.h"
#include "app/preview/icons_view.h"
#include "app/preview/preview_frame.h"
#include "app/preview/raster_image.h"

using namespace mirvane;

class PreviewTest : public MainWindowTestBase {
    Q_OBJECT

    app::PreviewFrame* Frame() { return Find<app::PreviewFrame>("fraApercu"); }
    app::IconsFrame* Icons() { return Find<app::IconsFrame>("fraVisualization"); }
    QListWidget* List(ObjectKind kind) {
        return Find<QListWidget>(kind == ObjectKind::Polygon ? "ListPolygone"
                                 : kind == ObjectKind::Polyline ? "ListPolyline" : "ListPOI");
    }

    void Pick(ObjectKind kind, int row) {
        QListWidget* list = List(kind);
        QVERIFY(row < list->count());
        list->scrollToItem(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
        QCOMPARE(list->currentRow(), row);
    }

    // Pixels of Apercus(index) that differ from the preview's background.
    int DrawnPixels(int index) {
        const QImage image = Find<app::RasterPicture>(qPrintable(QString("Apercus(%1)").arg(index)))->Image();
        const QRgb background = app::RasterQColor(Frame()->Background()).rgb();
        int drawn = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) drawn += image.pixel(x, y) != background;
        return drawn;
    }

    void Shot(const QString& name) { SavePicture(*window_, name + ".png"); }

private slots:
    void init() {
        REQUIRE_CORPUS_FILE("jbm-osm.typ");
        StartWindow();
        window_->resize(1280, 800);
        QVERIFY(model_->OpenAny(CorpusFile("jbm-osm.typ").toStdString()));
    }

    void cleanup() { StopWindow(); }

    void pickingEachKindShowsItsPicture() {
        QCOMPARE(DrawnPixels(0), 0);
        for (ObjectKind kind : {ObjectKind::Polygon, ObjectKind::Polyline, ObjectKind::Poi}) {
            Pick(kind, 0);
            QVERIFY2(DrawnPixels(0) > 0, qPrintable(QString("kind %1").arg(static_cast<int>(kind))));
            QVERIFY(Frame()->Model().State().Shown == kind);
        }
        Shot("apercu-poi-seul");
        QTest::mouseClick(Find<QRadioButton>("optSuperposition"), Qt::LeftButton);
        QVERIFY(!Find<QWidget>("sldZoom")->isEnabled());
        Shot("apercu-poi-superposition");

        model_->Close();  // nothing is picked any more
        QCOMPARE(DrawnPixels(0), 0);
    }

    void theBackgroundButtonRepaintsThePreview() {
        Pick(ObjectKind::Poi, 0);
        RasterColour asked = 0;
        Frame()->SetColourChooser([&asked](RasterColour current) -> std::optional<RasterColour> {
            asked = current;
            return 0x00204060;
        });
        QTest::mouseClick(Find<QPushButton>("cmdCouleurfond"), Qt::LeftButton);
        QCOMPARE(asked, kDefaultPreviewBackground);
        QCOMPARE(Frame()->Background(), RasterColour{0x00204060});
        QCOMPARE(Find<app::RasterPicture>("Apercus(0)")->Image().pixel(0, 0), qRgb(0x60, 0x40, 0x20));
    }

    void anIconClickSelectsItsRowAndARowScrollsToItsIcon() {
        QVERIFY(!Icons()->isVisible());
        Pick(ObjectKind::Polygon, 13);
        QTest::mouseClick(Find<QPushButton>("cmdVisualisation"), Qt::LeftButton);
        QVERIFY(Icons()->isVisible());
        Shot("icones");
        const IconsViewModel& icons = Icons()->Model();
        QCOMPARE(icons.Counts().Pois, List(ObjectKind::Poi)->count());

        const int poi = 3;
        const RasterRect cell = icons.Grid().CellOf(*icons.Counts().NumberOf({ObjectKind::Poi, poi}));
        QTest::mouseClick(Icons()->Picture(), Qt::LeftButton, {},
                          QPoint(cell.Left + cell.Width / 2, cell.Top + cell.Height / 2));
        QCOMPARE(List(ObjectKind::Poi)->currentRow(), poi);
        QVERIFY(Frame()->Model().State().Shown == ObjectKind::Poi);

        auto* scroll = Find<QScrollBar>("VScroll1");
        scroll->setValue(0);
        const int last = List(ObjectKind::Poi)->count() - 1;
        Pick(ObjectKind::Poi, last);
        const RasterRect lastCell = icons.Grid().CellOf(*icons.Counts().NumberOf({ObjectKind::Poi, last}));
        const int viewHeight = Find<QWidget>("Picture5")->findChild<QWidget*>("qt_scrollarea_viewport")->height();
        QVERIFY(lastCell.Top >= scroll->value());
        QVERIFY(lastCell.Top + lastCell.Height <= scroll->value() + viewHeight);
        Shot("icones-dernier-poi");

        QTest::mouseClick(Find<QPushButton>("cmdVisualisation"), Qt::LeftButton);
        QVERIFY(!Icons()->isVisible());
    }
};

QTEST_MAIN(PreviewTest)
#include "test_preview.moc"
