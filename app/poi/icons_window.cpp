#include "app/poi/icons_window.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "app/preview/pixel_picture_image.h"
#include "app/shell/editor_launch.h"
#include "models/shell/main_window_model.h"

namespace mirvane::app {

namespace {

constexpr int kEnlargementSide = 440;

QString IconsCaption(std::string_view defaultText, std::string_view key) {
    return QString::fromStdString(FormCaption("Icones", defaultText, key));
}

QPixmap Enlarged(const PixelPicture& picture, int zoom) {
    const QImage image = DayPictureImage(picture);
    if (image.isNull()) return {};
    return QPixmap::fromImage(image.scaled(image.size() * zoom, Qt::IgnoreAspectRatio, Qt::FastTransformation));
}

}  // namespace

SubIconThumbnail::SubIconThumbnail(QWidget* parent) : QLabel(parent) {
    setAlignment(Qt::AlignCenter);
    SetBordered(false);
}

void SubIconThumbnail::SetBordered(bool bordered) {
    // The border keeps its room when it is not drawn, so nothing moves on a click.
    setStyleSheet(bordered ? "border: 2px solid palette(highlight); padding: 2px;"
                           : "border: 2px solid transparent; padding: 2px;");
}

void SubIconThumbnail::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) emit Clicked();
    QLabel::mousePressEvent(event);
}

IconsWindow::IconsWindow(MainWindowModel& model, QWidget* parent)
    : QDialog(parent), model_(model), browser_(model.Doc(), model.Prompts(), SharedPoiClipboard()) {
    setObjectName("frmIcones");
    Check1_ = MakeNamed<QCheckBox>(this, "Check1");
    cmdModifier_ = MakeButton(this, "cmdModifier");
    cmdCopier_ = MakeButton(this, "cmdCopier");
    cmdFermer_ = MakeNamed<QPushButton>(this, "cmdFermer");
    cmdFermer_->setDefault(true);

    auto* top = new QHBoxLayout;
    top->addWidget(BuildList());
    top->addWidget(BuildEnlargement(), 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdModifier_);
    buttons->addWidget(cmdCopier_);
    buttons->addStretch();
    buttons->addWidget(cmdFermer_);
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(top);
    whole->addWidget(BuildThumbnails());
    whole->addWidget(Check1_);
    whole->addLayout(buttons);
    whole->setSizeConstraint(QLayout::SetFixedSize);

    connect(Check1_, &QCheckBox::toggled, this, [this](bool off) { browser_.AutoEnlargeOff = off; });
    connect(cmdCopier_, &QPushButton::clicked, this, [this] { browser_.Copy(); });
    connect(cmdModifier_, &QPushButton::clicked, this, &IconsWindow::EditSubIcon);
    connect(cmdFermer_, &QPushButton::clicked, this, &QDialog::reject);
    RetranslateUi();
    ShowGroups(0);
}

QWidget* IconsWindow::BuildList() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    Label1_ = MakeNamed<QLabel>(column, "Label1");
    lstvExtraPOI_ = MakeNamed<QTreeWidget>(column, "lstvExtraPOI");
    lstvExtraPOI_->setColumnCount(2);
    lstvExtraPOI_->setRootIsDecorated(false);
    lstvExtraPOI_->setFixedWidth(240);
    lstvExtraPOI_->header()->setStretchLastSection(true);
    layout->addWidget(Label1_);
    layout->addWidget(lstvExtraPOI_, 1);
    connect(lstvExtraPOI_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        browser_.SelectGroup(item ? lstvExtraPOI_->indexOfTopLevelItem(item) : -1);
        ShowSubIcons();
    });
    return column;
}

QWidget* IconsWindow::BuildEnlargement() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    Label2_ = MakeNamed<QLabel>(column, "Label2");
    enlargement_ = new QScrollArea(column);
    enlargement_->setFixedSize(kEnlargementSide, kEnlargementSide);
    enlargement_->setAlignment(Qt::AlignCenter);
    Apercu0_ = MakeNamed<QLabel>(enlargement_, "Apercu1(0)");
    Apercu0_->setAlignment(Qt::AlignCenter);
    enlargement_->setWidget(Apercu0_);
    enlargement_->setWidgetResizable(true);
    lblDetail_ = MakeNamed<QLabel>(column, "lblDetail");
    layout->addWidget(Label2_);
    layout->addWidget(enlargement_);
    layout->addWidget(lblDetail_);
    return column;
}

QWidget* IconsWindow::BuildThumbnails() {
    auto* box = new QWidget(this);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    Label5_ = MakeNamed<QLabel>(box, "Label5");
    Label3_ = MakeNamed<QLabel>(box, "Label3");
    Label3_->hide();  // the count, which Label5 already shows
    Label6_ = MakeNamed<QLabel>(box, "Label6");
    auto* row = new QHBoxLayout;
    for (int i = 0; i < ExtraPoiBrowserModel::kThumbnails; ++i) {
        cells_[i] = new QWidget(box);
        cells_[i]->setMinimumWidth(96);
        auto* cell = new QVBoxLayout(cells_[i]);
        cell->setContentsMargins(0, 0, 0, 0);
        thumbnails_[i] = new SubIconThumbnail(cells_[i]);
        thumbnails_[i]->setObjectName(QStringLiteral("Apercu1(%1)").arg(i + 1));
        sizes_[i] = MakeNamed<QLabel>(cells_[i], qPrintable(QStringLiteral("lbltaille(%1)").arg(i + 1)));
        sizes_[i]->setAlignment(Qt::AlignCenter);
        cell->addStretch();
        cell->addWidget(thumbnails_[i], 0, Qt::AlignCenter);
        cell->addWidget(sizes_[i]);
        row->addWidget(cells_[i]);
        connect(thumbnails_[i], &SubIconThumbnail::Clicked, this, [this, i] {
            browser_.ClickSubIcon(i);
            ShowEnlarged();
        });
    }
    row->addStretch();
    auto* heading = new QHBoxLayout;
    heading->addWidget(Label5_);
    heading->addWidget(Label3_);
    heading->addStretch();
    layout->addLayout(heading);
    layout->addLayout(row);
    layout->addWidget(Label6_);
    return box;
}

