#include "app/pattern/line_editor_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "models/shell/main_window_model.h"

namespace mirvane::app {

namespace {

QString NoBorderText() { return EditCaption("Pas de bordure", "PasdeBordure"); }

}  // namespace

LineEditorWindow::LineEditorWindow(MainWindowModel& main, std::optional<int> row, QWidget* parent)
    : PatternEditorWindow(model_, main.Doc().Identity.CodePage, main.Prompts(), parent), main_(main) {
    setObjectName("frmPolyline");
    if (row) {
        model_.Load(main.Doc(), *row);
    } else {
        // Existing texts compare a new line's activity with that of the row selected in the list.
        const auto& selected = main.Selection();
        model_.LoadNew(main.Doc(), selected && selected->Kind == ObjectKind::Polyline
                                       ? std::optional<int>(selected->Row)
                                       : std::nullopt);
    }
    number_ = row.value_or(static_cast<int>(main.Doc().Polylines.size()));
    chkUseOrientation_ = MakeNamed<QCheckBox>(this, "chkUseOrientation");
    connect(chkUseOrientation_, &QCheckBox::clicked, this, [this](bool on) { model_.UseOrientation = on; });
    BuildUi(BuildLineFields(), chkUseOrientation_);
}

QWidget* LineEditorWindow::BuildLineFields() {
    auto* box = new QWidget(this);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    lblHauteur_ = MakeNamed<QLabel>(box, "lblHauteur");
    cbbHauteur_ = MakeNamed<QComboBox>(box, "cbbHauteur");
    lblLargeur_ = MakeNamed<QLabel>(box, "lblLargeur");
    txtLargeur_ = MakeNumberField(box, "txtLargeur", "[0-9]{0,3}");
    lblBordure_ = MakeNamed<QLabel>(box, "lblBordure");
    txtBordure_ = MakeNamed<QLineEdit>(box, "txtBordure");
    txtBordure_->setValidator(txtLargeur_->validator());
    txtBordure_->setFixedWidth(110);
    lblActivite_ = MakeNamed<QLabel>(box, "lblActivité");
    cbbActivite1_ = MakeNamed<QComboBox>(box, "cbbActivité1");
    grid->addWidget(lblHauteur_, 0, 0);
    grid->addWidget(cbbHauteur_, 0, 1, 1, 2);
    grid->addWidget(lblLargeur_, 1, 0);
    grid->addWidget(txtLargeur_, 1, 1);
    grid->addWidget(lblBordure_, 2, 0);
    grid->addWidget(txtBordure_, 2, 1, 1, 2);
    grid->addWidget(lblActivite_, 3, 0);
    grid->addWidget(cbbActivite1_, 3, 1, 1, 2);
    grid->setColumnStretch(3, 1);

    connect(cbbHauteur_, &QComboBox::currentIndexChanged, this, [this](int rows) {
        if (!formReady_ || rows < 0) return;
        model_.SetHeight(rows);
        Refresh();
    });
    connect(cbbActivite1_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (formReady_ && index >= 0) model_.Activity = index;
    });
    const auto edited = [this](std::string& text) {
        return [this, &text](const QString& value) {
            text = value.toStdString();
            if (model_.Widths()) RefreshPreviews();
        };
    };
    connect(txtLargeur_, &QLineEdit::textEdited, this, edited(model_.WidthText));
    connect(txtBordure_, &QLineEdit::textEdited, this, edited(model_.BorderText));
    CheckWidthOnLeaving(txtLargeur_, WidthField::Width);
    CheckWidthOnLeaving(txtBordure_, WidthField::Border);
    return box;
}

void LineEditorWindow::CheckWidthOnLeaving(QLineEdit* field, WidthField which) {
    CheckOnLeaving(field, [this, which](const std::string&) { return model_.LeaveWidthField(which); });
}

PixelPicture LineEditorWindow::PreviewPicture() const {
    if (model_.Height() == 0 && !model_.Widths()) return {};
    return PictureOfPolyline(DecodePolyline(model_.BuildRecord()));
}

void LineEditorWindow::RefreshKind() {
    const int height = model_.Height();
    cbbHauteur_->setCurrentIndex(height);
    const bool solid = height == 0;
    for (QWidget* w : std::initializer_list<QWidget*>{lblLargeur_, txtLargeur_, lblBordure_, txtBordure_})
        w->setVisible(solid);
    if (txtLargeur_->text().toStdString() != model_.WidthText) txtLargeur_->setText(Q(model_.WidthText));
    const QString border = model_.BorderDisabled() ? NoBorderText() : Q(model_.BorderText);
    if (txtBordure_->text() != border) txtBordure_->setText(border);
    txtBordure_->setEnabled(!model_.BorderDisabled());
    const QString clear = solid ? NoBorderText() : EditCaption("Transparent", "Transparent");
    chkTranspJour_->setText(clear);
    chkTranspNuit_->setText(clear);
    chkUseOrientation_->setChecked(model_.UseOrientation);
    cbbActivite1_->setCurrentIndex(model_.Activity);
}

void LineEditorWindow::RetranslateKind() {
    setWindowTitle(model_.IsNew() ? EditCaption("Nouvelle ligne", "NouvellePolyligne")
                                  : EditCaption("Modifier la ligne", "ModifierLigne"));
    lblNumero_->setText(EditCaption("Ligne", "Polyligne") + " #" + QString::number(number_));
    lblHauteur_->setText(EditCaption("Hauteur", "lblHauteur"));
    lblLargeur_->setText(EditCaption("Largeur", "lblLargeur"));
    lblBordure_->setText(EditCaption("Bordure", "lblBordure"));
    lblActivite_->setText(EditCaption("Activité", "lblActivité"));
    chkUseOrientation_->setText(EditCaption("Orientation", "chkUseOrientation"));
    const int height = cbbHauteur_->currentIndex(), activity = cbbActivite1_->currentIndex();
    cbbHauteur_->clear();
    cbbHauteur_->addItem(EditCaption("0 (pas de bitmap)", "PasdeBitmap"));
    for (int rows = 1; rows <= kMaxLineRows; ++rows) cbbHauteur_->addItem(QString::number(rows));
    cbbActivite1_->clear();
    cbbActivite1_->addItem(QString());
    for (const auto& [text, key] :
         {std::pair{"Marche à pied", "Activity1"}, {"Randonnée", "Activity2"}, {"Alpinisme", "Activity3"},
          {"Vélo", "Activity4"}, {"Cyclotourisme", "Activity5"}, {"VTT", "Activity6"}})
        cbbActivite1_->addItem(Tr("Démarrage", text, key));
    cbbHauteur_->setCurrentIndex(std::max(height, 0));
    cbbActivite1_->setCurrentIndex(std::max(activity, 0));
}

bool LineEditorWindow::Store() {
    const LineCommit result = model_.Commit(main_.Doc(), Prompts());
    if (result.Row) {
        main_.MarkModified(ChangeSet::Records(ObjectKind::Polyline));
        main_.Select(ObjectRef{ObjectKind::Polyline, *result.Row});
    }
    return result.Closes();
}

std::unique_ptr<LineEditorWindow> LineEditorWindowOn(MainWindowModel& main, std::optional<ObjectRef> object) {
    return std::make_unique<LineEditorWindow>(main, RowOfKind(main.Doc(), object, ObjectKind::Polyline));
}

void EditLine(MainWindowModel& main, QWidget* parent, std::optional<int> row) {
    LineEditorWindow window(main, row, parent);
    window.exec();
}

}  // namespace mirvane::app
