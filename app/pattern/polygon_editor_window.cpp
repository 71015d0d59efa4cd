#include "app/pattern/polygon_editor_window.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "models/shell/main_window_model.h"

namespace mirvane::app {

PolygonEditorWindow::PolygonEditorWindow(MainWindowModel& main, std::optional<int> row, QWidget* parent)
    : PatternEditorWindow(model_, main.Doc().Identity.CodePage, main.Prompts(), parent), main_(main) {
    setObjectName("frmPolygone");
    if (row) model_.Load(main.Doc(), *row);
    else model_.LoadNew(main.Doc());
    number_ = row.value_or(main.Doc().PolygonCount());

    auto* fields = new QWidget(this);
    auto* layout = new QHBoxLayout(fields);
    layout->setContentsMargins(0, 0, 0, 0);
    lblDraworder_ = MakeNamed<QLabel>(fields, "lblDraworder");
    txtDraworder_ = MakeNumberField(fields, "txtDraworder", "[0-9]{0,9}");
    layout->addWidget(lblDraworder_);
    layout->addWidget(txtDraworder_);
    layout->addStretch();
    chkBitmap_ = MakeNamed<QCheckBox>(this, "chkBitmap");

    connect(txtDraworder_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.DrawOrderLevel = text.toStdString(); });
    CheckOnLeaving(txtDraworder_, [this](const std::string& text) {
        auto message = CheckLevelText(text);
        if (message) model_.DrawOrderLevel.clear();
        return message;
    });
    connect(chkBitmap_, &QCheckBox::clicked, this, [this](bool on) {
        model_.SetBitmap(on);
        Refresh();
    });
    BuildUi(fields, chkBitmap_);
}

PixelPicture PolygonEditorWindow::PreviewPicture() const { return PictureOfPolygon(DecodePolygon(model_.BuildRecord())); }

void PolygonEditorWindow::RefreshKind() {
    chkBitmap_->setChecked(model_.Bitmap());
    chkTranspJour_->setVisible(model_.Bitmap());
    if (txtDraworder_->text().toStdString() != model_.DrawOrderLevel) txtDraworder_->setText(Q(model_.DrawOrderLevel));
}

void PolygonEditorWindow::RetranslateKind() {
    setWindowTitle(model_.IsNew() ? EditCaption("Nouveau Polygone", "NouveauPolygone")
                                  : EditCaption("Modifier le Polygone", "ModifierPolygone"));
    lblNumero_->setText(EditCaption("Polygone", "Polygone") + " #" + QString::number(number_));
    lblDraworder_->setText(EditCaption("Niveau", "lblDraworder"));
    chkBitmap_->setText(EditCaption("Bitmap", "chkBitmap"));
    chkTranspJour_->setText(EditCaption("Transparent le jour", "chkTranspJour"));
}

bool PolygonEditorWindow::Store() {
    const std::optional<int> row = model_.Commit(main_.Doc(), Prompts());
    if (!row) return false;
    main_.MarkModified(ChangeSet::Records(ObjectKind::Polygon) | Change::DrawOrder);
    main_.Select(ObjectRef{ObjectKind::Polygon, *row});
    return true;
}

std::unique_ptr<PolygonEditorWindow> PolygonEditorWindowOn(MainWindowModel& main, std::optional<ObjectRef> object) {
    return std::make_unique<PolygonEditorWindow>(main, RowOfKind(main.Doc(), object, ObjectKind::Polygon));
}

void EditPolygon(MainWindowModel& main, QWidget* parent, std::optional<int> row) {
    PolygonEditorWindow window(main, row, parent);
    window.exec();
}

}  // namespace mirvane::app
