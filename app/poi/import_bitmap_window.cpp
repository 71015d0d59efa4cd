#include "app/poi/import_bitmap_window.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "app/platform/qt_image_source.h"
#include "app/preview/raster_image.h"

namespace mirvane::app {

namespace {

QString ImportCaption(std::string_view defaultText, std::string_view key) {
    return QString::fromStdString(FormCaption("ImporterBitmap", defaultText, key));
}

// Controls of the two views carry the view's index: "Picture2(1)".
QString Indexed(const char* name, ImportView view) {
    return QStringLiteral("%1(%2)").arg(name).arg(static_cast<int>(view));
}

template <typename T>
T* Named(T* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

QComboBox* MakeSizeCombo(QWidget* parent, const char* name) {
    auto* combo = Named(new QComboBox(parent), name);
    for (int side = 1; side <= kMaxBitmapSide; ++side) combo->addItem(QString::number(side));
    combo->setCurrentIndex(-1);
    return combo;
}

// "Largeur : 640"; the caption alone while no picture is open.
QString SizeText(const QString& caption, bool known, int value) {
    return known ? caption + " : " + QString::number(value) : caption + " :";
}

}  // namespace

ImportBitmapWindow::ImportBitmapWindow(UserPrompts& prompts, QWidget* parent, PictureReader reader)
    : QDialog(parent), model_(prompts, reader ? std::move(reader) : PictureReader(ReadPictureFile)) {
    setObjectName("frmImporterBitmap");
    Label1_ = Named(new QLabel(this), "Label1");
    Label3_ = Named(new QLabel(this), "Label3");
    cmdImporterBitmap_ = MakeButton(this, "cmdImporterBitmap");
    cmdAnnuler_ = MakeButton(this, "cmdAnnuler");

    auto* views = new QHBoxLayout;
    views->addWidget(BuildView(ImportView::Source));
    views->addWidget(BuildSizeColumn());
    views->addWidget(BuildView(ImportView::Bitmap));
    views->addSpacing(8);
    views->addWidget(BuildMapPreviews());

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(Label3_);
    bottom->addStretch();
    bottom->addWidget(cmdImporterBitmap_);
    bottom->addWidget(cmdAnnuler_);

    auto* whole = new QVBoxLayout(this);
    whole->addWidget(Label1_);
    whole->addWidget(BuildFileRow());
    whole->addLayout(views);
    whole->addLayout(bottom);
    whole->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdImporterBitmap_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdAnnuler_, &QPushButton::clicked, this, &QDialog::reject);
    RetranslateUi();
}

QWidget* ImportBitmapWindow::BuildFileRow() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    Text1_ = Named(new QLineEdit(row), "Text1");
    cmdParcourir_ = MakeButton(row, "cmdParcourir");
    cmdOuvrir_ = MakeButton(row, "cmdOuvrir");
    layout->addWidget(Text1_, 1);
    layout->addWidget(cmdParcourir_);
    layout->addWidget(cmdOuvrir_);

    connect(Text1_, &QLineEdit::textEdited, this, [this](const QString& text) { model_.SetPath(text.toStdString()); });
    const auto open = [this] {
        model_.Open();
        Refresh();
    };
    connect(Text1_, &QLineEdit::returnPressed, this, open);
    connect(cmdOuvrir_, &QPushButton::clicked, this, open);
    connect(cmdParcourir_, &QPushButton::clicked, this, [this] {
        model_.Browse();
        Refresh();
    });
    return row;
}

