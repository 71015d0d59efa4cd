// frmPOI driven through its controls, offscreen: real POIs of every encoding
// the shared files hold, a new POI, pictures brought in from files and the
// system clipboard, and a sub-icon of an additional POI group.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <functional>

#include "app/common/pixel_canvas.h"
#include "app/poi/poi_editor_window.h"
#include "app_test_support.h"
#include "corpus.h"
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

template <typename Fn>
struct Named {
    const char* Name;
    Fn Function;
};
using Encoding = Named<std::function<bool(const DecodedPoi&)>>;
using MadeEncoding = Named<std::function<void(PoiEditorModel&)>>;

// One of each kind of bitmap the real files hold.
const std::vector<Encoding>& Encodings() {
    static const std::vector<Encoding> encodings{
        {"palette of 1 colour", [](const DecodedPoi& p) { return p.Day.Palette.size() == 1; }},
        {"palette of 2 or 3 colours", [](const DecodedPoi& p) { return p.Day.Palette.size() == 2 || p.Day.Palette.size() == 3; }},
        {"palette of 4 to 15 colours", [](const DecodedPoi& p) { return p.Day.Palette.size() >= 4 && p.Day.Palette.size() < 16; }},
        {"palette of 16 colours or more", [](const DecodedPoi& p) { return p.Day.Palette.size() >= 16; }},
        {"palette in mode 0", [](const DecodedPoi& p) { return !p.Day.IsTrueColour() && p.Day.ColourMode == 0; }},
        {"palette with alpha", [](const DecodedPoi& p) { return !p.Day.IsTrueColour() && p.Day.ColourMode == 32; }},
        {"true colour in mode 0", [](const DecodedPoi& p) { return p.Day.IsTrueColour() && p.Day.ColourMode == 0; }},
        {"true colour in mode 16", [](const DecodedPoi& p) { return p.Day.IsTrueColour() && p.Day.ColourMode == 16; }},
        {"true colour with alpha", [](const DecodedPoi& p) { return p.Day.IsTrueColour() && p.Day.ColourMode == 32; }},
        {"night bitmap", [](const DecodedPoi& p) { return p.Night.has_value(); }},
    };
    return encodings;
}

// Encodings the shared files lack are made from a real palette POI by the
// editor's own conversions: true colour in each mode, a night bitmap.
const std::vector<MadeEncoding>& MadeEncodings() {
    static const std::vector<MadeEncoding> made{
        {"true colour in mode 16", [](PoiEditorModel& m) { m.SetColourCount(0); }},
        {"true colour in mode 0",
         [](PoiEditorModel& m) {  // mode 0 has no transparency: those pixels are painted black first
             m.SetColourCount(0);
             m.Paint = PoiPaint{.Colour = 0x000000};
             const WorkingBitmap b = m.Shown();
             for (int y = 0; y < b.Height; ++y)
                 for (int x = 0; x < b.Width; ++x)
                     if (!b.ShownColour({x, y})) m.Press({x, y}, MouseButton::Left), m.Release({x, y});
             m.SetColourMode(0);
         }},
        {"true colour with alpha", [](PoiEditorModel& m) { m.SetColourCount(0), m.SetColourMode(2); }},
        {"night bitmap", [](PoiEditorModel& m) { m.SetNightBitmap(true); }},
    };
    return made;
}

struct FoundPoi {
    const Encoding* Kind;
    std::string Path;
    int Row;
};

