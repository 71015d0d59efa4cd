// frmPOI driven through its controls, offscreen: a POI of the sample, a new
// POI, pictures brought in and sent out, and a sub-icon of an additional POI group.
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "app/common/pixel_canvas.h"
#include "app/poi/poi_editor_window.h"
#include "app_test_support.h"
#include "document/binary_reader.h"
#include "document/record_writer.h"
#include "models/poi/extra_poi_icons.h"
#include "support/sample_document.h"

using namespace mirvane;
using mirvane::app::PixelCanvas;
using mirvane::app::PoiEditorTarget;
using mirvane::app::PoiEditorWindow;

namespace {

using Pixels = std::vector<std::optional<std::uint32_t>>;

// Each pixel's colour as shown, none for a transparent one.
Pixels ShownPixels(const WorkingBitmap& b) {
    Pixels pixels;
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x) pixels.push_back(b.ShownColour({x, y}));
    return pixels;
}

}  // namespace

class PoiEditorTest : public QObject {
    Q_OBJECT

    Document doc_;
    ScriptedPrompts prompts_;
    MemorySettingsStore settings_;
    std::unique_ptr<MainWindowModel> main_;

    void Start(const std::string& path = {}) {
        doc_ = Document{};
        prompts_ = ScriptedPrompts{};
        main_ = std::make_unique<MainWindowModel>(doc_, prompts_, settings_, "v0.1.0");
        if (!path.empty()) QVERIFY(OpenBinaryTyp(doc_, path));
    }
    Bytes PoiBytes(int row) const { return EncodePoiRecord(doc_.Pois[static_cast<std::size_t>(row)]); }

