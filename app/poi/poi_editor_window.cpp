#include "app/poi/poi_editor_window.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QImage>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/colour/palette_dialog.h"
#include "app/common/named_widget.h"
#include "app/common/pixel_canvas.h"
#include "app/common/colour_style.h"
#include "app/common/texts.h"
#include "app/labels/label_strings_panel.h"
#include "app/platform/qt_image_source.h"
#include "app/poi/import_bitmap_window.h"
#include "base/codepage.h"
#include "colour/palette.h"
#include "models/poi/extra_poi_icons.h"
#include "models/poi/import_bitmap_model.h"
#include "models/shell/main_window_model.h"

namespace mirvane::app {

namespace {

constexpr int kPaletteColumns = 16;
constexpr int kSwatchSide = 13;
constexpr int kTransparentSwatch = 255;
constexpr int kPreviewFrame = 64;
constexpr int kPreviewZoom = 2;
constexpr int kGridFrame = 460;  // Picture7: the grid is centred in it
constexpr int kSmallestCell = 3;  // the zoom's lower end, in pixels a cell

// The largest cell at which a bitmap of `width` x `height` fits in `room`
// pixels, the closing grid line included: the zoom's upper end.
int FittingCellSize(int room, int width, int height) {
    return std::max((room - 1) / std::max({width, height, 1}), kSmallestCell);
}

// A filled label: the colour behind, the text white on dark greens, black on light ones.
void ShowColour(QLabel* label, std::optional<std::uint32_t> colour, const QString& text = {}) {
    if (!colour) {
        label->setStyleSheet("border: 1px solid gray;");
    } else {
        label->setStyleSheet(FilledStyle(*colour) + " border: 1px solid gray;");
    }
    label->setText(text);
}

QString AlphaTip(std::uint8_t alpha) {
    return QStringLiteral("    %1 = %2   %3: %4%")
        .arg(EditTr("Canal Alpha", "CanalAlpha").toLower())
        .arg(alpha)
        .arg(EditTr("transparence", "Transparence"))
        .arg(alpha * 100 / kTransparentAlpha);
}

// The bitmap centred in a POI's 64 x 64 frame, on the window's ground.
QPixmap PreviewOf(const WorkingBitmap& bitmap, const QColor& ground) {
    QImage frame(kPreviewFrame, kPreviewFrame, QImage::Format_ARGB32);
    frame.fill(ground);
    {
        QPainter painter(&frame);
        const QImage picture = ImageFromRgba(PictureOfBitmap(bitmap));
        painter.drawImage((kPreviewFrame - bitmap.Width) / 2, (kPreviewFrame - bitmap.Height) / 2, picture);
    }
    return QPixmap::fromImage(frame.scaled(kPreviewFrame * kPreviewZoom, kPreviewFrame * kPreviewZoom));
}

}  // namespace

PoiEditorWindow::PoiEditorWindow(MainWindowModel& main, PoiEditorTarget target, QWidget* parent)
    : QDialog(parent), main_(main), target_(target), model_(main.Prompts(), SharedPoiClipboard()) {
    setObjectName("frmPOI");
    const Document& doc = main_.Doc();
    if (target_.Kind == PoiEditorTarget::Use::Modify)
        model_.Load(doc.Pois.at(static_cast<std::size_t>(target_.Row)));
    else if (target_.Kind == PoiEditorTarget::Use::Extra)
        model_.Load(ReadSubIcon(doc, target_.Group, target_.SubIcon).value_or(PoiRecord{}));
    if (target_.Kind != PoiEditorTarget::Use::New) opened_ = model_.Shown();

    cmdOK_ = MakeNamed<QPushButton>(this, "cmdOK");
    cmdOK_->setDefault(true);  // Enter
    cmdAnnuler_ = MakeButton(this, "cmdAnnuler");
    cmdConvertir_ = MakeButton(this, "cmdConvertir");
    cmdConvertir_->setVisible(target_.Kind == PoiEditorTarget::Use::Extra);

    auto* centre = new QVBoxLayout;
    centre->addWidget(BuildGrid(), 1);
    centre->addWidget(BuildTools());
    auto* right = new QVBoxLayout;
    right->addWidget(BuildPalette());
    right->addWidget(BuildPreviews());
    right->addStretch();
    auto* middle = new QHBoxLayout;
    middle->addLayout(centre, 1);
    middle->addLayout(right);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdConvertir_);
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdAnnuler_);
    auto* whole = new QVBoxLayout(this);
    whole->addWidget(BuildHead());
    whole->addLayout(middle, 1);
    labels_ = new LabelStringsPanel(model_.Labels, main_.Doc().Identity.CodePage, &main_.Prompts(), this);
    whole->addWidget(labels_);
    whole->addLayout(buttons);

    connect(cmdOK_, &QPushButton::clicked, this, &PoiEditorWindow::accept);
    connect(cmdAnnuler_, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdConvertir_, &QPushButton::clicked, this, &PoiEditorWindow::ConvertToStandard);
    auto* undo = new QShortcut(QKeySequence::Undo, this);
    connect(undo, &QShortcut::activated, this, [this] { Edit([this] { model_.Undo(); }); });
    auto* redo = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Y), this);
    connect(redo, &QShortcut::activated, this, [this] { Edit([this] { model_.Redo(); }); });

    RetranslateUi();
}

