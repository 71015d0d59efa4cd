// The colour dialogs driven through their widgets, offscreen. The platform's
// colour dialog and the screen are stand-ins given by the test.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <memory>
#include <vector>

#include "app_test_support.h"
#include "child_widget.h"
#include "app/colour/colour_identifier.h"
#include "app/colour/colours_dialog.h"
#include "app/colour/palette_dialog.h"
#include "models/shell/main_window_model.h"
#include "models/shell/settings_store.h"
#include "scripted_prompts.h"
#include "app/shell/main_window.h"

using namespace mirvane;
using mirvane::app::PaletteDialog;

namespace {

Colour Rgb(std::uint32_t rrggbb) {
    return MakeColour(static_cast<std::uint8_t>(rrggbb >> 16), static_cast<std::uint8_t>(rrggbb >> 8),
                            static_cast<std::uint8_t>(rrggbb));
}

QWidget* Square(QWidget* dialog, int index) { return Child(dialog, QStringLiteral("Carré(%1)").arg(index)); }

void ClickSquare(QWidget* dialog, int index) { QTest::mouseClick(Square(dialog, index), Qt::LeftButton); }

// A desktop of one colour left of x = 500 and another to its right.
QImage FakeDesktop(const QRect& area) {
    QImage image(area.size(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, area.x() + x < 500 ? QColor(0x12, 0x34, 0x56) : QColor(0xC5, 0xC5, 0xC5));
    return image;
}

}  // namespace

class PaletteDialogTest : public QObject {
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
        QTimer::singleShot(0, [] {
            auto* dialog = qobject_cast<PaletteDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            ClickSquare(dialog, 241);
            QTest::mouseClick(Child<QPushButton>(dialog, "cmdOK"), Qt::LeftButton);
        });
        QCOMPARE(app::ChooseGarminColour(nullptr, 0x203039, 2), std::optional<std::uint32_t>(0x101010));

