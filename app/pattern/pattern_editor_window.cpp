#include "app/pattern/pattern_editor_window.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/colour/palette_dialog.h"
#include "app/common/colour_style.h"
#include "app/common/named_widget.h"
#include "app/common/pixel_canvas.h"
#include "app/common/texts.h"
#include "app/labels/label_strings_panel.h"
#include "app/preview/raster_image.h"
#include "colour/palette.h"

namespace mirvane::app {

std::optional<int> RowOfKind(const Document& doc, std::optional<ObjectRef> object, ObjectKind kind) {
    if (object && object->Kind == kind && doc.Holds(*object)) return object->Row;
    return std::nullopt;
}

namespace {

QColor CellColour(std::uint8_t cell) { return cell == kFirstColourCell ? Qt::black : Qt::white; }

constexpr RasterColour kPreviewBackground = 0xFFFFFF;

// The object's picture repeated across the preview, and down it when `down`;
// else centred in its height.
Raster TiledPreview(const PixelPicture& picture, const std::vector<std::int32_t>& pixels, QSize size, bool down) {
    Raster raster(size.width(), size.height(), kPreviewBackground);
    if (picture.Width <= 0 || picture.Height <= 0 || pixels.empty()) return raster;
    const int top = down ? 0 : std::max((size.height() - picture.Height) / 2, 0);
    for (int y = top; y < size.height() && (down || y < top + picture.Height); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const std::int32_t pixel =
                pixels[static_cast<std::size_t>((y - top) % picture.Height) * picture.Width + x % picture.Width];
            if (pixel != kTransparentPixel) raster.SetPixel(x, y, static_cast<RasterColour>(pixel));
        }
    }
    return raster;
}

}  // namespace

PatternEditorWindow::PatternEditorWindow(PatternEditorModel& model, int codePage, UserPrompts& prompts,
                                         QWidget* parent)
    : QDialog(parent), model_(model), codePage_(codePage), prompts_(prompts) {
    auto* undo = new QAction(this);
    undo->setShortcuts(QKeySequence::Undo);
    // Ctrl+Y besides the platform's own redo keys, once each so that no key is ambiguous.
    QList<QKeySequence> redoKeys{QKeySequence(Qt::CTRL | Qt::Key_Y)};
    for (const QKeySequence& key : QKeySequence::keyBindings(QKeySequence::Redo))
        if (!redoKeys.contains(key)) redoKeys.push_back(key);
    auto* redo = new QAction(this);
    redo->setShortcuts(redoKeys);
    addAction(undo);
    addAction(redo);
    connect(undo, &QAction::triggered, this, [this] {
        model_.Undo();
        Refresh();
    });
    connect(redo, &QAction::triggered, this, [this] {
        model_.Redo();
        Refresh();
    });
}