QWidget* PoiEditorWindow::BuildHead() {
    auto* head = new QWidget(this);
    auto* layout = new QGridLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    lblNumero_ = MakeNamed<QLabel>(head, "lblNumero");
    lblType_ = MakeNamed<QLabel>(head, "lblType");
    lblSubType_ = MakeNamed<QLabel>(head, "lblSubType");
    txtType_ = MakeFilteredField(head, "txtType", "[0-9a-fA-F]{0,3}");
    txtSubType_ = MakeFilteredField(head, "txtSubType", "[0-9a-fA-F]{0,2}");
    txtType_->setMaximumWidth(60);
    txtSubType_->setMaximumWidth(60);
    chkBitmap_ = MakeNamed<QCheckBox>(head, "chkBitmap");
    lblBitmap_ = MakeNamed<QLabel>(head, "lblBitmap");
    cbbBitmap_ = MakeNamed<QComboBox>(head, "cbbBitmap");
    cbbBitmap_->addItems({"", ""});
    lblLargeur_ = MakeNamed<QLabel>(head, "lblLargeur");
    lblHauteur_ = MakeNamed<QLabel>(head, "lblHauteur");
    cbbLargeur_ = MakeNamed<QComboBox>(head, "cbbLargeur");
    cbbHauteur_ = MakeNamed<QComboBox>(head, "cbbHauteur");
    for (int side = 1; side <= kMaxPoiSide; ++side) {
        cbbLargeur_->addItem(QString::number(side));
        cbbHauteur_->addItem(QString::number(side));
    }
    lblNombreCouleurs_ = MakeNamed<QLabel>(head, "lblNombreCouleurs");
    lblColorMode_ = MakeNamed<QLabel>(head, "lblColorMode");
    cbbNombreCouleurs_ = MakeNamed<QComboBox>(head, "cbbNombreCouleurs");
    cbbNombreCouleurs_->addItem("True colors");
    for (int count = 1; count <= kMaxPaletteColours; ++count) cbbNombreCouleurs_->addItem(QString::number(count));
    cbbColorMode_ = MakeNamed<QComboBox>(head, "cbbColorMode");
    cbbColorMode_->addItems({"00", "10", "20"});
    chkBitmapNuit_ = MakeNamed<QCheckBox>(head, "chkBitmapNuit");
    optBitmap_[0] = MakeNamed<QRadioButton>(head, "optBitmap(0)");
    optBitmap_[1] = MakeNamed<QRadioButton>(head, "optBitmap(1)");

    layout->addWidget(lblNumero_, 0, 0);
    layout->addWidget(lblType_, 0, 1);
    layout->addWidget(txtType_, 0, 2);
    layout->addWidget(lblSubType_, 0, 3);
    layout->addWidget(txtSubType_, 0, 4);
    layout->addWidget(chkBitmap_, 0, 5);
    layout->addWidget(lblBitmap_, 0, 6);
    layout->addWidget(cbbBitmap_, 0, 7);
    layout->addWidget(chkBitmapNuit_, 0, 8, 1, 2);
    layout->addWidget(lblLargeur_, 1, 0);
    layout->addWidget(cbbLargeur_, 1, 1, 1, 2);
    layout->addWidget(lblHauteur_, 1, 3);
    layout->addWidget(cbbHauteur_, 1, 4);
    layout->addWidget(lblNombreCouleurs_, 1, 5);
    layout->addWidget(cbbNombreCouleurs_, 1, 6);
    layout->addWidget(lblColorMode_, 1, 7);
    layout->addWidget(cbbColorMode_, 1, 8);
    layout->addWidget(optBitmap_[0], 1, 9);
    layout->addWidget(optBitmap_[1], 1, 10);
    layout->setColumnStretch(11, 1);

    connect(txtType_, &QLineEdit::textEdited, this, [this](const QString& t) { model_.Type = t.toLower().toStdString(); });
    connect(txtSubType_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.SubType = t.toLower().toStdString(); });
    connect(txtType_, &QLineEdit::editingFinished, this, [this] { CheckHexField(txtType_, 0x1FF); });
    connect(txtSubType_, &QLineEdit::editingFinished, this, [this] { CheckHexField(txtSubType_, 0x1F); });
    connect(chkBitmap_, &QCheckBox::toggled, this, [this](bool on) {
        Edit([this, on] {
            model_.HasBitmap = on;
            if (on && model_.Shown().Width == 0) model_.Resize(16, 16);
        });
    });
    connect(cbbBitmap_, &QComboBox::currentIndexChanged, this, [this](int i) {
        if (!refreshing_) model_.BitmapFlag = i == 1;
    });
    const auto resize = [this](int) {
        Edit([this] { model_.Resize(cbbLargeur_->currentIndex() + 1, cbbHauteur_->currentIndex() + 1); });
    };
    connect(cbbLargeur_, &QComboBox::currentIndexChanged, this, resize);
    connect(cbbHauteur_, &QComboBox::currentIndexChanged, this, resize);
    connect(cbbNombreCouleurs_, &QComboBox::currentIndexChanged, this,
            [this](int count) { Edit([this, count] { model_.SetColourCount(count); }); });
    connect(cbbColorMode_, &QComboBox::currentIndexChanged, this,
            [this](int mode) { Edit([this, mode] { model_.SetColourMode(mode); }); });
    connect(chkBitmapNuit_, &QCheckBox::toggled, this,
            [this](bool on) { Edit([this, on] { model_.SetNightBitmap(on); }); });
    for (int i = 0; i < 2; ++i)
        connect(optBitmap_[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on) Edit([this, i] { model_.ShowNight(i == 1); });
        });
    return head;
}