    // Shown and active, so that its shortcuts (Ctrl+Z, Ctrl+Y) answer.
    static void ShowActive(QWidget& window) {
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
    static void Click(QWidget& window, const char* name) {
        QTest::mouseClick(Child(window, name), Qt::LeftButton);
    }
    static void ClickCell(PoiEditorWindow& window, Cell cell) {
        auto* canvas = Child<PixelCanvas>(window, "Picture2");
        QTest::mouseClick(canvas, Qt::LeftButton, {}, canvas->CentreOf(cell));
    }
    static void Undo(QWidget& window, int times = 1) {
        for (int i = 0; i < times; ++i) QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    }

private slots:
    // Cancel after a change and OK without one give the loaded bytes; a stroke,
    // a flip, undo and redo reach the bitmap, and OK after undoing them all the
    // loaded bytes again.
    void cancel_ok_a_stroke_a_flip_and_undo_reach_the_poi() {
        Start(SampleFile().toStdString());
        const int row = 3;  // a palette of 15 colours in mode 16
        const Bytes loaded = PoiBytes(row);
        {
            PoiEditorWindow window(*main_, PoiEditorTarget::Poi(row));
            window.show();
            Click(window, "cmdInverser");
            QTest::keyClick(&window, Qt::Key_Escape);
            QCOMPARE(window.result(), int(QDialog::Rejected));
        }
        QCOMPARE(PoiBytes(row), loaded);
        {
            PoiEditorWindow window(*main_, PoiEditorTarget::Poi(row));
            window.show();
            Click(window, "cmdOK");
            QCOMPARE(window.result(), int(QDialog::Accepted));
        }
        QCOMPARE(PoiBytes(row), loaded);
        QCOMPARE(main_->Selection(), std::optional(ObjectRef{ObjectKind::Poi, row}));

        PoiEditorWindow window(*main_, PoiEditorTarget::Poi(row));
        ShowActive(window);
        const PoiEditorModel& model = window.Model();
        const Pixels before = ShownPixels(model.Shown());
        Click(window, "lblpalette(255)");  // the transparent swatch
        ClickCell(window, {5, 6});
        QCOMPARE(model.Shown().ShownColour({5, 6}), std::nullopt);
        const Pixels drawn = ShownPixels(model.Shown());
        Click(window, "cmdFlipH");
        QCOMPARE(model.Shown().ShownColour({model.Shown().Width - 1 - 5, 6}), std::nullopt);
        Undo(window, 2);
        QCOMPARE(ShownPixels(model.Shown()), before);
        QTest::keyClick(&window, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(ShownPixels(model.Shown()), drawn);
        Undo(window);
        QTest::keyClick(&window, Qt::Key_Return);
        QCOMPARE(PoiBytes(row), loaded);
    }

    // The count combo reaches the palette and undoes; what is drawn comes back
    // when the new POI is reopened.
    void a_new_poi_saved_and_reopened_has_the_same_pixels() {
        Start();
        Pixels drawn;
        {
            PoiEditorWindow window(*main_, PoiEditorTarget::NewPoi());
            ShowActive(window);
            Click(window, "cmdOK");
            QCOMPARE(prompts_.Texts("inform").size(), std::size_t{1});  // the Type is missing
            QTest::keyClicks(Child<QLineEdit>(window, "txtType"), "12f");
            QTest::keyClicks(Child<QLineEdit>(window, "txtSubType"), "05");
            Click(window, "lblpalette(255)");
            for (Cell cell : {Cell{0, 0}, Cell{3, 7}, Cell{15, 15}}) ClickCell(window, cell);
            Child<QComboBox>(window, "cbbNombreCouleurs")->setCurrentIndex(3);
            QVERIFY(Child(window, "lblpalette(2)")->isVisible());
            Undo(window);
            QVERIFY(!Child(window, "lblpalette(2)")->isVisible());
            drawn = ShownPixels(window.Model().Shown());
            Click(window, "cmdOK");
            QCOMPARE(window.result(), int(QDialog::Accepted));
        }
        QCOMPARE(std::count(drawn.begin(), drawn.end(), std::nullopt), 3);
        PoiEditorWindow reopened(*main_, PoiEditorTarget::Poi(0));
        QCOMPARE(ShownPixels(reopened.Model().Shown()), drawn);
        QCOMPARE(Child<QLineEdit>(reopened, "txtType")->text(), QString("12f"));
    }

    void pictures_come_in_and_go_out_with_their_transparency() {
        Start();
        QTemporaryDir folder;
        QImage image(20, 10, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        for (int y = 0; y < 10; ++y)
            for (int x = 10; x < 20; ++x) image.setPixelColor(x, y, x < 15 ? QColor(255, 0, 0) : QColor(0, 0, 255));
        const QString png = folder.filePath("half.png");
        QVERIFY(image.save(png));

        PoiEditorWindow window(*main_, PoiEditorTarget::NewPoi());
        ShowActive(window);
        QVERIFY(window.ImportPictureFile(png));
        const WorkingBitmap& b = window.Model().Shown();
        QCOMPARE(Child<QComboBox>(window, "cbbLargeur")->currentText(), QString("20"));
        QCOMPARE((Pixels{b.ShownColour({2, 5}), b.ShownColour({12, 5}), b.ShownColour({17, 5})}),
                 (Pixels{std::nullopt, 0x0000FF, 0xFF0000}));

        // Exported, the picture keeps its transparency.
        const QString exported = folder.filePath("out.png");
        prompts_.Paths.push_back(exported.toStdString());
        Click(window, "cmdExporterBitmap");
        const QImage written(exported);
        QCOMPARE(written.size(), QSize(20, 10));
        QCOMPARE(qAlpha(written.pixel(2, 5)), 0);
        QCOMPARE(written.pixelColor(12, 5), QColor(255, 0, 0));
    }

    void a_sub_icon_of_an_additional_group_is_written_in_place_and_converts_to_a_poi() {
        Start();
        AddSampleExtraPois(doc_, {{0x1f0, 0, {{8, 8}, {8, 8}}}, {0x1f1, 0, {{8, 8}}}});
        const PoiRecord icon = *ReadSubIcon(doc_, 0, 1);
        const PoiRecord last = *ReadSubIcon(doc_, 1, 0);
        const std::int32_t second = doc_.ExtraPois[1].Offset;
        {
            PoiEditorWindow window(*main_, PoiEditorTarget::SubIconOf(0, 1));
            window.show();
            QVERIFY(Child(window, "cmdConvertir")->isVisible());
            Child<QCheckBox>(window, "chkString")->click();
            QTest::keyClicks(Child<QLineEdit>(window, "txtTexte(0)"), "Moulin");
            Click(window, "cmdOK");
            QCOMPARE(window.result(), int(QDialog::Accepted));
        }
        const auto edited = ReadSubIcon(doc_, 0, 1);
        QVERIFY(edited);
        QCOMPARE(edited->Flags & 0x04, 0x04);
        QCOMPARE(edited->Bitmaps[0].PixelBytes, icon.Bitmaps[0].PixelBytes);
        // The group behind moves by "Moulin" with its code, end and prefix byte, in the index too.
        QCOMPARE(doc_.ExtraPois[1].Offset, second + 9);
        QCOMPARE(int(doc_.ExtraPoiIndexBytes[7]), second + 9);
        QCOMPARE(EncodePoiRecord(*ReadSubIcon(doc_, 1, 0)), EncodePoiRecord(last));

        PoiEditorWindow window(*main_, PoiEditorTarget::SubIconOf(1, 0));
        window.show();
        Click(window, "cmdConvertir");
        QCOMPARE(doc_.PoiCount(), 1);
        QCOMPARE(main_->Selection(), std::optional(ObjectRef{ObjectKind::Poi, 0}));
        QCOMPARE(doc_.Pois[0].Type, std::string("1f1"));
    }
};

QTEST_MAIN(PoiEditorTest)
#include "test_poi_editor.moc"
