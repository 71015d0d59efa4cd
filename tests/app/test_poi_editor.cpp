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
#include <QToolButton>
#include <functional>

#include "app/common/pixel_canvas.h"
#include "app/poi/poi_editor_window.h"
#include "child_widget.h"
#include "corpus.h"
#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "document/record_writer.h"
#include "models/poi/extra_poi_icons.h"
#include "models/shell/main_window_model.h"
#include "models/shell/settings_store.h"
#include "scripted_prompts.h"

using namespace mirvane;
using mirvane::app::PixelCanvas;
using mirvane::app::PoiEditorTarget;
using mirvane::app::PoiEditorWindow;

namespace {

// Each pixel's colour as shown, none for a transparent one.
std::vector<std::optional<std::uint32_t>> ShownPixels(const WorkingBitmap& b) {
    std::vector<std::optional<std::uint32_t>> pixels;
    for (int y = 0; y < b.Height; ++y)
        for (int x = 0; x < b.Width; ++x) pixels.push_back(b.ShownColour({x, y}));
    return pixels;
}

struct Encoding {
    const char* Name;
    std::function<bool(const DecodedPoi&)> Matches;
};

// Encodings the shared files lack are made from a real palette POI by the
// editor's own conversions: true colour in each mode, a night bitmap.
struct MadeEncoding {
    const char* Name;
    std::function<void(PoiEditorModel&)> Make;
};

const std::vector<MadeEncoding>& MadeEncodings() {
    static const std::vector<MadeEncoding> made{
        {"true colour in mode 16", [](PoiEditorModel& m) { m.SetColourCount(0); }},
        {"true colour in mode 0",
         [](PoiEditorModel& m) {
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

    // Shown and active, so that its shortcuts (Ctrl+Z, Ctrl+Y) answer.
    static void ShowActive(QWidget& window) {
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    static void ClickCell(PoiEditorWindow& window, Cell cell, Qt::MouseButton button = Qt::LeftButton) {
        auto* canvas = Child<PixelCanvas>(window, "Picture2");
        QTest::mouseClick(canvas, button, {}, canvas->CentreOf(cell));
    }

    // The files and rows of the first POI of each encoding.
    static std::vector<std::tuple<const Encoding*, std::string, int>> FindEncodings() {
        std::vector<std::tuple<const Encoding*, std::string, int>> found;
        auto files = testing::CorpusFiles("binary", ".typ");
        const auto compiled = testing::CorpusFiles("mkgmap", ".typ");
        files.insert(files.end(), compiled.begin(), compiled.end());
        for (const Encoding& encoding : Encodings()) {
            for (const auto& file : files) {
                Document doc;
                if (!OpenBinaryTyp(doc, file.string())) continue;
                const auto row = std::ranges::find_if(doc.Pois, [&](const PoiRecord& r) {
                    return r.Width > 0 && r.Height > 0 && encoding.Matches(DecodePoi(r));
                });
                if (row == doc.Pois.end()) continue;
                found.emplace_back(&encoding, file.string(), static_cast<int>(row - doc.Pois.begin()));
                break;
            }
        }
        return found;
    }

private slots:
    void real_pois_of_every_encoding_come_back_byte_for_byte_after_ok_a_stroke_and_undo() {
        const auto found = FindEncodings();
        if (found.empty()) QSKIP("no shared corpus");
        for (const auto& [encoding, path, row] : found) {
            qInfo("%s: %s POI %d", encoding->Name, path.c_str(), row);
            Start(path);
            CheckOkStrokeAndUndo(row);
        }
        // A palette POI of mode 16 (its transparent pixels survive every mode change).
        const auto base = std::ranges::find_if(found, [](const auto& f) {
            return std::string(std::get<0>(f)->Name) == "palette of 4 to 15 colours";
        });
        QVERIFY(base != found.end());
        for (const MadeEncoding& encoding : MadeEncodings()) {
            qInfo("%s, made from %s POI %d", encoding.Name, std::get<1>(*base).c_str(), std::get<2>(*base));
            Start(std::get<1>(*base));
            const int row = std::get<2>(*base);
            prompts_.Answers = {true, true, true};
            PoiEditorModel maker(prompts_, SharedPoiClipboard());
            maker.Load(doc_.Pois[static_cast<std::size_t>(row)]);
            encoding.Make(maker);
            const auto record = maker.BuildRecord();
            QVERIFY(record);
            const auto kind = std::ranges::find(Encodings(), std::string_view(encoding.Name), &Encoding::Name);
            QVERIFY(kind->Matches(DecodePoi(*record)));
            doc_.Pois[static_cast<std::size_t>(row)] = *record;
            prompts_ = ScriptedPrompts{};
            CheckOkStrokeAndUndo(row);
        }
    }

private:
    void CheckOkStrokeAndUndo(int row) {
        {
            const PoiRecord original = doc_.Pois[static_cast<std::size_t>(row)];
            const Bytes loaded = EncodePoiRecord(original);
            {
                PoiEditorWindow window(*main_, PoiEditorTarget::Poi(row));
                window.show();
                QTest::mouseClick(Child<QPushButton>(window, "cmdOK"), Qt::LeftButton);
                QCOMPARE(window.result(), int(QDialog::Accepted));
            }
            QCOMPARE(EncodePoiRecord(doc_.Pois[static_cast<std::size_t>(row)]), loaded);
            QCOMPARE(main_->Selection(), std::optional(ObjectRef{ObjectKind::Poi, row}));

            PoiEditorWindow window(*main_, PoiEditorTarget::Poi(row));
            ShowActive(window);
            const PoiEditorModel& model = window.Model();
            const auto before = ShownPixels(model.Shown());
            // The pen with the transparent swatch in mode 16, else the current colour.
            const bool transparentSwatch = Child<QLabel>(window, "lblpalette(255)")->isVisible();
            if (transparentSwatch) QTest::mouseClick(Child<QLabel>(window, "lblpalette(255)"), Qt::LeftButton);
            // A pixel the pen changes: one not already of the pen's colour.
            const std::optional<std::uint32_t> ink =
                transparentSwatch ? std::nullopt : std::optional(model.Paint.Colour & 0xFFFFFF);
            const auto target = std::ranges::find_if(before, [&](const auto& colour) { return colour != ink; });
            auto expected = before;
            if (target != before.end()) {
                const int at = static_cast<int>(target - before.begin());
                const Cell cell{at % model.Shown().Width, at / model.Shown().Width};
                ClickCell(window, cell);
                expected[static_cast<std::size_t>(at)] = ink;
                if (!transparentSwatch && model.Shown().Bitmap.ColourMode == 32)
                    expected[static_cast<std::size_t>(at)] = model.Shown().ShownColour(cell);
            } else {  // one colour everywhere: the pen can change nothing, inverting does
                QTest::mouseClick(Child<QPushButton>(window, "cmdInverser"), Qt::LeftButton);
                for (auto& colour : expected)
                    if (colour) colour = 0xFFFFFF - *colour;
            }
            const WorkingBitmap drawn = model.Shown();
            QCOMPARE(ShownPixels(drawn), expected);
            QCOMPARE(model.CanUndo(), true);

            QTest::mouseClick(Child<QPushButton>(window, "cmdFlipH"), Qt::LeftButton);
            const int w = drawn.Width;
            for (int y = 0; y < drawn.Height; ++y)
                for (int x = 0; x < w; ++x)
                    QCOMPARE(model.Shown().ShownColour({x, y}), drawn.ShownColour({w - 1 - x, y}));

            QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
            QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(ShownPixels(model.Shown()), before);
            QTest::keyClick(&window, Qt::Key_Y, Qt::ControlModifier);
            QCOMPARE(ShownPixels(model.Shown()), ShownPixels(drawn));
            QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
            QTest::keyClick(&window, Qt::Key_Return);
            QCOMPARE(EncodePoiRecord(doc_.Pois[static_cast<std::size_t>(row)]), loaded);
        }
    }

private slots:
    void cancel_leaves_the_document_untouched() {
        const auto found = FindEncodings();
        if (found.empty()) QSKIP("no shared corpus");
        const auto& [encoding, path, row] = found.front();
        Start(path);
        const Bytes loaded = EncodePoiRecord(doc_.Pois[static_cast<std::size_t>(row)]);
        PoiEditorWindow window(*main_, PoiEditorTarget::Poi(row));
        window.show();
        QTest::mouseClick(Child<QPushButton>(window, "cmdInverser"), Qt::LeftButton);
        QTest::keyClick(&window, Qt::Key_Escape);
        QCOMPARE(window.result(), int(QDialog::Rejected));
        QCOMPARE(EncodePoiRecord(doc_.Pois[static_cast<std::size_t>(row)]), loaded);
    }

    void a_new_poi_saved_and_reopened_has_the_same_pixels() {
        Start();
        std::vector<std::optional<std::uint32_t>> drawn;
        {
            PoiEditorWindow window(*main_, PoiEditorTarget::NewPoi());
            window.show();
            QTest::mouseClick(Child<QPushButton>(window, "cmdOK"), Qt::LeftButton);
            QCOMPARE(prompts_.Log.size(), std::size_t{1});  // the Type is missing
            QTest::keyClicks(Child<QLineEdit>(window, "txtType"), "12f");
            QTest::keyClicks(Child<QLineEdit>(window, "txtSubType"), "05");
            QTest::mouseClick(Child<QLabel>(window, "lblpalette(255)"), Qt::LeftButton);
            for (Cell cell : {Cell{0, 0}, Cell{3, 7}, Cell{15, 15}}) ClickCell(window, cell);
            QTest::mouseClick(Child<QPushButton>(window, "cmdDeplaceD"), Qt::LeftButton);
            drawn = ShownPixels(window.Model().Shown());
            QTest::mouseClick(Child<QPushButton>(window, "cmdOK"), Qt::LeftButton);
            QCOMPARE(window.result(), int(QDialog::Accepted));
        }
        QCOMPARE(doc_.PoiCount(), 1);
        QCOMPARE(std::count(drawn.begin(), drawn.end(), std::nullopt), 3);
        PoiEditorWindow reopened(*main_, PoiEditorTarget::Poi(0));
        QCOMPARE(ShownPixels(reopened.Model().Shown()), drawn);
        QCOMPARE(Child<QLineEdit>(reopened, "txtType")->text(), QString("12f"));
    }

    void colour_mode_and_count_combos_ask_refuse_and_undo() {
        Start();
        PoiEditorWindow window(*main_, PoiEditorTarget::NewPoi());
        ShowActive(window);
        auto* mode = Child<QComboBox>(window, "cbbColorMode");
        auto* count = Child<QComboBox>(window, "cbbNombreCouleurs");
        QTest::mouseClick(Child<QLabel>(window, "lblpalette(255)"), Qt::LeftButton);
        ClickCell(window, {0, 0});
        mode->setCurrentIndex(0);  // a transparent pixel: mode 00 is refused
        QCOMPARE(prompts_.Texts("inform").size(), std::size_t{1});
        QCOMPARE(mode->currentIndex(), 1);
        count->setCurrentIndex(3);  // new entries come in white
        QVERIFY(Child<QLabel>(window, "lblpalette(2)")->isVisible());
        QCOMPARE(window.Model().Shown().Bitmap.Palette[2].Colour, 0xFFFFFFu);
        mode->setCurrentIndex(2);  // the transparent pixel takes a new entry of alpha 15
        QCOMPARE(count->currentIndex(), 4);
        QVERIFY(!Child<QLabel>(window, "lblpalette(255)")->isVisible());
        QVERIFY(Child<QPushButton>(window, "cmdCanalAlpha")->isVisible());
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(count->currentIndex(), 1);
        QCOMPARE(mode->currentIndex(), 1);
        QVERIFY(!Child<QLabel>(window, "lblpalette(2)")->isVisible());
        QCOMPARE(window.Model().Shown().ShownColour({0, 0}), std::nullopt);
    }

    void pictures_come_in_with_their_transparency_and_a_corrupt_one_changes_nothing() {
        Start();
        QTemporaryDir folder;
        QImage image(20, 10, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        for (int y = 0; y < 10; ++y)
            for (int x = 10; x < 20; ++x) image.setPixelColor(x, y, x < 15 ? QColor(255, 0, 0) : QColor(0, 0, 255));
        const QString png = folder.filePath("half.png");
        QVERIFY(image.save(png));
        const QString corrupt = folder.filePath("broken.png");
        {
            QFile file(corrupt);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("\x89PNG\r\n\x1a\n not a picture after all");
        }

        PoiEditorWindow window(*main_, PoiEditorTarget::NewPoi());
        ShowActive(window);
        const WorkingBitmap before = window.Model().Shown();
        QVERIFY(!window.ImportPictureFile(corrupt));
        QCOMPARE(prompts_.Log.size(), std::size_t{1});
        QVERIFY(window.Model().Shown() == before);
        QVERIFY(!window.Model().CanUndo());

        const auto expectHalf = [&] {
            const WorkingBitmap& b = window.Model().Shown();
            QCOMPARE(b.Width, 20);
            QCOMPARE(b.Height, 10);
            QCOMPARE(b.ShownColour({2, 5}), std::nullopt);
            QCOMPARE(b.ShownColour({12, 5}), std::optional<std::uint32_t>(0x0000FF));
            QCOMPARE(b.ShownColour({17, 5}), std::optional<std::uint32_t>(0xFF0000));
            QCOMPARE(Child<QComboBox>(window, "cbbLargeur")->currentText(), QString("20"));
        };
        QVERIFY(window.ImportPictureFile(png));
        expectHalf();

        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(window.Model().Shown() == before);
        QApplication::clipboard()->setImage(image);
        if (QApplication::clipboard()->image().isNull()) QSKIP("no system clipboard here");
        QTest::mouseClick(Child<QPushButton>(window, "cmdCollerImage"), Qt::LeftButton);
        expectHalf();

        // Exported, the picture keeps its transparency.
        const QString exported = folder.filePath("out.png");
        prompts_.Paths.push_back(exported.toStdString());
        QTest::mouseClick(Child<QPushButton>(window, "cmdExporterBitmap"), Qt::LeftButton);
        const QImage written(exported);
        QCOMPARE(written.size(), QSize(20, 10));
        QCOMPARE(qAlpha(written.pixel(2, 5)), 0);
        QCOMPARE(written.pixelColor(12, 5), QColor(255, 0, 0));
    }

    void a_sub_icon_of_an_additional_group_is_written_in_place_and_converts_to_a_poi() {
        const auto found = FindEncodings();
        if (found.empty()) QSKIP("no shared corpus");
        Start(std::get<1>(found.front()));
        PoiRecord icon = doc_.Pois[static_cast<std::size_t>(std::get<2>(found.front()))];
        icon.Flags &= 0x03;  // no labels
        // Two groups: two sub-icons, then one; index rows of 5 bytes.
        const Bytes sub = SubIconBytes(icon);
        doc_.ExtraPoiDataBytes = {2, 0};
        for (int i = 0; i < 2; ++i) doc_.ExtraPoiDataBytes.insert(doc_.ExtraPoiDataBytes.end(), sub.begin(), sub.end());
        const auto second = static_cast<std::int32_t>(doc_.ExtraPoiDataBytes.size());
        doc_.ExtraPoiDataBytes.insert(doc_.ExtraPoiDataBytes.end(), {1, 0});
        doc_.ExtraPoiDataBytes.insert(doc_.ExtraPoiDataBytes.end(), sub.begin(), sub.end());
        doc_.Extra1.ExtraPoiIndexRecordSize = 5;
        doc_.ExtraPoiIndexBytes = {0, 0, 0, 0, 0, 0, 0, static_cast<std::uint8_t>(second), 0, 0};
        doc_.ExtraPois = {{"1f0", "00", 0}, {"1f1", "00", second}};
        const int pois = doc_.PoiCount();

        {
            PoiEditorWindow window(*main_, PoiEditorTarget::SubIconOf(0, 1));
            window.show();
            QCOMPARE(Child<QPushButton>(window, "cmdConvertir")->isVisible(), true);
            Child<QCheckBox>(window, "chkString")->click();
            QTest::keyClicks(Child<QLineEdit>(window, "txtTexte(0)"), "Moulin");
            QTest::mouseClick(Child<QPushButton>(window, "cmdOK"), Qt::LeftButton);
            QCOMPARE(window.result(), int(QDialog::Accepted));
        }
        const auto edited = ReadSubIcon(doc_, 0, 1);
        QVERIFY(edited);
        QCOMPARE(edited->Flags & 0x04, 0x04);
        QCOMPARE(edited->Bitmaps[0].PixelBytes, icon.Bitmaps[0].PixelBytes);
        QCOMPARE(doc_.ExtraPois[1].Offset, second + 9);  // "Moulin" with its code, end and prefix byte
        QCOMPARE(int(doc_.ExtraPoiIndexBytes[7]), second + 9);
        QCOMPARE(EncodePoiRecord(*ReadSubIcon(doc_, 1, 0)), EncodePoiRecord(icon));
        QCOMPARE(EncodePoiRecord(*ReadSubIcon(doc_, 0, 0)), EncodePoiRecord(icon));

        PoiEditorWindow window(*main_, PoiEditorTarget::SubIconOf(1, 0));
        window.show();
        QTest::mouseClick(Child<QPushButton>(window, "cmdConvertir"), Qt::LeftButton);
        QCOMPARE(doc_.PoiCount(), pois + 1);
        QCOMPARE(main_->Selection()->Kind, ObjectKind::Poi);
        QCOMPARE(doc_.Pois[static_cast<std::size_t>(main_->Selection()->Row)].Type, std::string("1f1"));
    }
};

QTEST_MAIN(PoiEditorTest)
#include "test_poi_editor.moc"