QWidget* PoiEditorWindow::BuildGrid() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    // Picture7: the grid centred in a frame of its own.
    auto* frame = MakeNamed<QScrollArea>(column, "Picture7");
    frame->setFixedSize(kGridFrame, kGridFrame);
    gridRoom_ = kGridFrame - 2 * frame->frameWidth();
    frame->setAlignment(Qt::AlignCenter);
    Picture2_ = MakeNamed<PixelCanvas>(frame, "Picture2");
    Picture2_->setMouseTracking(true);
    Picture2_->installEventFilter(this);
    Picture2_->SetGrid(0, 0, [](Cell) { return std::nullopt; });
    frame->setWidget(Picture2_);

    sldZoom2_ = MakeNamed<QSlider>(column, "sldZoom2", Qt::Horizontal);
    chkGrille_ = MakeNamed<QCheckBox>(column, "chkGrille");
    chkGrille_->setChecked(true);
    lblZoom_ = MakeNamed<QLabel>(column, "lblZoom");
    lblCoordonnees_ = MakeNamed<QLabel>(column, "lblCoordonnees");
    lblCanalalpha_ = MakeNamed<QLabel>(column, "lblCanalalpha");
    auto* zoomRow = new QHBoxLayout;
    zoomRow->addWidget(lblZoom_);
    zoomRow->addWidget(sldZoom2_, 1);
    zoomRow->addWidget(chkGrille_);
    auto* infoRow = new QHBoxLayout;
    infoRow->addWidget(lblCoordonnees_, 1);
    infoRow->addWidget(lblCanalalpha_);
    layout->addWidget(frame, 0, Qt::AlignHCenter);
    layout->addLayout(zoomRow);
    layout->addLayout(infoRow);

    connect(sldZoom2_, &QSlider::valueChanged, this, [this](int value) {
        Picture2_->SetCellSize(value);
        Picture2_->adjustSize();
    });
    connect(chkGrille_, &QCheckBox::toggled, this, [this](bool on) { Picture2_->SetGridLines(on); });
    connect(Picture2_, &PixelCanvas::CellPressed, this, [this](Cell cell, MouseButton button) {
        const WorkingBitmap& shown = model_.Shown();
        const bool alphaPixel = model_.Tool == PoiTool::Pen && button == MouseButton::Right && !shown.HasPalette() &&
                                shown.Bitmap.ColourMode == kModeAlpha;
        if (!alphaPixel) return Edit([this, cell, button] { model_.Press(cell, button); });
        if (const auto alpha = AskAlpha(shown.PaintAt(cell).Alpha))
            Edit([this, cell, alpha] { model_.SetPixelAlpha(cell, *alpha); });
    });
    connect(Picture2_, &PixelCanvas::CellDragged, this, [this](Cell cell) { Edit([this, cell] { model_.Move(cell); }); });
    connect(Picture2_, &PixelCanvas::CellReleased, this,
            [this](Cell cell) { Edit([this, cell] { model_.Release(cell); }); });
    return column;
}

QWidget* PoiEditorWindow::BuildTools() {
    auto* box = new QWidget(this);
    auto* layout = new QGridLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    tools_ = new QButtonGroup(box);
    const std::array<std::pair<QToolButton**, const char*>, 3> modes{
        {{&optPinceau_, "optPinceau"}, {&optPot_, "optPot"}, {&optPipette_, "optPipette"}}};
    for (int i = 0; i < 3; ++i) {
        auto* button = MakeNamed<QToolButton>(box, modes[i].second);
        button->setCheckable(true);
        // As wide as its column, like the push buttons under it.
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
        tools_->addButton(button, i);
        layout->addWidget(button, 0, i);
        *modes[i].first = button;
    }
    connect(tools_, &QButtonGroup::idClicked, this, [this](int id) {
        model_.Tool = static_cast<PoiTool>(id);
    });
    const auto command = [&](QPushButton*& button, const char* name, int row, int column, std::function<void()> run) {
        button = MakeButton(box, name);
        layout->addWidget(button, row, column);
        commands_.emplace_back(button, run);
        connect(button, &QPushButton::clicked, this, [this, run] { Edit(run); });
    };
    command(cmdRemplir_, "cmdRemplir", 0, 3, [this] { model_.EraseAll(); });
    command(cmdInverser_, "cmdInverser", 0, 4, [this] { model_.Invert(); });
    command(cmdRotatD_, "cmdRotatD", 0, 5, [this] { model_.Rotate(Turn::Clockwise); });
    command(cmdRotatG_, "cmdRotatG", 0, 6, [this] { model_.Rotate(Turn::CounterClockwise); });
    command(cmdFlipH_, "cmdFlipH", 0, 7, [this] { model_.Flip(true); });
    command(cmdFlipV_, "cmdFlipV", 0, 8, [this] { model_.Flip(false); });
    command(cmdDeplaceG_, "cmdDeplaceG", 1, 0, [this] { model_.ShiftBy(-1, 0); });
    command(cmdDeplaceD_, "cmdDeplaceD", 1, 1, [this] { model_.ShiftBy(1, 0); });
    command(cmdDeplaceH_, "cmdDeplaceH", 1, 2, [this] { model_.ShiftBy(0, -1); });
    command(cmdDeplaceB_, "cmdDeplaceB", 1, 3, [this] { model_.ShiftBy(0, 1); });
    command(cmdCopier_, "cmdCopier", 1, 4, [this] { model_.Copy(); });
    command(cmdColler_, "cmdColler", 1, 5, [this] { model_.Paste(); });
    command(cmdCollerImage_, "cmdCollerImage", 1, 6, [this] {
        const auto picture = ClipboardPicture();
        if (!picture || picture->Empty())
            main_.Prompts().Inform("Mirvane", EditTr("Le presse-papier ne contient pas d'image.", "msgPasDImage").toStdString());
        else
            model_.PastePicture(*picture);
    });
    command(cmdImporterBitmap_, "cmdImporterBitmap", 1, 7, [this] {
        if (const auto imported = ImportBitmapFromFile(this, main_.Prompts())) model_.TakeImport(*imported);
    });
    command(cmdExporterBitmap_, "cmdExporterBitmap", 1, 8, [this] {
        const auto path = main_.Prompts().ChooseSavePath(
            EditTr("Exporter le bitmap", "ExporterBitmapTitre").toStdString(), "poi.png",
            "PNG (*.png);;" + EditTr("Bitmaps", "Bitmaps").toStdString() + " (*.bmp);;" +
                EditTr("Icones", "Icones").toStdString() + " (*.ico)");
        if (path && !ImageFromRgba(model_.ExportPicture()).save(Q(*path)))
            main_.Prompts().Warn("Mirvane", EditTr("Le fichier n'a pas pu être écrit :", "msgExportImpossible")
                                                    .toStdString() + " " + *path);
    });
    return box;
}

