// frmImporterBitmap driven through its widgets, offscreen, on picture files
// the test writes with Qt's own writers, and the picture of the clipboard.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "app/platform/qt_image_source.h"
#include "app/poi/import_bitmap_window.h"
#include "app/preview/raster_image.h"
#include "app/shell/application.h"
#include "child_widget.h"
#include "scripted_prompts.h"

using namespace mirvane;
using mirvane::app::ImportBitmapWindow;

namespace {

// A transparent ground with an opaque blue square in the middle.
QImage BlueSquareOnNothing(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter(&image).fillRect(width / 4, height / 4, width / 2, height / 2, QColor(0, 0, 255));
    return image;
}

}  // namespace

class ImportBitmapTest : public QObject {
    Q_OBJECT

    QTemporaryDir folder_;
    ScriptedPrompts prompts_;
    std::unique_ptr<ImportBitmapWindow> window_;

    QString Save(const QImage& image, const QString& name) {
        const QString path = folder_.filePath(name);
        if (!image.save(path)) qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    template <typename T = QWidget>
    T* Control(const char* name) { return Child<T>(window_.get(), name); }
    void Click(const char* name) { QTest::mouseClick(Control<QPushButton>(name), Qt::LeftButton); }
    QString Text(const char* name) { return Control<QLabel>(name)->text(); }

    // Types the path into Text1 and presses "Ouvrir l'image".
    void OpenPicture(const QString& path) {
        auto* text1 = Control<QLineEdit>("Text1");
        text1->selectAll();
        QTest::keyClicks(text1, path);
        Click("cmdOuvrir");
    }
    QString Size() {
        return Control<QComboBox>("cbbLargeur")->currentText() + "x" + Control<QComboBox>("cbbHauteur")->currentText();
    }

private slots:
    void initTestCase() { QVERIFY(folder_.isValid()); }
    void init() {
        prompts_ = ScriptedPrompts();
        window_ = std::make_unique<ImportBitmapWindow>(prompts_);
        window_->show();
    }
    void cleanup() { window_.reset(); }

    void aPngWithTransparencyGivesTransparentPixels() {
        OpenPicture(Save(BlueSquareOnNothing(32, 16), "square.png"));
        QCOMPARE(Size(), QString("32x16"));
        // Before OK, on the night map (the bitmap at twice its size from (32, 48)).
        QCOMPARE(Control<app::RasterPicture>("picNuit")->Image().pixelColor(64, 64), QColor(0, 0, 255));
        Click("cmdImporterBitmap");
        QCOMPARE(window_->result(), int(QDialog::Accepted));
        QVERIFY(prompts_.Log.empty());
        QCOMPARE(window_->Model().Result()->Indices.At({0, 0}), kTransparentIndex);
    }

    // A BMP through Qt's reader, the width combo and the colour mode the label names.
    void aBmpOpensAndTheWidthComboScalesIt() {
        QImage halves(10, 10, QImage::Format_RGB32);
        halves.fill(QColor(255, 255, 255));
        QPainter(&halves).fillRect(0, 0, 5, 10, QColor(0, 0, 0));
        OpenPicture(Save(halves, "halves.bmp"));
        QCOMPARE(Size(), QString("10x10"));
        QVERIFY(prompts_.Log.empty());
        Control<QComboBox>("cbbLargeur")->setCurrentIndex(1);  // 2 pixels: one black, one white
        QCOMPARE(Size(), QString("2x10"));
        QVERIFY(Text("lblNombreCouleurs").endsWith("colormode 10"));
        Click("cmdImporterBitmap");
        QCOMPARE(window_->Model().Result()->Width, 2);
    }

    void theClipboardGivesItsPictureAsAFileWould() {
        const QImage image = BlueSquareOnNothing(12, 6);
        QGuiApplication::clipboard()->setImage(image);
        const auto picture = app::ClipboardPicture();
        if (!picture) QSKIP("this platform has no clipboard");
        QCOMPARE(*picture, app::RgbaFromImage(image));
        QCOMPARE(*picture, *app::ReadPictureFile(Save(image, "clip.png").toStdString()));
        window_->Model().LoadPicture(*picture);
        window_->Refresh();
        QCOMPARE(Size(), QString("12x6"));
    }

    void picturesConvertWithoutPremultipliedColours() {
        QImage image(2, 1, QImage::Format_ARGB32_Premultiplied);
        image.setPixel(0, 0, qPremultiply(qRgba(200, 100, 50, 128)));
        image.setPixel(1, 0, qRgba(0, 0, 0, 0));
        const RgbaPicture picture = app::RgbaFromImage(image);
        QCOMPARE(picture.Pixels[1], 0u);
        QCOMPARE(AlphaByte(picture.Pixels[0]), std::uint8_t(128));
        QVERIFY(qAbs(int((picture.Pixels[0] >> 16) & 0xFF) - 200) <= 1);
        QCOMPARE(app::RgbaFromImage(app::ImageFromRgba(picture)), picture);
    }
};

QTEST_MAIN(ImportBitmapTest)
#include "test_import_bitmap.moc"
