// The colour dialogs driven through their widgets, offscreen. The platform's
// colour dialog and the screen are stand-ins given by the test.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <memory>
#include <vector>

#include "app_test_support.h"
#include "app/colour/colour_identifier.h"
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

    void theFrameAndTheNeighboursFollowTheChosenColour() {
        auto dialog = Open(Rgb(0x7A6541));  // off the palette
        QWidget* frame = Child(dialog.get(), "Carré2");
        QVERIFY(!frame->isVisible());
        QCOMPARE(Square(dialog.get(), kChosenSquare)->toolTip(), QStringLiteral("Couleur Choisie #7A6541"));
        SavePicture(*dialog, "palette-dialog.png");
        ClickSquare(dialog.get(), 37);
        QVERIFY(frame->isVisible());
        QVERIFY(frame->geometry().contains(Square(dialog.get(), 37)->geometry()));
        QCOMPARE(LabelText(dialog.get(), "lblCouleurChoisie"), QString::fromStdString(ColourText(*PaletteSquareColour(37))));
        // Back to the current colour: no square has it, the frame stays.
        ClickSquare(dialog.get(), kCurrentSquare);
        QVERIFY(frame->geometry().contains(Square(dialog.get(), 37)->geometry()));
        QVERIFY(Child(dialog.get(), "Label9")->isVisible());
        // The nearest Garmin colour is one click away.
        ClickSquare(dialog.get(), kFirstNeighbourSquare + 6);
        QCOMPARE(dialog->Model().ChosenColour(), Rgb(0x7B6541));
        QCOMPARE(Square(dialog.get(), kChosenSquare)->toolTip(), QStringLiteral("Couleur Choisie #7B6541"));
        QCOMPARE(Square(dialog.get(), kCurrentSquare)->toolTip(), QStringLiteral("#7A6541"));
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
        QVERIFY(Child(dialog.get(), "Label9")->isVisible());
    }

    // On the fake desktop the pipette takes the colour under the pointer on
    // release; offscreen, with no screen to read, it chooses nothing.
    void thePipettePicksTheColourUnderThePointerOnRelease() {
        for (const bool screen : {true, false}) {
            auto dialog = Open(Rgb(0x393020));
            if (!screen) dialog->SetScreenReader(app::GrabScreen);
            QWidget* picker = Child(dialog.get(), "picPicker");
            QTest::mousePress(picker, Qt::LeftButton);
            QVERIFY(Child(dialog.get(), "Picture3")->isVisible());
            dialog->PipetteTick({100, 100});
            if (screen) QCOMPARE(LabelText(dialog.get(), "Label10"), QStringLiteral("#123456"));
            dialog->PipetteTick({600, 100});
            if (screen) SavePicture(*dialog, "palette-dialog-pipette.png");
            QTest::mouseRelease(picker, Qt::LeftButton);
            QVERIFY(!dialog->Model().PipetteRunning());
            QCOMPARE(dialog->Model().ChosenColour(), Rgb(screen ? 0xC5C5C5 : 0x393020));
        }
    }

    void theToolsMenuOpensOneIdentifierShowingColourTypeAndSubtype() {
        StartWindow();
        Action("mnuCouleurIdentifieur")->trigger();
        Action("mnuCouleurIdentifieur")->trigger();
        const auto windows = window_->findChildren<app::ColourIdentifierWindow*>();
        QCOMPARE(windows.size(), 1);
        app::ColourIdentifierWindow* window = windows.front();
        QVERIFY(window->isVisible());
        QCOMPARE(window->windowTitle(), QStringLiteral("Identifieue de couleur et de type"));
        window->SetScreenReader(FakeDesktop);
        window->Tick({499, 100});  // the magnifier over the edge of two colours
        QCOMPARE(LabelText(window, "Label1"), QStringLiteral("#123456"));
        QCOMPARE(LabelText(window, "Type"), QStringLiteral("0x234"));
        QCOMPARE(LabelText(window, "SubType"), QStringLiteral("0x56"));
        SavePicture(*window, "colour-identifier.png");
        StopWindow();
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