QWidget* PoiEditorWindow::BuildPalette() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    fraPalette_ = MakeNamed<QWidget>(column, "fraPalette");
    auto* grid = new QGridLayout(fraPalette_);
    grid->setSpacing(1);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(kPaletteColumns, 1);
    lblpalette_.assign(kTransparentSwatch + 1, nullptr);
    for (int i = 0; i <= kTransparentSwatch; ++i) {
        if (i == kMaxPaletteColours) continue;  // 254: no entry
        auto* swatch = new QLabel(fraPalette_);
        swatch->setObjectName(IndexedName("lblpalette", i));
        swatch->setFixedSize(i == kTransparentSwatch ? QSize(kSwatchSide * 6, kSwatchSide) : QSize(kSwatchSide, kSwatchSide));
        swatch->installEventFilter(this);
        lblpalette_[static_cast<std::size_t>(i)] = swatch;
        if (i == kTransparentSwatch) grid->addWidget(swatch, 16, 0, 1, 6);
        else grid->addWidget(swatch, i / kPaletteColumns, i % kPaletteColumns);
    }
    lblCouleurCourante_ = MakeNamed<QLabel>(column, "lblCouleurCourante");
    lblCouleurCourante_->setMinimumHeight(24);
    lblCouleurCourante_->setAlignment(Qt::AlignCenter);
    lblCouleurCourante_->installEventFilter(this);
    cmdAjouterCouleur_ = MakeButton(column, "cmdAjouterCouleur");
    cmdSupprimerCouleur_ = MakeButton(column, "cmdSupprimerCouleur");
    cmdCanalAlpha_ = MakeButton(column, "cmdCanalAlpha");
    lblIsGarmin_ = MakeNamed<QLabel>(column, "lblIsGarmin");
    lblIsGarmin_->setWordWrap(true);
    lblIsGarmin_->installEventFilter(this);
    lblInfosPalette_ = MakeNamed<QLabel>(column, "lblInfosPalette");
    lblInfosTrueColors_ = MakeNamed<QLabel>(column, "lblInfosTrueColors");
    for (QLabel* info : {lblIsGarmin_, lblInfosPalette_, lblInfosTrueColors_}) {
        info->setWordWrap(true);
        info->setMaximumWidth(kPaletteColumns * (kSwatchSide + 1) + 60);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdAjouterCouleur_);
    buttons->addWidget(cmdSupprimerCouleur_);
    buttons->addWidget(cmdCanalAlpha_);
    layout->addWidget(fraPalette_);
    layout->addWidget(lblInfosTrueColors_);
    layout->addWidget(lblCouleurCourante_);
    layout->addLayout(buttons);
    layout->addWidget(lblInfosPalette_);
    layout->addWidget(lblIsGarmin_);

    connect(cmdAjouterCouleur_, &QPushButton::clicked, this, [this] {
        const auto colour = ChooseGarminColour(this, 0xFFFFFF, 2);
        if (!colour) return;
        std::optional<std::uint8_t> alpha = kOpaqueAlpha;
        if (model_.Shown().Bitmap.ColourMode == kModeAlpha) alpha = AskAlpha(kOpaqueAlpha);
        Edit([this, colour, alpha] { model_.AddColour(*colour, alpha.value_or(kOpaqueAlpha)); });
    });
    connect(cmdSupprimerCouleur_, &QPushButton::clicked, this, [this] { Edit([this] { model_.RemoveColour(); }); });
    connect(cmdCanalAlpha_, &QPushButton::clicked, this, [this] {
        if (const auto alpha = AskAlpha(model_.Paint.Alpha)) Edit([this, alpha] { model_.SetAlphaOfAll(*alpha); });
    });
    return column;
}

QWidget* PoiEditorWindow::BuildPreviews() {
    auto* row = new QWidget(this);
    auto* layout = new QGridLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 3; ++i) {
        lblApercu_[i] = MakeNamed<QLabel>(row, IndexedName("lblApercu", i));
        Apercu_[i] = MakeNamed<QLabel>(row, IndexedName("Aperçu", i));
        Apercu_[i]->setFixedSize(kPreviewFrame * kPreviewZoom + 2, kPreviewFrame * kPreviewZoom + 2);
        Apercu_[i]->setFrameShape(QFrame::Box);
        layout->addWidget(lblApercu_[i], 0, i);
        layout->addWidget(Apercu_[i], 1, i);
    }
    return row;
}