        QTimer::singleShot(0, [] {
            auto* dialog = QApplication::activeModalWidget();
            ClickSquare(dialog, 241);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        QCOMPARE(app::ChooseGarminColour(nullptr, 0x203039, 2), std::nullopt);
    }

    void theFrameFollowsTheChosenColour() {
        auto dialog = Open(Rgb(0x7A6541));  // off the palette
        QWidget* frame = Child(dialog.get(), "Carré2");
        QVERIFY(!frame->isVisible());
        ClickSquare(dialog.get(), 37);
        QVERIFY(frame->isVisible());
        QCOMPARE(frame->geometry().center(), Square(dialog.get(), 37)->geometry().center());
        QVERIFY(frame->geometry().contains(Square(dialog.get(), 37)->geometry()));
        QCOMPARE(Child<QLabel>(dialog.get(), "lblCouleurChoisie")->text(),
                 QString::fromStdString(ColourText(*PaletteSquareColour(37))));

        // Back to the current colour: no square has it, the frame stays.
        ClickSquare(dialog.get(), kCurrentSquare);
        QCOMPARE(frame->geometry().center(), Square(dialog.get(), 37)->geometry().center());
        QVERIFY(Child(dialog.get(), "Label9")->isVisible());
    }

    void theNeighboursSurroundTheChosenColour() {
        auto dialog = Open(Rgb(0x7A6541));
        QCOMPARE(Square(dialog.get(), kChosenSquare)->toolTip(), QStringLiteral("Couleur Choisie #7A6541"));
        SavePicture(*dialog, "palette-dialog.png");

        // The nearest Garmin colour is one click away, and then it is framed.
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

    void thePipettePicksTheColourUnderThePointerOnRelease() {
        auto dialog = Open(Rgb(0x393020));
        QWidget* picker = Child(dialog.get(), "picPicker");
        QVERIFY(!Child(dialog.get(), "Picture3")->isVisible());
        QTest::mousePress(picker, Qt::LeftButton);
        QVERIFY(dialog->Model().PipetteRunning());
        QVERIFY(Child(dialog.get(), "Picture3")->isVisible());
        dialog->PipetteTick({100, 100});
        QCOMPARE(Child<QLabel>(dialog.get(), "Label10")->text(), QStringLiteral("#123456"));
        dialog->PipetteTick({600, 100});
        QCOMPARE(Child<QLabel>(dialog.get(), "Label10")->text(), QStringLiteral("#C5C5C5"));
        SavePicture(*dialog, "palette-dialog-pipette.png");
        QTest::mouseRelease(picker, Qt::LeftButton);
        QVERIFY(!dialog->Model().PipetteRunning());
        QCOMPARE(dialog->Model().ChosenColour(), Rgb(0xC5C5C5));
        QCOMPARE(dialog->Model().FramedSquare(), 252);
    }

    void withoutAScreenThePipetteChoosesNothing() {
        auto dialog = Open(Rgb(0x393020));
        dialog->SetScreenReader(app::GrabScreen);  // offscreen: nothing to read
        QWidget* picker = Child(dialog.get(), "picPicker");
        QTest::mousePress(picker, Qt::LeftButton);
        dialog->PipetteTick({100, 100});
        QTest::mouseRelease(picker, Qt::LeftButton);
        QCOMPARE(dialog->Model().ChosenColour(), Rgb(0x393020));
    }

    void theIdentifierShowsColourTypeAndSubtype() {
        QWidget owner;
        app::ShowColourIdentifier(&owner);
        app::ShowColourIdentifier(&owner);
        const auto windows = owner.findChildren<app::ColourIdentifierWindow*>();
        QCOMPARE(windows.size(), 1);
        app::ColourIdentifierWindow* window = windows.front();
        QVERIFY(window->isVisible());
        window->SetScreenReader(FakeDesktop);
        window->Tick({100, 100});
        QCOMPARE(Child<QLabel>(window, "Label1")->text(), QStringLiteral("#123456"));
        QCOMPARE(Child<QLabel>(window, "Type")->text(), QStringLiteral("0x234"));
        QCOMPARE(Child<QLabel>(window, "SubType")->text(), QStringLiteral("0x56"));
        window->Tick({499, 100});  // the magnifier over the edge of two colours
        QCOMPARE(Child<QLabel>(window, "Label1")->text(), QStringLiteral("#123456"));
        SavePicture(*window, "colour-identifier.png");
    }

    void theToolsMenuOpensTheIdentifier() {
        Document doc;
        ScriptedPrompts prompts;
        MemorySettingsStore settings;
        MainWindowModel model(doc, prompts, settings, "v0.1.0");
        app::MainWindow window(model);
        window.show();
        auto* entry = window.findChild<QAction*>("mnuCouleurIdentifieur");
        QVERIFY(entry);
        entry->trigger();
        auto* identifier = window.findChild<QWidget*>("frmColorIdentifier");
        QVERIFY(identifier && identifier->isVisible());
        QCOMPARE(identifier->windowTitle(), QStringLiteral("Identifieue de couleur et de type"));
    }

    void theMixerWritesTheBitmapBackOnEveryMove() {
        Raster bitmap(8, 8, static_cast<RasterColour>(Rgb(0x806040)));
        std::vector<Raster> written;
        QWidget editor;
        editor.setGeometry(100, 100, 400, 300);
        auto* mixer = new app::ColoursDialog(bitmap, [&](const Raster& r) { written.push_back(r); }, &editor);
        mixer->show();
        Child<QScrollBar>(mixer, "ScrollRouge")->setValue(255);
        Child<QScrollBar>(mixer, "ScrollBleu")->setValue(0);
        QCOMPARE(written.size(), std::size_t(2));
        QCOMPARE(written[0].Pixel(3, 3), static_cast<RasterColour>(Rgb(0xFE6040)));
        QCOMPARE(written[1].Pixel(3, 3), static_cast<RasterColour>(Rgb(0x806000)));
        SavePicture(*mixer, "colours-mixer.png");
        mixer->close();
    }
};

QTEST_MAIN(PaletteDialogTest)
#include "test_palette_dialog.moc"