void PatternEditorWindow::BuildUi(QWidget* kindFields, QWidget* kindChecks) {
    cmdOK_ = MakeNamed<QPushButton>(this, "cmdOK");
    cmdOK_->setDefault(true);
    cmdAnnuler_ = MakeButton(this, "cmdAnnuler");
    cmdAnnuler_->setFocusPolicy(Qt::NoFocus);  // leaving a field for Cancel checks nothing
    connect(cmdOK_, &QPushButton::clicked, this, &PatternEditorWindow::accept);
    connect(cmdAnnuler_, &QPushButton::clicked, this, &QDialog::reject);

    auto* left = new QVBoxLayout;
    left->addWidget(BuildTypeFields());
    if (kindFields) left->addWidget(kindFields);
    auto* checks = new QHBoxLayout;
    chkCouleursNuit_ = MakeNamed<QCheckBox>(this, "chkCouleursNuit");
    chkTranspJour_ = MakeNamed<QCheckBox>(this, "chkTranspJour");
    chkTranspNuit_ = MakeNamed<QCheckBox>(this, "chkTranspNuit");
    auto* checkColumn = new QVBoxLayout;
    if (kindChecks) checkColumn->addWidget(kindChecks);
    checkColumn->addWidget(chkCouleursNuit_);
    checkColumn->addWidget(chkTranspJour_);
    checkColumn->addWidget(chkTranspNuit_);
    checks->addLayout(checkColumn);
    checks->addStretch();
    left->addLayout(checks);
    left->addWidget(BuildColourFields());
    left->addWidget(BuildPreviews());
    left->addStretch();

    auto* top = new QHBoxLayout;
    top->addLayout(left);
    top->addSpacing(8);
    top->addWidget(BuildPatternColumn(), 0, Qt::AlignTop);
    top->addWidget(BuildToolBox(), 0, Qt::AlignTop);

    auto* bottom = new QHBoxLayout;
    labels_ = new LabelStringsPanel(model_.Labels, codePage_, nullptr, this);
    connect(labels_, &LabelStringsPanel::ExtendedStyleChanged, this, &PatternEditorWindow::Refresh);
    bottom->addWidget(labels_, 1);
    auto* buttons = new QVBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdAnnuler_);
    bottom->addLayout(buttons);

    auto* whole = new QVBoxLayout(this);
    whole->addLayout(top);
    whole->addLayout(bottom);
    whole->setSizeConstraint(QLayout::SetFixedSize);

    const auto boxChanged = [this](void (PatternEditorModel::*set)(bool)) {
        return [this, set](bool on) {
            (model_.*set)(on);
            Refresh();
        };
    };
    connect(chkCouleursNuit_, &QCheckBox::clicked, this, boxChanged(&PatternEditorModel::SetNightColours));
    connect(chkTranspJour_, &QCheckBox::clicked, this, boxChanged(&PatternEditorModel::SetDayClear));
    connect(chkTranspNuit_, &QCheckBox::clicked, this, boxChanged(&PatternEditorModel::SetNightClear));
    RetranslateUi();
    Refresh();
}

QLineEdit* PatternEditorWindow::MakeNumberField(QWidget* parent, const char* name, const char* pattern) {
    auto* field = MakeFilteredField(parent, name, pattern);
    field->setFixedWidth(52);
    return field;
}

void PatternEditorWindow::CheckOnLeaving(QLineEdit* field,
                                         std::function<std::optional<EditorMessage>(const std::string&)> check) {
    connect(field, &QLineEdit::editingFinished, this, [this, field, check] {
        if (!formReady_ || checking_) return;
        const std::optional<EditorMessage> message = check(field->text().toStdString());
        if (!message) return;
        checking_ = true;
        prompts_.Inform(message->Title, message->Text);
        checking_ = false;
        Refresh();
    });
}

QWidget* PatternEditorWindow::BuildTypeFields() {
    auto* box = new QWidget(this);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    lblNumero_ = MakeNamed<QLabel>(box, "lblNumero");
    lblType_ = MakeNamed<QLabel>(box, "lblType");
    lblSubType_ = MakeNamed<QLabel>(box, "lblSubType");
    txtType_ = MakeNumberField(box, "txtType", "[0-9A-Fa-f]{0,3}");
    txtSubType_ = MakeNumberField(box, "txtSubType", "[0-9A-Fa-f]{0,2}");
    grid->addWidget(lblNumero_, 0, 0, 1, 4);
    grid->addWidget(lblType_, 1, 0);
    grid->addWidget(txtType_, 1, 1);
    grid->addWidget(lblSubType_, 1, 2);
    grid->addWidget(txtSubType_, 1, 3);
    grid->setColumnStretch(4, 1);
    connect(txtType_, &QLineEdit::textEdited, this, [this](const QString& text) { model_.Type = text.toStdString(); });
    connect(txtSubType_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.SubType = text.toStdString(); });
    CheckOnLeaving(txtType_, [this](const std::string& text) {
        auto message = CheckTypeText(text);
        if (message) model_.Type.clear();
        return message;
    });
    CheckOnLeaving(txtSubType_, [this](const std::string& text) {
        auto message = CheckSubTypeText(text);
        if (message) model_.SubType.clear();
        return message;
    });
    return box;
}