void PoiEditorWindow::RetranslateUi() {
    const bool extra = target_.Kind == PoiEditorTarget::Use::Extra;
    setWindowTitle(target_.Kind == PoiEditorTarget::Use::New ? EditTr("Nouveau POI", "NouveauPOI")
                   : extra ? EditTr("Modifier le POI additionnel", "ModifierExtraPOI")
                           : EditTr("Modifier le POI", "ModifierPOI"));
    const int number = target_.Kind == PoiEditorTarget::Use::New ? main_.Doc().PoiCount() + 1
                       : extra                                  ? target_.Group
                                                                : target_.Row;
    lblNumero_->setText((extra ? "Extra POI #" : "POI #") + QString::number(number));
    lblType_->setText(EditTr("Type", "Type"));
    lblSubType_->setText(EditTr("SubType", "SubType"));
    chkBitmap_->setText(EditTr("Bitmap", "chkBitmap"));
    lblBitmap_->setText(EditTr("Flag bitmap", "lblBitmap"));
    cbbBitmap_->setItemText(0, EditTr("Non", "Non"));
    cbbBitmap_->setItemText(1, EditTr("Oui", "Oui"));
    lblLargeur_->setText(EditTr("Largeur", "lblLargeur"));
    lblHauteur_->setText(EditTr("Hauteur", "lblHauteur"));
    lblNombreCouleurs_->setText(EditTr("Couleurs", "lblNombreCouleurs"));
    lblColorMode_->setText(EditTr("Colormode", "lblColorMode"));
    cbbColorMode_->setToolTip(EditTr("Le bitmap n'a aucun effet de transparence", "cbbColorModeTip2"));
    chkBitmapNuit_->setText(EditTr("Bitmap différent pour la nuit", "chkBitmapNuit"));
    optBitmap_[0]->setText(EditTr("Jour", "optBitmap0"));
    optBitmap_[1]->setText(EditTr("Nuit", "optBitmap1"));
    optBitmap_[0]->setToolTip(EditTr("Cliquer ici pour afficher le bitmap de jour", "optBitmap0Tip"));
    optBitmap_[1]->setToolTip(EditTr("Cliquer ici pour afficher le bitmap de nuit", "optBitmap1Tip"));
    lblZoom_->setText(EditTr("Zoom", "lblZoom"));
    chkGrille_->setText(EditTr("Grille", "chkGrille"));
    chkGrille_->setToolTip(EditTr("Afficher/Masquer la grile", "chkGrilleTip"));
    optPinceau_->setText(EditTr("Crayon", "optPinceau"));
    optPot_->setText(EditTr("Pot", "optPot"));
    optPipette_->setText(EditTr("Pipette", "optPipette"));
    optPinceau_->setToolTip(EditTr("Crayon", "optPinceauTip1") + "\n" + EditTr("Clic gauche ou droit pour dessiner", "optPinceauTip2"));
    optPot_->setToolTip(EditTr("Pot de peinture. Remplit tous les pixels de même couleurs et adjacents", "optPotTip1"));
    optPipette_->setToolTip(EditTr("Pipette", "optPipetteTip1") + "\n" + EditTr("Prélève la couleur d'un pixel", "optPipetteTip2"));
    const std::array<std::tuple<QPushButton*, const char*, const char*, const char*, const char*>, 15> texts{{
        {cmdRemplir_, "Effacer", "cmdRemplir",
         "Effacer. Remplit le bitmap avec la couleur courante (noir: 1ère couleur    blanc: 2ème couleur)", "cmdRemplirTip"},
        {cmdInverser_, "Inverser", "cmdInverser", "Inverser les couleurs", "cmdInverserTip"},
        {cmdRotatD_, "↻", "cmdRotatD", "Rotation horaire de 90°", "cmdRotatDTip"},
        {cmdRotatG_, "↺", "cmdRotatG", "Rotation antihoraire de 90°", "cmdRotatGTip"},
        {cmdFlipH_, "⇆", "cmdFlipH", "Flip horizontal", "cmdFlipHTip"},
        {cmdFlipV_, "⇅", "cmdFlipV", "Flip vertical", "cmdFlipVTip"},
        {cmdDeplaceG_, "←", "cmdDeplaceG", "Déplacer le dessin de un pixel vers la gauche", "cmdDeplaceGTip"},
        {cmdDeplaceD_, "→", "cmdDeplaceD", "Déplacer le dessin de un pixel vers la droite", "cmdDeplaceDTip"},
        {cmdDeplaceH_, "↑", "cmdDeplaceH", "Déplacer le dessin de un pixel vers le haut", "cmdDeplaceHTip"},
        {cmdDeplaceB_, "↓", "cmdDeplaceB", "Déplacer le dessin de un pixel vers le bas", "cmdDeplaceBTip"},
        {cmdCopier_, "Copier", "cmdCopier", "Copier le bitmap dans le presse-papier de Mirvane", "cmdCopierTip"},
        {cmdColler_, "Coller", "cmdColler", "Coller le bitmap du presse-papier de Mirvane", "cmdCollerTip"},
        {cmdCollerImage_, "Coller une image", "cmdCollerImage", "Coller l'image du presse-papier du système",
         "cmdCollerImageTip"},
        {cmdImporterBitmap_, "Importer", "cmdImporterBitmap", "Importer un fichier image", "cmdImporterBitmapTip"},
        {cmdExporterBitmap_, "Exporter", "cmdExporterBitmap", "Exporter le bitmap dans un fichier image",
         "cmdExporterBitmapTip"},
    }};
    for (const auto& [button, text, key, tip, tipKey] : texts) {
        button->setText(EditTr(text, key));
        button->setToolTip(EditTr(tip, tipKey));
    }
    cmdAjouterCouleur_->setText(EditTr("Ajouter", "cmdAjouterCouleur"));
    cmdAjouterCouleur_->setToolTip(EditTr("Ajouter une couleur à la palette du Bitmap", "cmdAjouterCouleurTip"));
    cmdSupprimerCouleur_->setText(EditTr("Retirer", "cmdSupprimerCouleur"));
    cmdSupprimerCouleur_->setToolTip(EditTr("Retirer la couleur courante de la palette du Bitmap", "cmdSupprimerCouleurTip"));
    cmdCanalAlpha_->setText(EditTr("Canal alpha", "CanalAlpha"));
    lblApercu_[0]->setText(EditTr("Actuel", "lblActuel"));
    lblApercu_[1]->setText(EditTr("Modifié", "lblModifie"));
    lblApercu_[2]->setText(EditTr("Autre bitmap", "lblAutreBitmap"));
    labels_->RetranslateUi();
    cmdOK_->setText(EditTr("OK", "cmdOK"));
    cmdAnnuler_->setText(EditTr("Annuler", "cmdAnnuler"));
    cmdConvertir_->setText(EditTr("Convertir en POI", "cmdConvertir"));
    Refresh();
}