// The file and row of the first POI of each encoding.
std::vector<FoundPoi> FindEncodings() {
    std::vector<FoundPoi> found;
    auto files = testing::CorpusFiles("binary", ".typ");
    const auto compiled = testing::CorpusFiles("mkgmap", ".typ");
    files.insert(files.end(), compiled.begin(), compiled.end());
    for (const Encoding& encoding : Encodings()) {
        for (const auto& file : files) {
            Document doc;
            if (!OpenBinaryTyp(doc, file.string())) continue;
            const auto row = std::ranges::find_if(doc.Pois, [&](const PoiRecord& r) {
                return r.Width > 0 && r.Height > 0 && encoding.Function(DecodePoi(r));
            });
            if (row == doc.Pois.end()) continue;
            found.push_back({&encoding, file.string(), static_cast<int>(row - doc.Pois.begin())});
            break;
        }
    }
    return found;
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

    // OK without a change gives the loaded bytes; a stroke (or an invert where
    // the pen can change nothing), a flip, undo and redo show what they should.
    void CheckOkStrokeAndUndo(int row) {
        const Bytes loaded = PoiBytes(row);
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
        // The pen with the transparent swatch in mode 16, else the current colour.
        const bool transparentSwatch = Child<QLabel>(window, "lblpalette(255)")->isVisible();
        if (transparentSwatch) Click(window, "lblpalette(255)");
        const std::optional<std::uint32_t> ink =
            transparentSwatch ? std::nullopt : std::optional(model.Paint.Colour & 0xFFFFFF);
        const auto target = std::ranges::find_if(before, [&](const auto& colour) { return colour != ink; });
        Pixels expected = before;
        if (target != before.end()) {
            const int at = static_cast<int>(target - before.begin());
            const Cell cell{at % model.Shown().Width, at / model.Shown().Width};
            ClickCell(window, cell);
            const bool alpha = !transparentSwatch && model.Shown().Bitmap.ColourMode == 32;
            expected[static_cast<std::size_t>(at)] = alpha ? model.Shown().ShownColour(cell) : ink;
        } else {
            Click(window, "cmdInverser");
            for (auto& colour : expected)
                if (colour) colour = 0xFFFFFF - *colour;
        }
        const WorkingBitmap drawn = model.Shown();
        QCOMPARE(ShownPixels(drawn), expected);

        Click(window, "cmdFlipH");
        for (int y = 0; y < drawn.Height; ++y)
            for (int x = 0; x < drawn.Width; ++x)
                QCOMPARE(model.Shown().ShownColour({x, y}), drawn.ShownColour({drawn.Width - 1 - x, y}));
        Undo(window, 2);
        QCOMPARE(ShownPixels(model.Shown()), before);
        QTest::keyClick(&window, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(ShownPixels(model.Shown()), ShownPixels(drawn));
        Undo(window);
        QTest::keyClick(&window, Qt::Key_Return);
        QCOMPARE(PoiBytes(row), loaded);
    }

private slots:
    void real_pois_of_every_encoding_come_back_byte_for_byte_after_ok_a_stroke_and_undo() {
        const auto found = FindEncodings();
        if (found.empty()) QSKIP("no shared corpus");
        for (const FoundPoi& poi : found) {
            qInfo("%s: %s POI %d", poi.Kind->Name, poi.Path.c_str(), poi.Row);
            Start(poi.Path);
            CheckOkStrokeAndUndo(poi.Row);
        }
        // A palette POI of mode 16 (its transparent pixels survive every mode change).
        const auto base = std::ranges::find_if(
            found, [](const FoundPoi& f) { return std::string(f.Kind->Name) == "palette of 4 to 15 colours"; });
        QVERIFY(base != found.end());
        for (const MadeEncoding& encoding : MadeEncodings()) {
            qInfo("%s, made from %s POI %d", encoding.Name, base->Path.c_str(), base->Row);
            Start(base->Path);
            prompts_.Answers = {true, true, true};
            PoiEditorModel maker(prompts_, SharedPoiClipboard());
            maker.Load(doc_.Pois[static_cast<std::size_t>(base->Row)]);
            encoding.Function(maker);
            const auto record = maker.BuildRecord();
            QVERIFY(record);
            const auto kind = std::ranges::find(Encodings(), std::string_view(encoding.Name), &Encoding::Name);
            QVERIFY(kind->Function(DecodePoi(*record)));
            doc_.Pois[static_cast<std::size_t>(base->Row)] = *record;
            prompts_ = ScriptedPrompts{};
            CheckOkStrokeAndUndo(base->Row);
        }
    }

    void cancel_leaves_the_document_untouched() {
        Start(SampleFile().toStdString());
        const Bytes loaded = PoiBytes(0);
        PoiEditorWindow window(*main_, PoiEditorTarget::Poi(0));
        window.show();
        Click(window, "cmdInverser");
        QTest::keyClick(&window, Qt::Key_Escape);
        QCOMPARE(window.result(), int(QDialog::Rejected));
        QCOMPARE(PoiBytes(0), loaded);
    }

    // The combos ask, refuse and undo; what is drawn comes back when the new POI is reopened.
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
            auto* mode = Child<QComboBox>(window, "cbbColorMode");
            auto* count = Child<QComboBox>(window, "cbbNombreCouleurs");
            mode->setCurrentIndex(0);  // transparent pixels: mode 00 is refused
            QCOMPARE(prompts_.Texts("inform").size(), std::size_t{2});
            QCOMPARE(mode->currentIndex(), 1);
            count->setCurrentIndex(3);
            QVERIFY(Child(window, "lblpalette(2)")->isVisible());
            mode->setCurrentIndex(2);  // the transparent pixels take a new entry of alpha 15
            QCOMPARE(count->currentIndex(), 4);
            QVERIFY(!Child(window, "lblpalette(255)")->isVisible());
            QVERIFY(Child(window, "cmdCanalAlpha")->isVisible());
            Undo(window, 2);
            QCOMPARE(count->currentIndex(), 1);
            QCOMPARE(mode->currentIndex(), 1);
            QVERIFY(!Child(window, "lblpalette(2)")->isVisible());
            Click(window, "cmdDeplaceD");
            drawn = ShownPixels(window.Model().Shown());
            Click(window, "cmdOK");
            QCOMPARE(window.result(), int(QDialog::Accepted));
        }
        QCOMPARE(std::count(drawn.begin(), drawn.end(), std::nullopt), 3);
        PoiEditorWindow reopened(*main_, PoiEditorTarget::Poi(0));
        QCOMPARE(ShownPixels(reopened.Model().Shown()), drawn);
        QCOMPARE(Child<QLineEdit>(reopened, "txtType")->text(), QString("12f"));
    }

    void pictures_come_in_with_their_transparency_and_a_corrupt_one_changes_nothing() {
        Start();
        QTemporaryDir folder;
        QImage image(20, 10, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        for (int y = 0; y < 10; ++y)
            for (int x = 10; x < 20; ++x) image.setPixelColor(x, y, x < 15 ? QColor(255, 0, 0) : QColor(0, 0, 255));
        const QString png = folder.filePath("half.png"), corrupt = folder.filePath("broken.png");
        QVERIFY(image.save(png));
        QFile file(corrupt);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("\x89PNG\r\n\x1a\n not a picture after all") > 0);
        file.close();

        PoiEditorWindow window(*main_, PoiEditorTarget::NewPoi());
        ShowActive(window);
        const WorkingBitmap before = window.Model().Shown();
        QVERIFY(!window.ImportPictureFile(corrupt));
        QCOMPARE(prompts_.Log.size(), std::size_t{1});
        QVERIFY(window.Model().Shown() == before);
        QVERIFY(!window.Model().CanUndo());

        const auto expectHalf = [&] {
            const WorkingBitmap& b = window.Model().Shown();
            QCOMPARE(Child<QComboBox>(window, "cbbLargeur")->currentText(), QString("20"));
            QCOMPARE((Pixels{b.ShownColour({2, 5}), b.ShownColour({12, 5}), b.ShownColour({17, 5})}),
                     (Pixels{std::nullopt, 0x0000FF, 0xFF0000}));
        };
        QVERIFY(window.ImportPictureFile(png));
        expectHalf();
        Undo(window);
        QVERIFY(window.Model().Shown() == before);
        QApplication::clipboard()->setImage(image);
        if (QApplication::clipboard()->image().isNull()) QSKIP("no system clipboard here");
        Click(window, "cmdCollerImage");
        expectHalf();

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