QWidget* PatternEditorWindow::BuildColourFields() {
    auto* box = new QWidget(this);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < kColourFields; ++i) {
        lblcouleur_[i] = MakeNamed<QLabel>(box, IndexedName("lblcouleur", i));
        txtcouleur_[i] = MakeNamed<QLineEdit>(box, IndexedName("txtcouleur", i));
        txtcouleur_[i]->setValidator(
            new QRegularExpressionValidator(QRegularExpression("#?[0-9A-Fa-f]{0,6}"), txtcouleur_[i]));
        txtcouleur_[i]->setMaxLength(7);
        txtcouleur_[i]->setFixedWidth(76);
        txtcouleur_[i]->installEventFilter(this);
        cmdGarmin_[i] = MakeNamed<QToolButton>(box, IndexedName("cmdGarmin", i));
        cmdGarmin_[i]->setFixedSize(18, 18);
        grid->addWidget(lblcouleur_[i], i, 0);
        grid->addWidget(txtcouleur_[i], i, 1);
        grid->addWidget(cmdGarmin_[i], i, 2);
        ConnectColourField(i);
    }
    grid->setColumnStretch(3, 1);
    return box;
}

std::optional<std::uint32_t> PatternEditorWindow::ColourOfField(int index) const {
    if (index < kObjectColourFields) return model_.Colour(static_cast<ColourField>(index));
    const ExtendedLabelStyle& style = model_.Labels.Extended();
    return index == 4 ? style.DayColour : style.NightColour;
}

void PatternEditorWindow::SetColourOfField(int index, std::uint32_t colour) {
    if (index < kObjectColourFields) model_.SetColour(static_cast<ColourField>(index), colour);
    else (index == 4 ? model_.Labels.Extended().DayColour : model_.Labels.Extended().NightColour) = colour;
}

void PatternEditorWindow::ConnectColourField(int index) {
    QLineEdit* field = txtcouleur_[index];
    connect(field, &QLineEdit::textEdited, this, [this, index](const QString& text) {
        if (const auto colour = ParseColourText(text.toStdString())) {
            SetColourOfField(index, *colour);
            Refresh();
        }
    });
    CheckOnLeaving(field, [](const std::string& text) { return CheckColourText(text); });
    connect(cmdGarmin_[index], &QToolButton::clicked, this, [this, index] {
        const auto colour = ColourOfField(index);
        if (!colour) return;
        SetColourOfField(index, static_cast<std::uint32_t>(NearestGarminColour(static_cast<Colour>(*colour))));
        Refresh();
    });
}

void PatternEditorWindow::ChooseColour(int index) {
    const auto current = ColourOfField(index);
    if (const auto chosen = ChooseGarminColour(this, current.value_or(0), 2)) {
        SetColourOfField(index, *chosen);
        Refresh();
    }
}

bool PatternEditorWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) {
        for (int i = 0; i < kColourFields; ++i)
            if (watched == txtcouleur_[i]) {
                ChooseColour(i);
                return true;
            }
    }
    if (watched == Picture2_ && event->type() == QEvent::MouseMove) {
        const Cell cell = Picture2_->CellAt(static_cast<QMouseEvent*>(event)->position().toPoint());
        lblCoordonnees_->setText(QStringLiteral("(%1,%2)").arg(cell.x).arg(cell.y));
    }
    if (watched == lblCouleurChoisie_ && event->type() == QEvent::MouseButtonPress) {
        model_.ToggleChosenColour();
        Refresh();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

QWidget* PatternEditorWindow::BuildPatternColumn() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    Picture2_ = MakeNamed<PixelCanvas>(column, "Picture2");
    Picture2_->SetCellSize(kPatternCellSize);
    Picture2_->setMouseTracking(true);
    Picture2_->installEventFilter(this);
    lblCoordonnees_ = MakeNamed<QLabel>(column, "lblCoordonnees");
    // Room for the tallest pattern, so that the window keeps its size.
    column->setMinimumSize(kPatternWidth * kPatternCellSize + 1, kPolygonPatternRows * kPatternCellSize + 24);
    layout->addWidget(Picture2_, 0, Qt::AlignHCenter | Qt::AlignVCenter);
    layout->addWidget(lblCoordonnees_);

    connect(Picture2_, &PixelCanvas::CellPressed, this, [this](Cell cell, MouseButton button) {
        model_.Press(cell, button);
        AfterPatternChange();
    });
    connect(Picture2_, &PixelCanvas::CellDragged, this, [this](Cell cell) {
        model_.Move(cell);
        lblCoordonnees_->setText(QStringLiteral("(%1,%2)").arg(cell.x).arg(cell.y));
        Picture2_->Refresh();  // the previews follow on release
    });
    connect(Picture2_, &PixelCanvas::CellReleased, this, [this](Cell cell) {
        model_.Release(cell);
        AfterPatternChange();
    });
    return column;
}