void PoiEditorWindow::Edit(const std::function<void()>& change) {
    if (refreshing_) return;
    change();
    Refresh();
}

void PoiEditorWindow::Refresh() {
    refreshing_ = true;
    const WorkingBitmap& shown = model_.Shown();
    if (txtType_->text().toStdString() != model_.Type) txtType_->setText(Q(model_.Type));
    if (txtSubType_->text().toStdString() != model_.SubType) txtSubType_->setText(Q(model_.SubType));
    chkBitmap_->setChecked(model_.HasBitmap);
    cbbBitmap_->setCurrentIndex(model_.BitmapFlag ? 1 : 0);
    cbbLargeur_->setCurrentIndex(shown.Width - 1);
    cbbHauteur_->setCurrentIndex(shown.Height - 1);
    cbbNombreCouleurs_->setCurrentIndex(shown.ColourCount());
    cbbColorMode_->setCurrentIndex(std::min(shown.Bitmap.ColourMode / 16, 2));
    const bool night = model_.Current().Night.has_value();
    chkBitmapNuit_->setChecked(night);
    optBitmap_[1]->setVisible(night);
    optBitmap_[model_.NightShown() ? 1 : 0]->setChecked(true);
    // A new size brings the zoom at which the bitmap fills the frame, as on
    // opening; the slider's upper end is that zoom.
    if (Picture2_->Columns() != shown.Width || Picture2_->Rows() != shown.Height) {
        const int fit = FittingCellSize(gridRoom_, shown.Width, shown.Height);
        sldZoom2_->setRange(kSmallestCell, fit);
        sldZoom2_->setValue(fit);
    }
    Picture2_->SetCellSize(sldZoom2_->value());
    Picture2_->SetGrid(shown.Width, shown.Height, [this](Cell cell) -> std::optional<QColor> {
        const auto colour = model_.Shown().ShownColour(cell);
        if (!colour) return std::nullopt;
        return QColourOf(*colour);
    });
    Picture2_->adjustSize();
    Picture2_->Refresh();
    tools_->button(static_cast<int>(model_.Tool))->setChecked(true);
    cmdColler_->setEnabled(model_.CanPaste());
    for (auto& [button, run] : commands_)
        if (button != cmdColler_ && button != cmdCollerImage_ && button != cmdImporterBitmap_)
            button->setEnabled(model_.HasBitmap);
    RefreshPalette();
    RefreshPreviews();
    labels_->Refresh();
    refreshing_ = false;
}