QWidget* ImportBitmapWindow::BuildView(ImportView view) {
    const int i = static_cast<int>(view);
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    QLabel*& title = view == ImportView::Source ? Label4_ : Label5_;
    title = Named(new QLabel(column), view == ImportView::Source ? "Label4" : "Label5");
    Picture2_[i] = Named(new RasterPicture(kImportViewSide, kImportViewSide, column), Indexed("Picture2", view));
    cmdZoomOut_[i] = MakeButton(column, Indexed("cmdZoomOut", view));
    cmdZoomIn_[i] = MakeButton(column, Indexed("cmdZoomIn", view));
    cmdTailleReelle_[i] = MakeButton(column, Indexed("cmdTailleReelle", view));
    auto* zooms = new QHBoxLayout;
    zooms->addWidget(cmdZoomOut_[i]);
    zooms->addWidget(cmdZoomIn_[i]);
    zooms->addWidget(cmdTailleReelle_[i]);
    layout->addWidget(title);
    layout->addWidget(Picture2_[i]);
    layout->addLayout(zooms);
    if (view == ImportView::Source) {
        lblLargeur_ = Named(new QLabel(column), "lblLargeur");
        lblHauteur_ = Named(new QLabel(column), "lblHauteur");
        layout->addWidget(lblLargeur_);
        layout->addWidget(lblHauteur_);
    } else {
        lblNombreCouleurs_ = Named(new QLabel(column), "lblNombreCouleurs");
        layout->addWidget(lblNombreCouleurs_);
        layout->addWidget(new QLabel(column));  // keeps the two views level
    }
    layout->addStretch();

    const auto zoomed = [this](void (ImportBitmapModel::*change)(ImportView), ImportView which) {
        return [this, change, which] {
            (model_.*change)(which);
            Refresh();
        };
    };
    connect(cmdZoomIn_[i], &QPushButton::clicked, this, zoomed(&ImportBitmapModel::ZoomIn, view));
    connect(cmdZoomOut_[i], &QPushButton::clicked, this, zoomed(&ImportBitmapModel::ZoomOut, view));
    connect(cmdTailleReelle_[i], &QPushButton::clicked, this, zoomed(&ImportBitmapModel::RealSize, view));
    return column;
}

QWidget* ImportBitmapWindow::BuildSizeColumn() {
    auto* column = new QWidget(this);
    column->setFixedWidth(190);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(4, 0, 4, 0);
    Label2_ = Named(new QLabel(column), "Label2");
    Label2_->setWordWrap(true);
    Label6_ = Named(new QLabel(column), "Label6");
    Label7_ = Named(new QLabel(column), "Label7");
    cbbLargeur_ = MakeSizeCombo(column, "cbbLargeur");
    cbbHauteur_ = MakeSizeCombo(column, "cbbHauteur");
    cmdConvertir_ = MakeButton(column, "cmdConvertir");
    auto* sizes = new QGridLayout;
    sizes->addWidget(Label6_, 0, 0);
    sizes->addWidget(cbbLargeur_, 0, 1);
    sizes->addWidget(Label7_, 1, 0);
    sizes->addWidget(cbbHauteur_, 1, 1);
    layout->addSpacing(60);
    layout->addWidget(Label2_);
    layout->addLayout(sizes);
    layout->addSpacing(12);
    layout->addWidget(cmdConvertir_);
    layout->addStretch();

    // Refresh moves the combos under a signal blocker, so these run for the user's choices only.
    connect(cbbLargeur_, &QComboBox::currentIndexChanged, this, [this](int index) {
        model_.SetTargetWidth(index + 1);
        Refresh();
    });
    connect(cbbHauteur_, &QComboBox::currentIndexChanged, this, [this](int index) {
        model_.SetTargetHeight(index + 1);
        Refresh();
    });
    connect(cmdConvertir_, &QPushButton::clicked, this, [this] {
        model_.Convert();
        Refresh();
    });
    return column;
}

QWidget* ImportBitmapWindow::BuildMapPreviews() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    const int side = kImportPreviewSide * kImportPreviewZoom;
    lblJour_ = Named(new QLabel(column), "lblJour");
    picJour_ = Named(new RasterPicture(side, side, column), "picJour");
    lblNuit_ = Named(new QLabel(column), "lblNuit");
    picNuit_ = Named(new RasterPicture(side, side, column), "picNuit");
    layout->addWidget(lblJour_);
    layout->addWidget(picJour_);
    layout->addWidget(lblNuit_);
    layout->addWidget(picNuit_);
    layout->addStretch();
    return column;
}