QWidget* PatternEditorWindow::BuildToolBox() {
    auto* column = new QWidget(this);
    column->setFixedWidth(190);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);

    fraDrawingMode_ = MakeNamed<QGroupBox>(column, "fraDrawingMode");
    auto* modes = new QVBoxLayout(fraDrawingMode_);
    optPinceau_ = MakeNamed<QRadioButton>(fraDrawingMode_, "optPinceau");
    optPot_ = MakeNamed<QRadioButton>(fraDrawingMode_, "optPot");
    lblCouleurChoisie_ = MakeNamed<QLabel>(fraDrawingMode_, "lblCouleurChoisie");
    lblCouleurChoisie_->setFixedSize(40, 20);
    lblCouleurChoisie_->setFrameShape(QFrame::Box);
    lblCouleurChoisie_->setAutoFillBackground(true);
    lblCouleurChoisie_->installEventFilter(this);
    modes->addWidget(optPinceau_);
    modes->addWidget(optPot_);
    modes->addWidget(lblCouleurChoisie_);
    connect(optPinceau_, &QRadioButton::clicked, this, [this] { model_.SetTool(PatternToolKind::Pen); });
    connect(optPot_, &QRadioButton::clicked, this, [this] { model_.SetTool(PatternToolKind::Fill); });

    picOutils_ = MakeNamed<QWidget>(column, "picOutils");
    auto* tools = new QGridLayout(picOutils_);
    tools->setContentsMargins(0, 0, 0, 0);
    const auto command = [&](const char* name, const QString& glyph, PatternCommand which, int row, int col,
                             int span = 1) {
        QPushButton* button = MakeButton(picOutils_, name);
        button->setText(glyph);
        button->setMinimumWidth(34);
        tools->addWidget(button, row, col, 1, span);
        commands_.push_back({button, which});
        connect(button, &QPushButton::clicked, this, [this, which] { RunCommand(which); });
        return button;
    };
    command("cmdDeplaceH", QStringLiteral("↑"), PatternCommand::ShiftUp, 0, 1);
    command("cmdDeplaceG", QStringLiteral("←"), PatternCommand::ShiftLeft, 1, 0);
    command("cmdDeplaceD", QStringLiteral("→"), PatternCommand::ShiftRight, 1, 2);
    command("cmdDeplaceB", QStringLiteral("↓"), PatternCommand::ShiftDown, 2, 1);
    command("cmdRotatG", QStringLiteral("↺"), PatternCommand::RotateCounterClockwise, 3, 0);
    command("cmdRotatD", QStringLiteral("↻"), PatternCommand::RotateClockwise, 3, 2);
    command("cmdFlipH", QStringLiteral("⇆"), PatternCommand::FlipHorizontal, 4, 0);
    command("cmdFlipV", QStringLiteral("⇅"), PatternCommand::FlipVertical, 4, 2);
    command("cmdInverser", QString(), PatternCommand::Invert, 5, 0, 3);
    command("cmdRemplir", QString(), PatternCommand::FillAll, 6, 0, 3);

    lblRepeterH_ = MakeNamed<QLabel>(picOutils_, "lblRépéterH");
    lblRepeterV_ = MakeNamed<QLabel>(picOutils_, "lblRépéterV");
    cbbPixelsH_ = MakeNamed<QComboBox>(picOutils_, "cbbPixelsH");
    cbbPixelsV_ = MakeNamed<QComboBox>(picOutils_, "cbbPixelsV");
    cmdRepeterH_ = command("cmdRépéterH", QString(), PatternCommand::RepeatColumns, 8, 2);
    cmdRepeterV_ = command("cmdRépéterV", QString(), PatternCommand::RepeatRows, 10, 2);
    tools->addWidget(lblRepeterH_, 7, 0, 1, 3);
    tools->addWidget(cbbPixelsH_, 8, 0, 1, 2);
    tools->addWidget(lblRepeterV_, 9, 0, 1, 3);
    tools->addWidget(cbbPixelsV_, 10, 0, 1, 2);
    chkAuto_ = MakeNamed<QCheckBox>(picOutils_, "chkAuto");
    tools->addWidget(chkAuto_, 11, 0, 1, 3);
    cmdCopier_ = MakeButton(picOutils_, "cmdCopier");
    cmdColler_ = MakeButton(picOutils_, "cmdColler");
    tools->addWidget(cmdCopier_, 12, 0, 1, 3);
    tools->addWidget(cmdColler_, 13, 0, 1, 3);

    chkGrille_ = MakeNamed<QCheckBox>(column, "chkGrille");
    chkGrille_->setChecked(true);
    layout->addWidget(fraDrawingMode_);
    layout->addWidget(picOutils_);
    layout->addWidget(chkGrille_);
    layout->addStretch();

    connect(chkGrille_, &QCheckBox::toggled, this, [this](bool on) { Picture2_->SetGridLines(on); });
    connect(chkAuto_, &QCheckBox::clicked, this, [this](bool on) {
        model_.AutoRepeat = on;
        Refresh();
    });
    connect(cbbPixelsH_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (formReady_) model_.RepeatIndexH = index;
    });
    connect(cbbPixelsV_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (formReady_) model_.RepeatIndexV = index;
    });
    connect(cmdCopier_, &QPushButton::clicked, this, [this] { CopyPattern(); });
    connect(cmdColler_, &QPushButton::clicked, this, [this] {
        PastePattern();
        Refresh();
    });
    return column;
}