void PoiEditorWindow::RefreshPalette() {
    const WorkingBitmap& shown = model_.Shown();
    const int count = shown.ColourCount();
    const int mode = shown.Bitmap.ColourMode;
    for (int i = 0; i < kMaxPaletteColours; ++i) {
        QLabel* swatch = lblpalette_[static_cast<std::size_t>(i)];
        swatch->setVisible(i < count);
        if (i >= count) continue;
        const PaletteEntry& entry = shown.Bitmap.Palette[static_cast<std::size_t>(i)];
        const bool filled = shown.EntryFilled(i);
        ShowColour(swatch, filled ? std::optional(entry.Colour) : std::nullopt);
        swatch->setToolTip(filled ? HtmlOf(entry.Colour) + (mode == kModeAlpha ? AlphaTip(entry.Alpha) : QString())
                                  : QString());
    }
    QLabel* transparent = lblpalette_[kTransparentSwatch];
    transparent->setVisible(mode == kModeTransparentColour);
    ShowColour(transparent, std::nullopt, EditTr("Transparent", "Transparent"));
    transparent->setToolTip(EditTr("Cliquer pour que la couleur courante soit transparente", "lblTransparentTip"));
    fraPalette_->setVisible(true);
    const bool palette = shown.HasPalette();
    lblInfosTrueColors_->setVisible(!palette);
    lblInfosTrueColors_->setText(EditTr("Ce bitmap n'a pas de palette.(True colors)", "lblInfosTrueColors1") + "\n" +
                                 EditTr(" Clic gauche sur le bitmap pour dessiner avec la couleur courante.",
                                        "lblInfosTrueColors2") +
                                 (mode == kModeAlpha ? "\n" + EditTr("Clic droit pour changer le canal alpha du pixel.",
                                                                     "lblInfosTrueColors3")
                                                     : QString()) +
                                 (mode == kModeTransparentColour
                                      ? "\n" + EditTr("Clic sur \"Transparent\" pour dessiner des pixels transparents.",
                                                      "lblInfosTrueColors4")
                                      : QString()));
    lblInfosPalette_->setVisible(palette);
    QString info = EditTr("Clic gauche pour prélever la couleur", "lblInfospalette1") + "\n" +
                   EditTr(" Clic droit pour changer la couleur", "lblInfospalette2");
    if (mode == kModeAlpha)
        info += " " + EditTr("et le canal alpha", "lblInfospalette5") + "\n" +
                EditTr("Clic sur \"Canal alpha\" pour changer", "lblInfospalette6") + " " +
                EditTr("le canal alpha de toutes les couleurs", "lblInfospalette7");
    if (mode == kModeTransparentColour)
        info += "\n" + EditTr("Clic sur transparent pour prélever", "lblInfospalette3") + " " +
                EditTr("une couleur transparente", "lblInfospalette4");
    lblInfosPalette_->setText(info);
    cmdAjouterCouleur_->setEnabled(palette && count < kMaxPaletteColours);
    cmdSupprimerCouleur_->setEnabled(palette);
    cmdCanalAlpha_->setVisible(mode == kModeAlpha);

    const PoiPaint& paint = model_.Paint;
    QString tip = EditTr("Couleur courante", "CouleurCourante");
    if (paint.Transparent) {
        ShowColour(lblCouleurCourante_, std::nullopt, EditTr("Transparent", "Transparent"));
        tip += " : " + EditTr("transparente", "Transparent");
    } else {
        ShowColour(lblCouleurCourante_, paint.Colour);
        tip += " : " + HtmlOf(paint.Colour) + (mode == kModeAlpha ? AlphaTip(paint.Alpha) : QString());
    }
    tip += "\n\t" + EditTr("Clic gauche pour changer la couleur courante", "lblCouleurCouranteTip1");
    if (mode == kModeTransparentColour) tip += "\n\t" + EditTr("Clic droit pour la transparence", "lblCouleurCouranteTip2");
    if (mode == kModeAlpha) tip += "\n\t" + EditTr("Clic droit pour changer le canalalpha", "lblCouleurCouranteTip3");
    lblCouleurCourante_->setToolTip(tip);

    const bool garmin = model_.AllGarminColours();
    lblIsGarmin_->setStyleSheet(garmin ? "color: green;" : "color: rgb(255, 0, 0);");
    lblIsGarmin_->setText(garmin ? EditTr("Toutes les couleurs du bitmap appartiennent à la palette de couleurs des "
                                          "séries eTrex et 60 ",
                                          "lblIsGarminT")
                                 : EditTr("Au moins une couleur du bitmap n'appartient pas à la palette de couleurs des "
                                          "séries eTrex et 60 .",
                                          "lblIsGarminF") +
                                       "\n" + EditTr("Cliquer pour les remplacer toutes.", "lblIsGarminF2"));
}

void PoiEditorWindow::RefreshPreviews() {
    const QColor ground = palette().color(QPalette::Window);
    const auto& current = model_.Current();
    Apercu_[0]->setPixmap(opened_ ? PreviewOf(*opened_, ground) : QPixmap());
    Apercu_[1]->setPixmap(PreviewOf(model_.Shown(), ground));
    const bool other = current.Night.has_value();
    Apercu_[2]->setVisible(other);
    lblApercu_[2]->setVisible(other);
    if (other) Apercu_[2]->setPixmap(PreviewOf(model_.NightShown() ? current.Day : *current.Night, ground));
}