void ImportBitmapWindow::RetranslateUi() {
    setWindowTitle(ImportCaption("Importer un bitmap", "frmImporterCaption"));
    Label1_->setText("1 - " + ImportCaption("Ouvrir le fichier image à importer", "lbl1"));
    Label2_->setText("2 - " + ImportCaption("Modifier éventuellement la largeur et la  hauteur du bitmap.", "lbl2"));
    Label3_->setText("3 - " + ImportCaption("Importer le bitmap dans le POI", "lbl3"));
    Label4_->setText(ImportCaption("Image d'origine", "lbl4"));
    Label5_->setText(ImportCaption("Bitmap", "lbl5"));
    Label6_->setText(ImportCaption("Largeur", "lbl6"));
    Label7_->setText(ImportCaption("Hauteur", "lbl7"));
    cmdParcourir_->setText(ImportCaption("Parcourir", "cmdParcourir"));
    cmdOuvrir_->setText(ImportCaption("Ouvrir l'image", "cmdOuvrir"));
    cmdConvertir_->setText(ImportCaption("Redimmensionner    >>", "cmdConvertir"));
    for (int i = 0; i < 2; ++i) {
        cmdZoomIn_[i]->setText(ImportCaption("Zoom +", "cmdZoomIn"));
        cmdZoomOut_[i]->setText(ImportCaption("Zoom -", "cmdZoomOut"));
        cmdTailleReelle_[i]->setText(ImportCaption("Taille réelle", "cmdTailleReelle"));
    }
    lblJour_->setText(ImportCaption("Sur la carte de jour", "lblJour"));
    lblNuit_->setText(ImportCaption("Sur la carte de nuit", "lblNuit"));
    cmdImporterBitmap_->setText(ImportCaption("Importer le Bitmap", "cmdImporterBitmap"));
    cmdAnnuler_->setText(ImportCaption("Annuler", "cmdAnnuler"));
    Refresh();  // the captions that carry numbers
}

void ImportBitmapWindow::ShowCombo(QComboBox* combo, int value) {
    const QSignalBlocker guard(combo);
    combo->setCurrentIndex(value - 1);
}

void ImportBitmapWindow::Refresh() {
    if (Text1_->text().toStdString() != model_.Path()) Text1_->setText(Q(model_.Path()));
    const bool open = model_.FileOpen();
    lblLargeur_->setText(SizeText(ImportCaption("Largeur", "lblLargeur"), open, model_.Source().Width));
    lblHauteur_->setText(SizeText(ImportCaption("Hauteur", "lblHauteur"), open, model_.Source().Height));
    ShowCombo(cbbLargeur_, model_.TargetWidth());
    ShowCombo(cbbHauteur_, model_.TargetHeight());

    const ImportedBitmap& bitmap = model_.Bitmap();
    QString colours;
    if (bitmap.Width > 0)
        colours = SizeText(ImportCaption("Couleurs", "lblNombreCouleurs"), true, model_.ColourCount()) +
                  QStringLiteral(" - colormode %1").arg(bitmap.ColourModeIndex() * 10);
    lblNombreCouleurs_->setText(colours);

    const RasterColour ground = QColorRaster(palette().color(QPalette::Window));
    for (ImportView view : {ImportView::Source, ImportView::Bitmap})
        Picture2_[static_cast<int>(view)]->SetRaster(model_.ViewPicture(view, ground));
    picJour_->SetRaster(model_.MapPreview(false));
    picNuit_->SetRaster(model_.MapPreview(true));
    cmdConvertir_->setEnabled(open);
    cmdImporterBitmap_->setEnabled(model_.CanImport());
}

void ImportBitmapWindow::accept() {
    if (model_.Import()) QDialog::accept();
}

void ImportBitmapWindow::reject() {
    model_.Cancel();
    QDialog::reject();
}

std::optional<ImportedBitmap> ImportBitmapFromFile(QWidget* parent, UserPrompts& prompts) {
    ImportBitmapWindow window(prompts, parent);
    if (window.exec() != QDialog::Accepted) return std::nullopt;
    return window.Model().Result();
}

std::unique_ptr<ImportBitmapWindow> ImportBitmapWindowWithPicture(UserPrompts& prompts, const QString& picture) {
    auto window = std::make_unique<ImportBitmapWindow>(prompts);
    window->Model().SetPath(picture.toStdString());
    if (!picture.isEmpty()) window->Model().Open();
    window->Refresh();
    return window;
}

}  // namespace mirvane::app