QWidget* PatternEditorWindow::BuildPreviews() {
    auto* box = new QWidget(this);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 8, 0, 0);
    lblAperçuJour_ = MakeNamed<QLabel>(box, "lblAperçuJour");
    lblAperçuNuit_ = MakeNamed<QLabel>(box, "lblAperçuNuit");
    lblAperçuJourNuit_ = MakeNamed<QLabel>(box, "lblAperçuJourNuit");
    const QSize size = PreviewSize();
    for (int i = 0; i < 2; ++i) {
        Aperçu_[i] = new RasterPicture(size.width(), size.height(), box);
        Aperçu_[i]->setObjectName(IndexedName("Aperçu", i));
    }
    grid->addWidget(lblAperçuJour_, 0, 0);
    grid->addWidget(lblAperçuJourNuit_, 0, 0);
    grid->addWidget(lblAperçuNuit_, 0, 1);
    grid->addWidget(Aperçu_[0], 1, 0, Qt::AlignLeft | Qt::AlignTop);
    grid->addWidget(Aperçu_[1], 1, 1, Qt::AlignLeft | Qt::AlignTop);
    grid->setColumnStretch(2, 1);
    return box;
}

void PatternEditorWindow::ShowColourField(int index, bool shown) {
    lblcouleur_[index]->setVisible(shown);
    txtcouleur_[index]->setVisible(shown);
    const auto colour = ColourOfField(index);
    const bool garmin = !colour || IsGarminColour(static_cast<Colour>(*colour));
    cmdGarmin_[index]->setVisible(shown && !garmin);
    if (!colour) return;
    const QString text = HtmlOf(*colour);
    if (txtcouleur_[index]->text().toUpper() != text) txtcouleur_[index]->setText(text);
    txtcouleur_[index]->setStyleSheet(FilledStyle(*colour));
    if (!garmin) {
        const Colour nearest = NearestGarminColour(static_cast<Colour>(*colour));
        cmdGarmin_[index]->setStyleSheet(QStringLiteral("QToolButton { background: %1; border: 1px solid gray; }")
                                             .arg(Q(ColourText(nearest))));
        cmdGarmin_[index]->setToolTip(Tr("Palette", "Couleur Garmin la plus proche", "TipProche") + " : " +
                                      Q(ColourText(nearest)));
    }
}

