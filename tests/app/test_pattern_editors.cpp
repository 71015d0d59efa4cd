// The polygon and line editors driven by their control names on real files,
// offscreen: fields of each kind, the tools, undo, OK and Cancel, and what the
// saved file holds afterwards.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "app/common/pixel_canvas.h"
#include "app/pattern/line_editor_window.h"
#include "app/pattern/polygon_editor_window.h"
#include "app_test_support.h"
#include "child_widget.h"
#include "document/binary_writer.h"
#include "document/encoding.h"
#include "labels/label_block.h"

using namespace mirvane;
using mirvane::app::LineEditorWindow;
using mirvane::app::PixelCanvas;
using mirvane::app::PolygonEditorWindow;

namespace {

void Type(QWidget* window, const QString& field, const QString& text) {
    auto* edit = Child<QLineEdit>(window, field);
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

void Click(QWidget* window, const QString& name) { QTest::mouseClick(Child(window, name), Qt::LeftButton); }

// A drag over the enlarged pattern from one cell to another, in one move.
void Drag(QWidget* window, Cell from, Cell to, Qt::MouseButton button = Qt::LeftButton) {
    auto* canvas = Child<PixelCanvas>(window, "Picture2");
    QTest::mousePress(canvas, button, {}, canvas->CentreOf(from));
    QTest::mouseMove(canvas, canvas->CentreOf(to));
    QTest::mouseRelease(canvas, button, {}, canvas->CentreOf(to));
}

void Key(QWidget* window, int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window, static_cast<Qt::Key>(key), modifiers);
}

template <typename Records>
int RowOfType(const Records& records, int type) {
    for (std::size_t i = 0; i < records.size(); ++i)
        if (HexValue(records[i].Type) == type && HexValue(records[i].SubType) == 0) return static_cast<int>(i);
    return -1;
}

Bytes SavedBytes(Document& doc) {
    Bytes bytes;
    const SaveTime time{2024, 5, 6, 7, 8, 9};
    if (BuildBinaryTyp(doc, bytes, time)) qFatal("the document does not save");
    return bytes;
}

}  // namespace

class PatternEditorsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<Document> doc_;
    std::unique_ptr<ScriptedPrompts> prompts_;
    std::unique_ptr<MemorySettingsStore> settings_;
    std::unique_ptr<MainWindowModel> model_;

    bool Open(const QString& path) {
        doc_ = std::make_unique<Document>();
        prompts_ = std::make_unique<ScriptedPrompts>();
        settings_ = std::make_unique<MemorySettingsStore>();
        model_ = std::make_unique<MainWindowModel>(*doc_, *prompts_, *settings_, "v0.1.0");
        return model_->OpenTyp(path.toStdString());
    }

    template <typename Window>
    std::unique_ptr<Window> Show(std::optional<int> row) {
        auto window = std::make_unique<Window>(*model_, row);
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window.get())) qWarning("the editor did not become active");
        return window;
    }

