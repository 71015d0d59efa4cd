// The colour dialogs driven through their widgets, offscreen. The platform's
// colour dialog and the screen are stand-ins given by the test.
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <memory>
#include <vector>

#include "app_test_support.h"
#include "app/colour/colours_dialog.h"
#include "app/colour/palette_dialog.h"

using namespace mirvane;
using mirvane::app::PaletteDialog;

namespace {

Colour Rgb(std::uint32_t rrggbb) {
    return MakeColour(static_cast<std::uint8_t>(rrggbb >> 16), static_cast<std::uint8_t>(rrggbb >> 8),
                      static_cast<std::uint8_t>(rrggbb));
}

QWidget* Square(QWidget* dialog, int index) { return Child(dialog, QStringLiteral("Carré(%1)").arg(index)); }
void ClickSquare(QWidget* dialog, int index) { QTest::mouseClick(Square(dialog, index), Qt::LeftButton); }
QString LabelText(QWidget* window, const char* name) { return Child<QLabel>(window, name)->text(); }

// A desktop of one colour left of x = 500 and another to its right.
QImage FakeDesktop(const QRect& area) {
    QImage image(area.size(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, area.x() + x < 500 ? QColor(0x12, 0x34, 0x56) : QColor(0xC5, 0xC5, 0xC5));
    return image;
}

}  // namespace

class PaletteDialogTest : public MainWindowTestBase {
    Q_OBJECT

    std::unique_ptr<PaletteDialog> Open(Colour current, PaletteCaller caller = PaletteCaller::Editor,
                                        PaletteDialogModel::PreviewHandler preview = {}) {
        auto dialog = std::make_unique<PaletteDialog>(current, caller, std::move(preview));
        dialog->SetScreenReader(FakeDesktop);
        dialog->show();
        return dialog;
    }

private slots:
    void cancelGivesBackTheCurrentColourAndThePreviewFollowsLive() {
        std::vector<Colour> previews;
        auto dialog = Open(Rgb(0x393020), PaletteCaller::PreviewBackground, [&](Colour c) { previews.push_back(c); });
        ClickSquare(dialog.get(), 100);
        ClickSquare(dialog.get(), 250);
        QCOMPARE(previews, (std::vector<Colour>{*PaletteSquareColour(100), *PaletteSquareColour(250)}));
        QCOMPARE(LabelText(dialog.get(), "lblCouleurChoisie"), QString::fromStdString(ColourText(*PaletteSquareColour(250))));
        SavePicture(*dialog, "palette-dialog.png");
        QTest::mouseClick(Child<QPushButton>(dialog.get(), "cmdAnnuler"), Qt::LeftButton);
        QCOMPARE(dialog->result(), int(QDialog::Rejected));
        QCOMPARE(dialog->Model().ChosenColour(), Rgb(0x393020));
        QCOMPARE(previews.back(), Rgb(0x393020));
    }

    void chooseGarminColourAnswersOkAndCancel() {
        for (const bool ok : {true, false}) {
            QTimer::singleShot(0, [ok] {
                QWidget* dialog = QApplication::activeModalWidget();
                QVERIFY(qobject_cast<PaletteDialog*>(dialog));
                ClickSquare(dialog, 241);
                if (ok) QTest::mouseClick(Child<QPushButton>(dialog, "cmdOK"), Qt::LeftButton);
                else QTest::keyClick(dialog, Qt::Key_Escape);
            });
            QCOMPARE(app::ChooseGarminColour(nullptr, 0x203039, 2),
                     ok ? std::optional<std::uint32_t>(0x101010) : std::nullopt);
        }
    }

    void otherColoursGoThroughThePlatformDialog() {
        auto dialog = Open(Rgb(0x393020));
        Colour started = -1;
        dialog->SetFreeColourDialog([&](QWidget*, Colour start) {
            started = start;
            return Rgb(0x010203);
        });
        ClickSquare(dialog.get(), 5);
        QTest::mouseClick(Child<QPushButton>(dialog.get(), "cmdAutres"), Qt::LeftButton);
        QCOMPARE(started, *PaletteSquareColour(5));
        QCOMPARE(dialog->Model().ChosenColour(), Rgb(0x010203));
    }

    // On the fake desktop the pipette takes the colour under the pointer on
    // release; offscreen, with no screen to read, it chooses nothing.
    void thePipettePicksTheColourUnderThePointerOnRelease() {
        for (const bool screen : {true, false}) {
            auto dialog = Open(Rgb(0x393020));
            if (!screen) dialog->SetScreenReader(app::GrabScreen);
            QWidget* picker = Child(dialog.get(), "picPicker");
            QTest::mousePress(picker, Qt::LeftButton);
            dialog->PipetteTick({600, 100});
            if (screen) SavePicture(*dialog, "palette-dialog-pipette.png");
            QTest::mouseRelease(picker, Qt::LeftButton);
            QCOMPARE(dialog->Model().ChosenColour(), Rgb(screen ? 0xC5C5C5 : 0x393020));
        }
    }

    void theMixerWritesTheBitmapBackOnEveryMove() {
        Raster bitmap(8, 8, static_cast<RasterColour>(Rgb(0x806040)));
        std::vector<RasterColour> written;
        QWidget editor;
        editor.setGeometry(100, 100, 400, 300);
        auto* mixer = new app::ColoursDialog(bitmap, [&](const Raster& r) { written.push_back(r.Pixel(3, 3)); }, &editor);
        mixer->show();
        Child<QScrollBar>(mixer, "ScrollRouge")->setValue(255);
        Child<QScrollBar>(mixer, "ScrollBleu")->setValue(0);
        QCOMPARE(written, (std::vector<RasterColour>{static_cast<RasterColour>(Rgb(0xFE6040)),
                                                     static_cast<RasterColour>(Rgb(0x806000))}));
        SavePicture(*mixer, "colours-mixer.png");
        mixer->close();
    }
};

QTEST_MAIN(PaletteDialogTest)
#include "test_palette_dialog.moc"