void PatternEditorWindow::RefreshPattern() {
    const BitGrid& pattern = model_.Pattern();
    Picture2_->SetGrid(pattern.Width(), pattern.Height(),
                       [this](Cell cell) -> std::optional<QColor> { return CellColour(model_.Pattern().At(cell)); });
}

void PatternEditorWindow::RefreshPreviews() {
    const PixelPicture picture = PreviewPicture();
    const bool down = PreviewSize().height() % kPolygonPatternRows == 0;
    Aperçu_[0]->SetRaster(TiledPreview(picture, picture.Day, PreviewSize(), down));
    Aperçu_[1]->SetRaster(TiledPreview(picture, picture.Night, PreviewSize(), down));
}

void PatternEditorWindow::AfterPatternChange() {
    Picture2_->Refresh();
    RefreshPreviews();
}

void PatternEditorWindow::RunCommand(PatternCommand command) {
    model_.Run(command);
    Refresh();
}

void PatternEditorWindow::Refresh() {
    formReady_ = false;
    if (txtType_->text().toStdString() != model_.Type) txtType_->setText(Q(model_.Type));
    if (txtSubType_->text().toStdString() != model_.SubType) txtSubType_->setText(Q(model_.SubType));
    chkCouleursNuit_->setChecked(model_.NightColours());
    chkTranspJour_->setChecked(model_.DayClear());
    chkTranspNuit_->setChecked(model_.NightClear());
    const std::vector<ColourField> shown = model_.VisibleColourFields();
    for (int i = 0; i < kObjectColourFields; ++i)
        ShowColourField(i, std::ranges::find(shown, static_cast<ColourField>(i)) != shown.end());
    const ExtendedLabelStyle& style = model_.Labels.Extended();
    const bool extended = model_.Labels.ExtendedEnabled();
    ShowColourField(4, extended && (style.CustomColor & 1));
    ShowColourField(5, extended && (style.CustomColor & 2));

    const bool night = model_.NightColours();
    lblAperçuJour_->setVisible(night);
    lblAperçuNuit_->setVisible(night);
    Aperçu_[1]->setVisible(night);
    lblAperçuJourNuit_->setVisible(!night);
    chkTranspNuit_->setVisible(night && PatternShown());

    const bool pattern = PatternShown();
    for (QWidget* tool :
         std::initializer_list<QWidget*>{fraDrawingMode_, picOutils_, Picture2_, lblCoordonnees_, chkGrille_})
        tool->setVisible(pattern);
    optPinceau_->setChecked(model_.Tool() == PatternToolKind::Pen);
    optPot_->setChecked(model_.Tool() == PatternToolKind::Fill);
    QPalette chosen = lblCouleurChoisie_->palette();
    chosen.setColor(QPalette::Window, CellColour(model_.ChosenColour()));
    lblCouleurChoisie_->setPalette(chosen);
    chkAuto_->setChecked(model_.AutoRepeat);
    cmdRepeterH_->setVisible(!model_.AutoRepeat);
    cmdRepeterV_->setVisible(!model_.AutoRepeat);
    cbbPixelsH_->setCurrentIndex(model_.RepeatIndexH);
    cbbPixelsV_->setCurrentIndex(model_.RepeatIndexV);

    labels_->Refresh();

    RefreshKind();
    RefreshPattern();
    RefreshPreviews();
    formReady_ = true;
}