private slots:
    void polygonFormWritesWhatItsControlsSay() {
        REQUIRE_CORPUS_FILE("jbm-osm.typ");
        QVERIFY(Open(CorpusFile("jbm-osm.typ")));
        const int row = RowOfType(doc_->Polygons, 0x04);  // a pattern, labels and an extended label
        QVERIFY(row >= 0);
        std::vector<LabelText> labels = DecodeLabelBlock(doc_->Polygons[row].LabelBytes).value();
        auto window = Show<PolygonEditorWindow>(row);
        QWidget* w = window.get();

        Type(w, "txtcouleur(0)", "#102030");
        Click(w, "chkCouleursNuit");
        Type(w, "txtcouleur(2)", "#405060");
        Type(w, "txtDraworder", "3");
        Child<QComboBox>(w, "cbbCustomColor")->setCurrentIndex(1);
        Type(w, "txtcouleur(4)", "#0A0B0C");
        QTest::keyClicks(Child(w, "txtTexte(0)"), "!");
        labels[0].Text += "!";

        // The pattern: cleared, a wall drawn at x = 5 and flipped to x = 26.
        QTest::mouseClick(Child(w, "lblCouleurChoisie"), Qt::LeftButton);  // white under the left button
        Click(w, "cmdRemplir");
        QTest::mouseClick(Child(w, "lblCouleurChoisie"), Qt::LeftButton);
        Drag(w, {5, 0}, {5, 31});  // no gaps, though the pointer jumped
        Key(w, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(window->Model().Pattern(), BitGrid(32, 32, 0));
        Key(w, Qt::Key_Y, Qt::ControlModifier);
        Click(w, "cmdFlipH");
        Key(w, Qt::Key_Return);  // Enter is OK
        QCOMPARE(window->result(), int(QDialog::Accepted));

        const int stored = RowOfType(doc_->Polygons, 0x04);
        const PolygonRecord& record = doc_->Polygons[stored];
        QCOMPARE(record.Flags, std::uint8_t(0x3F));
        QCOMPARE(record.ColourBytes, (Bytes{0x30, 0x20, 0x10, 0x60, 0x50, 0x40}));
        Bytes pattern;
        for (int y = 0; y < 32; ++y) pattern.insert(pattern.end(), {0x00, 0x00, 0x00, 0x04});
        QCOMPARE(record.PatternBytes, pattern);
        QCOMPARE(record.LabelBytes, EncodeLabelBlock(labels));
        QCOMPARE(record.ExtendedLabelBytes, (Bytes{0x09, 0x0C, 0x0B, 0x0A}));
        QVERIFY(std::ranges::find(doc_->DrawOrder, DrawOrderEntry{3, 0x04, 0}) != doc_->DrawOrder.end());
        QVERIFY(model_->IsModified());
        QCOMPARE(model_->Selection(), std::optional<ObjectRef>(ObjectRef{ObjectKind::Polygon, stored}));
    }

    void lineFormWritesWhatItsControlsSay() {
        REQUIRE_CORPUS_FILE("jbm-osm.typ");
        QVERIFY(Open(CorpusFile("jbm-osm.typ")));
        const int row = RowOfType(doc_->Polylines, 0x01);  // a solid band with borders and night colours
        QVERIFY(row >= 0);
        const PolylineRecord before = doc_->Polylines[row];
        const int regular = doc_->PolylineCount, routing = doc_->ExtraPolylineCount;
        auto window = Show<LineEditorWindow>(row);
        QWidget* w = window.get();

        Type(w, "txtLargeur", "5");
        Type(w, "txtBordure", "2");
        QCOMPARE(window->Model().BuildRecord().PatternBytes, (Bytes{5, 9}));

        // The pattern form: four rows, a stroke on the third.
        Child<QComboBox>(w, "cbbHauteur")->setCurrentIndex(4);
        Drag(w, {0, 2}, {9, 2});
        Click(w, "chkUseOrientation");
        Child<QComboBox>(w, "cbbActivité1")->setCurrentIndex(2);
        Click(w, "cmdOK");
        QCOMPARE(window->result(), int(QDialog::Accepted));

        const auto stored = std::ranges::find_if(doc_->Polylines, [](const PolylineRecord& r) {
            return HexValue(r.Type) == 0x01 && r.ExtraIndexBytes == std::array<std::uint8_t, 2>{4, 1};
        });
        QVERIFY(stored != doc_->Polylines.end());
        QCOMPARE(stored->Flags1, std::uint8_t(4 * 8 + (before.Flags1 & 0x07)));
        QCOMPARE(stored->Flags2, std::uint8_t(before.Flags2 ^ 0x02));
        QCOMPARE(stored->PatternBytes, (Bytes{0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0x03, 0, 0, 0, 0, 0, 0}));
        QCOMPARE(doc_->PolylineCount, regular - 1);  // now a routing line
        QCOMPARE(doc_->ExtraPolylineCount, routing + 1);
        QCOMPARE(model_->Selection()->Row, static_cast<int>(stored - doc_->Polylines.begin()));
    }

    void aNewPolygonReachesTheDocument() {
        REQUIRE_CORPUS_FILE("otm-opentopomap-b329c76.typ");  // read with an empty log
        QVERIFY(Open(CorpusFile("otm-opentopomap-b329c76.typ")));
        const DrawOrderEntry peer = doc_->DrawOrder.back();  // the new polygon joins its level
        {
            auto window = Show<PolygonEditorWindow>(std::nullopt);
            Type(window.get(), "txtType", "1e5");
            Type(window.get(), "txtSubType", "0");
            Type(window.get(), "txtDraworder", QString::number(peer.Level));
            QTest::keyClicks(Child(window.get(), "txtTexte(0)"), "Nouveau");
            Drag(window.get(), {0, 0}, {31, 0});
            Click(window.get(), "cmdOK");
            QCOMPARE(window->result(), int(QDialog::Accepted));
        }
        // What the file makes of this record: BinaryRoundTrip and the corpus round trip.
        const int polygon = RowOfType(doc_->Polygons, 0x1e5);
        QVERIFY(polygon >= 0);
        QCOMPARE(doc_->Polygons[polygon].PatternBytes.front(), std::uint8_t(0xFF));
        QVERIFY(std::ranges::find(doc_->DrawOrder, DrawOrderEntry{peer.Level, 0x1e5, 0}) != doc_->DrawOrder.end());
    }

    // Cancel after changes, and OK without any, leave the largest file as it was.
    void cancelOrOkWithoutChangeKeepsTheLargestFile() {
        REQUIRE_CORPUS_FILE("jbm-jbmhb.typ");
        QVERIFY(Open(CorpusFile("jbm-jbmhb.typ")));
        const Bytes before = SavedBytes(*doc_);
        {
            auto window = Show<PolygonEditorWindow>(0);
            Type(window.get(), "txtType", "5");
            Click(window.get(), "cmdInverser");
            Key(window.get(), Qt::Key_Escape);
            QCOMPARE(window->result(), int(QDialog::Rejected));
        }
        {
            auto window = Show<LineEditorWindow>(0);
            Type(window.get(), "txtLargeur", "3");
            Child<QComboBox>(window.get(), "cbbHauteur")->setCurrentIndex(2);
            Click(window.get(), "cmdAnnuler");
        }
        QVERIFY(!model_->IsModified());
        QVERIFY(SavedBytes(*doc_) == before);
        const auto okOn = [this]<typename Window>(ObjectKind kind, int row) {
            model_->Select(ObjectRef{kind, row});
            auto window = Show<Window>(row);
            Key(window.get(), Qt::Key_Return);
            QCOMPARE(window->result(), int(QDialog::Accepted));
        };
        for (int row : {0, doc_->PolygonCount() / 2, doc_->PolygonCount() - 1})
            okOn.operator()<PolygonEditorWindow>(ObjectKind::Polygon, row);
        for (int row : {0, static_cast<int>(doc_->Polylines.size()) - 1})
            okOn.operator()<LineEditorWindow>(ObjectKind::Polyline, row);
        QVERIFY(model_->IsModified());
        QVERIFY(SavedBytes(*doc_) == before);
    }
};

QTEST_MAIN(PatternEditorsTest)
#include "test_pattern_editors.moc"