void IconsWindow::RetranslateUi() {
    setWindowTitle(IconsCaption("Icônes", "frmIconesCaption"));
    lstvExtraPOI_->setHeaderLabels({IconsCaption("Type", "Type"), IconsCaption("Sous-type", "SubType")});
    Label6_->setText(IconsCaption("Cliquer sur une sous-icône pour l'agrandir", "lblAgrandir"));
    Check1_->setText(IconsCaption("Désactiver l'affichage automatique de l'icône agrandie", "chkAuto"));
    cmdModifier_->setText(IconsCaption("Modifier", "cmdModifier"));
    cmdModifier_->setToolTip(IconsCaption(
        "Ouvrir l'éditeur de POI pour modifier le POI ou le convertir en POI standard", "cmdModifierTip"));
    cmdCopier_->setText(IconsCaption("Copier", "cmdCopier"));
    cmdCopier_->setToolTip(IconsCaption("Copier le bitmap dans le presse-papier de Mirvane pour le coller ensuite "
                                        "dans un autre extraPOI ou un POI standard",
                                        "cmdCopierTip"));
    cmdFermer_->setText(IconsCaption("Fermer", "cmdFermer"));
    Label1_->setText(Q(browser_.ListHeading()));
    Label5_->setText(Q(browser_.SubIconsHeading()));
    Label2_->setText(Q(browser_.EnlargedHeading()));
}

void IconsWindow::ShowGroups(int group) {
    {
        const QSignalBlocker keep(lstvExtraPOI_);
        lstvExtraPOI_->clear();
        for (const ExtraPoiRecord& g : browser_.Groups())
            new QTreeWidgetItem(lstvExtraPOI_, {"0x" + Q(g.Type), "0x" + Q(g.SubType)});
    }
    Label1_->setText(Q(browser_.ListHeading()));
    const int count = lstvExtraPOI_->topLevelItemCount();
    if (count > 0) lstvExtraPOI_->setCurrentItem(lstvExtraPOI_->topLevelItem(std::clamp(group, 0, count - 1)));
    else ShowSubIcons();
}

void IconsWindow::ShowSubIcons() {
    const std::vector<SubIcon>& icons = browser_.SubIcons();
    for (int i = 0; i < ExtraPoiBrowserModel::kThumbnails; ++i) {
        const bool shown = i < static_cast<int>(icons.size());
        cells_[i]->setVisible(shown);
        thumbnails_[i]->clear();
        sizes_[i]->clear();
        if (!shown) continue;
        thumbnails_[i]->setPixmap(Enlarged(browser_.Picture(i), 1));
        thumbnails_[i]->setToolTip(Q(browser_.DetailText(i)));
        sizes_[i]->setText(Q(browser_.SizeText(i)));
    }
    Label3_->setText(Q(browser_.SubIconCountText()));
    Label5_->setText(Q(browser_.SubIconsHeading()));
    ShowEnlarged();
}

void IconsWindow::ShowEnlarged() {
    const std::optional<int> enlarged = browser_.Enlarged();
    for (int i = 0; i < ExtraPoiBrowserModel::kThumbnails; ++i) thumbnails_[i]->SetBordered(browser_.Bordered() == i);
    Apercu0_->setPixmap(enlarged ? Enlarged(browser_.Picture(*enlarged), browser_.Zoom()) : QPixmap());
    Apercu0_->setToolTip(enlarged ? Q(browser_.DetailText(*enlarged)) : QString());
    lblDetail_->setText(Apercu0_->toolTip());
    Label2_->setText(Q(browser_.EnlargedHeading()));
    cmdModifier_->setEnabled(browser_.ActionsEnabled());
    cmdCopier_->setEnabled(browser_.ActionsEnabled());
}

void IconsWindow::EditSubIcon() {
    const std::optional<int> group = browser_.SelectedGroup();
    const std::optional<int> subIcon = browser_.ActionSubIcon();
    if (!group || !subIcon || !browser_.ActionsEnabled()) return;
    OpenExtraPoiEditor(model_, this, *group, *subIcon);
    // The editor may have changed the bytes, the offsets, even the groups.
    browser_.Refresh();
    ShowGroups(*group);
}

void ShowIconsWindow(MainWindowModel& model, QWidget* parent) {
    IconsWindow window(model, parent);
    window.exec();
}

std::unique_ptr<QWidget> IconsWindowForScreenshot(MainWindowModel& model) {
    return std::make_unique<IconsWindow>(model);
}

}  // namespace mirvane::app