void PatternEditorWindow::RetranslateUi() {
    lblType_->setText(EditCaption("Type", "lblType"));
    lblSubType_->setText(EditCaption("SubType", "lblSubType"));
    chkCouleursNuit_->setText(EditCaption("Couleurs de nuit", "chkCouleursNuit"));
    chkTranspNuit_->setText(EditCaption("Transparent la nuit", "chkTranspNuit"));
    const char* colourCaptions[kColourFields][2] = {
        {"Couleur 1 de jour", "lblcouleur0"}, {"Couleur 2 de jour", "lblcouleur1"},
        {"Couleur 1 de nuit", "lblcouleur2"}, {"Couleur 2 de nuit", "lblcouleur3"},
        {"Label de jour", "lblcouleur4"},     {"Label de nuit", "lblcouleur5"},
    };
    for (int i = 0; i < kColourFields; ++i) {
        lblcouleur_[i]->setText(EditCaption(colourCaptions[i][0], colourCaptions[i][1]));
        txtcouleur_[i]->setToolTip(EditTr("Double-cliquer pour choisir la couleur", "txtcouleurTip"));
    }
    lblAperçuJour_->setText(EditCaption("Jour", "lblAperçuJour"));
    lblAperçuNuit_->setText(EditCaption("Nuit", "lblAperçuNuit"));
    lblAperçuJourNuit_->setText(EditCaption("Jour et nuit", "lblAperçuJourNuit"));
    fraDrawingMode_->setTitle(EditCaption("Outil", "fraDrawingMode"));
    optPinceau_->setText(EditCaption("Crayon", "optPinceau"));
    optPot_->setText(EditCaption("Pot de peinture", "optPot"));
    lblCouleurChoisie_->setToolTip(EditTr("Couleur du bouton gauche : cliquer pour changer", "lblCouleurChoisieTip"));
    chkGrille_->setText(EditCaption("Grille", "chkGrille"));
    chkAuto_->setText(EditCaption("Répétition auto", "chkAuto"));
    lblRepeterH_->setText(EditCaption("Répéter en largeur", "lblRépéterH"));
    lblRepeterV_->setText(EditCaption("Répéter en hauteur", "lblRépéterV"));
    cmdRepeterH_->setText(EditCaption("OK", "cmdRépéterH"));
    cmdRepeterV_->setText(EditCaption("OK", "cmdRépéterV"));
    const char* tips[][3] = {
        {"cmdDeplaceH", "Décaler d'un pixel vers le haut", "cmdDeplaceHTip"},
        {"cmdDeplaceB", "Décaler d'un pixel vers le bas", "cmdDeplaceBTip"},
        {"cmdDeplaceG", "Décaler d'un pixel vers la gauche", "cmdDeplaceGTip"},
        {"cmdDeplaceD", "Décaler d'un pixel vers la droite", "cmdDeplaceDTip"},
        {"cmdRotatG", "Tourner d'un quart de tour à gauche", "cmdRotatGTip"},
        {"cmdRotatD", "Tourner d'un quart de tour à droite", "cmdRotatDTip"},
        {"cmdFlipH", "Retourner de gauche à droite", "cmdFlipHTip"},
        {"cmdFlipV", "Retourner de haut en bas", "cmdFlipVTip"},
    };
    for (const auto& [name, tip, key] : tips)
        for (const auto& [button, which] : commands_)
            if (button->objectName() == QString::fromUtf8(name)) button->setToolTip(EditTr(tip, key));
    for (const auto& [button, which] : commands_) {
        if (which == PatternCommand::Invert) button->setText(EditCaption("Inverser", "cmdInverser"));
        if (which == PatternCommand::FillAll) button->setText(EditCaption("Remplir", "cmdRemplir"));
    }
    cmdCopier_->setText(EditCaption("Copier", "cmdCopier"));
    cmdColler_->setText(EditCaption("Coller", "cmdColler"));
    const int h = cbbPixelsH_->currentIndex(), v = cbbPixelsV_->currentIndex();
    for (QComboBox* combo : {cbbPixelsH_, cbbPixelsV_}) {
        combo->clear();
        for (int i = 0; i + 1 < kRepeatItems; ++i) combo->addItem(QStringLiteral("%1 pixels").arg(RepeatSpan(i)));
        combo->addItem(EditCaption("Aucune répétition", "AucuneRepe"));
    }
    cbbPixelsH_->setCurrentIndex(std::max(h, 0));
    cbbPixelsV_->setCurrentIndex(std::max(v, 0));

    labels_->RetranslateUi();
    cmdOK_->setText(EditCaption("OK", "cmdOK"));
    cmdAnnuler_->setText(EditCaption("Annuler", "cmdAnnuler"));
    RetranslateKind();
}

void PatternEditorWindow::accept() {
    if (Store()) QDialog::accept();
}

}  // namespace mirvane::app