bool PoiEditorWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Picture2_ && event->type() == QEvent::MouseMove) HoverOver(static_cast<QMouseEvent*>(event)->pos());
    if (event->type() != QEvent::MouseButtonPress) return QDialog::eventFilter(watched, event);
    const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
    if (watched == lblCouleurCourante_) {
        CurrentColourClicked(button);
        return true;
    }
    if (watched == lblIsGarmin_) {
        if (!model_.AllGarminColours()) Edit([this] { model_.UseGarminColours(); });
        return true;
    }
    const auto swatch = std::ranges::find(lblpalette_, watched);
    if (swatch != lblpalette_.end()) {
        PaletteClicked(static_cast<int>(swatch - lblpalette_.begin()), button);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void PoiEditorWindow::PaletteClicked(int index, Qt::MouseButton button) {
    const WorkingBitmap& shown = model_.Shown();
    if (index == kTransparentSwatch) return Edit([this] { model_.PickTransparent(); });
    if (button != Qt::RightButton) return Edit([this, index] { model_.PickEntry(index); });
    const PaletteEntry& entry = shown.Bitmap.Palette.at(static_cast<std::size_t>(index));
    const auto colour = ChooseGarminColour(this, shown.EntryFilled(index) ? entry.Colour : 0, 2);
    if (!colour) return;
    std::optional<std::uint8_t> alpha = entry.Alpha;
    if (shown.Bitmap.ColourMode == kModeAlpha) alpha = AskAlpha(entry.Alpha).value_or(entry.Alpha);
    Edit([this, index, colour, alpha] { model_.SetEntry(index, *colour, *alpha); });
}

void PoiEditorWindow::CurrentColourClicked(Qt::MouseButton button) {
    const WorkingBitmap& shown = model_.Shown();
    if (shown.HasPalette()) return;
    const int mode = shown.Bitmap.ColourMode;
    if (button == Qt::LeftButton) {
        const auto colour = ChooseGarminColour(this, model_.Paint.Transparent ? 0 : model_.Paint.Colour, 2);
        if (!colour) return;
        model_.Paint.Colour = *colour;
        model_.Paint.Transparent = false;
    } else if (mode == kModeTransparentColour) {
        model_.Paint.Transparent = true;
    }
    if (mode == kModeAlpha)
        if (const auto alpha = AskAlpha(model_.Paint.Alpha)) model_.Paint.Alpha = *alpha;
    Refresh();
}

void PoiEditorWindow::HoverOver(QPoint position) {
    const WorkingBitmap& shown = model_.Shown();
    const Cell cell = Picture2_->CellAt(position);
    if (!shown.Contains(cell)) return;
    const auto colour = shown.ShownColour(cell);
    lblCoordonnees_->setText(QStringLiteral("(%1,%2)    ").arg(cell.x).arg(cell.y) +
                             (colour ? HtmlOf(*colour) : EditTr("Transparent", "Transparent")));
    lblCanalalpha_->setVisible(shown.Bitmap.ColourMode == kModeAlpha);
    if (shown.Bitmap.ColourMode == kModeAlpha) {
        const PoiPaint paint = shown.PaintAt(cell);
        const std::uint8_t alpha = shown.HasPalette() && !paint.Transparent
                                       ? shown.Bitmap.Palette[paint.Index].Alpha
                                       : paint.Alpha;
        lblCanalalpha_->setText(EditTr("Canal Alpha", "CanalAlpha") + " : " + QString::number(alpha));
    }
}

std::optional<std::uint8_t> PoiEditorWindow::AskAlpha(std::uint8_t start) {
    const QString question = EditTr("Entrer un nombre entier de 0 à 15", "msgSaisieCanalAlpha1") + "\n\n" +
                             EditTr("0 correspond à une teinte opaque", "msgSaisieCanalAlpha2") + "\n\n" +
                             EditTr("15 correspond à une couleur transparente.", "msgSaisieCanalAlpha3");
    QString text = QString::number(start);
    for (;;) {
        bool ok = false;
        text = QInputDialog::getText(this, EditTr("Canal alpha", "CanalAlpha"), question, QLineEdit::Normal, text, &ok);
        if (!ok || text.isEmpty()) return std::nullopt;
        if (const auto alpha = PoiEditorModel::AlphaFromText(text.trimmed().toStdString())) return alpha;
        main_.Prompts().Inform(EditTr("Saisie incorrecte", "msgSaisieCanalAlpha5").toStdString(),
                               EditTr("Il faut saisir un nombre entier de 0 à 15", "msgSaisieCanalAlpha4").toStdString());
    }
}

bool PoiEditorWindow::CheckHexField(QLineEdit* field, int maximum) {
    bool ok = false;
    const int value = field->text().toInt(&ok, 16);
    if (field->text().isEmpty() || (ok && value <= maximum)) return true;
    const bool type = field == txtType_;
    main_.Prompts().Inform(
        (EditTr("Erreur de saisie dans le champ", "ErreurSaisie1") + "  \"" + (type ? "Type" : "SubType") + "\"")
            .toStdString(),
        (EditTr("Il faut rentrer une valeur héxadécimale  comprise entre", "msgHexa") +
         (type ? " 0x000 et 0x1FF" : " 0x00 et 0x1F"))
            .toStdString());
    field->setFocus();
    return false;
}

bool PoiEditorWindow::ImportPictureFile(const QString& path) {
    ImportBitmapModel import(main_.Prompts(), ReadPictureFile);
    import.SetPath(path.toStdString());
    if (!import.Open() || !import.CanImport() || !import.Import() || !import.Result()) return false;
    Edit([this, &import] { model_.TakeImport(*import.Result()); });
    return true;
}

void PoiEditorWindow::Finish(ChangeSet changed, std::optional<ObjectRef> select) {
    main_.MarkModified(changed);
    if (select) main_.Select(select);
    QDialog::accept();
}

void PoiEditorWindow::accept() {
    if (!CheckHexField(txtType_, 0x1FF) || !CheckHexField(txtSubType_, 0x1F)) return;
    Document& doc = main_.Doc();
    if (target_.Kind == PoiEditorTarget::Use::Extra) {
        if (model_.SaveSubIcon(doc, target_.Group, target_.SubIcon)) Finish(ChangeSet::Everything(), std::nullopt);
        return;
    }
    const std::optional<int> replacing =
        target_.Kind == PoiEditorTarget::Use::Modify ? std::optional(target_.Row) : std::nullopt;
    if (const auto row = model_.Save(doc, replacing)) Finish(Change::Pois, ObjectRef{ObjectKind::Poi, *row});
}

void PoiEditorWindow::ConvertToStandard() {
    if (!CheckHexField(txtType_, 0x1FF) || !CheckHexField(txtSubType_, 0x1F)) return;
    if (const auto row = model_.Save(main_.Doc(), std::nullopt)) Finish(Change::Pois, ObjectRef{ObjectKind::Poi, *row});
}

void OpenPoiEditor(MainWindowModel& main, QWidget* parent, std::optional<int> row) {
    PoiEditorWindow window(main, row ? PoiEditorTarget::Poi(*row) : PoiEditorTarget::NewPoi(), parent);
    window.exec();
}

std::unique_ptr<QWidget> PoiEditorWindowForScreenshot(MainWindowModel& main, std::optional<ObjectRef> object) {
    const bool poi = object && object->Kind == ObjectKind::Poi;
    return std::make_unique<PoiEditorWindow>(main, poi ? PoiEditorTarget::Poi(object->Row) : PoiEditorTarget::NewPoi());
}

}  // namespace mirvane::app
