#include "app/mapsets/mapsets_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/common/texts.h"
#include "models/mapsets/clear_cache_model.h"
#include "models/shell/languages_model.h"
#include "models/shell/main_window_model.h"

namespace mirvane::app {

namespace {

enum Column { kName, kFid, kPid, kTyp, kSource, kFolder, kColumns };

QString MapsetsCaption(std::string_view fallback, std::string_view key) {
    return QString::fromStdString(FormCaption("Mapsets", fallback, key));
}

QString MapsetsTip(std::string_view fallback, std::string_view key) {
    return QString::fromStdString(LookupText("Mapsets", fallback, key));
}

QPushButton* MakeButton(QWidget* parent, const char* name) {
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    return button;
}

}  // namespace

MapsetsWindow::MapsetsWindow(MapsetEnvironment environment, UserPrompts& prompts, InstallTypModel::TypOpener openTyp,
                             bool openOnly, QWidget* parent)
    : QDialog(parent), environment_(std::move(environment)), model_(environment_, prompts, std::move(openTyp)) {
    setObjectName("frmMapsets");
    lstvMapsets_ = new QTreeWidget(this);
    lstvMapsets_->setObjectName("lstvMapsets");
    lstvMapsets_->setColumnCount(kColumns);
    lstvMapsets_->setRootIsDecorated(false);
    lstvMapsets_->setUniformRowHeights(true);
    lstvMapsets_->setAlternatingRowColors(true);
    // Long paths scroll rather than being cut.
    lstvMapsets_->header()->setStretchLastSection(false);
    cmdOK_ = MakeButton(this, "cmdOK");
    cmdSupprimer_ = MakeButton(this, "cmdSupprimer");
    cmdOuvrirTyp_ = MakeButton(this, "cmdOuvrirTyp");
    cmdEffacerCache_ = MakeButton(this, "cmdEffacerCache");
    cmdAnnuler_ = MakeButton(this, "cmdAnnuler");
    for (QPushButton* button : {cmdOK_, cmdSupprimer_, cmdEffacerCache_}) button->setVisible(!openOnly);
    cmdOuvrirTyp_->setDefault(openOnly);

    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {cmdOK_, cmdSupprimer_, cmdOuvrirTyp_, cmdEffacerCache_}) buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(cmdAnnuler_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstvMapsets_, 1);
    layout->addLayout(buttons);
    resize(980, 320);

    connect(cmdOK_, &QPushButton::clicked, this, [this] { RunOnSelection(&InstallTypModel::Associate); });
    connect(cmdSupprimer_, &QPushButton::clicked, this, [this] { RunOnSelection(&InstallTypModel::Dissociate); });
    connect(cmdEffacerCache_, &QPushButton::clicked, this, [this] { RunOnSelection(&InstallTypModel::ClearCaches); });
    connect(cmdOuvrirTyp_, &QPushButton::clicked, this, &MapsetsWindow::OpenTyp);
    connect(lstvMapsets_, &QTreeWidget::itemDoubleClicked, this, &MapsetsWindow::OpenTyp);
    connect(cmdAnnuler_, &QPushButton::clicked, this, &QDialog::reject);

    RetranslateUi();
    model_.List();
    FillList();
}

void MapsetsWindow::RetranslateUi() {
    setWindowTitle(MapsetsCaption("Sélectionner un Mapset", "lblTitre"));
    lstvMapsets_->setHeaderLabels({
        MapsetsCaption("Mapsource Name", "entete1"),
        MapsetsCaption("FID", "entete2"),
        MapsetsCaption("PID", "entete3"),
        MapsetsCaption("Emplacement du fichier Typ", "entete4"),
        MapsetsCaption("Registre:  HKLM\\SOFTWARE\\Garmin\\", "entete5"),
        MapsetsCaption("Dossier d'installation", "entete6"),
    });
    cmdOK_->setText(MapsetsCaption("Choisir un fichier typ", "cmdOKChoix"));
    cmdOK_->setToolTip(MapsetsTip("Associer un fichier TYP au mapset sélectionné", "cmdOKTip"));
    cmdSupprimer_->setText(MapsetsCaption("Supprimer", "cmdSupprimer"));
    cmdSupprimer_->setToolTip(
        MapsetsTip("Ne plus associer de fichier TYP au mapset sélectionné", "cmdSupprimerTip"));
    cmdOuvrirTyp_->setText(MapsetsCaption("Ouvrir le typ", "cmdOuvrirTYP"));
    cmdOuvrirTyp_->setToolTip(MapsetsTip(
        "Ouvrir dans la fenêtre principale de Mirvane le fichier TYP associé au mapset sélectionné", "cmdOuvrirTYPTip"));
    cmdEffacerCache_->setText(MapsetsCaption("Effacer le cache", "cmdEffacerCache"));
    cmdEffacerCache_->setToolTip(MapsetsTip("Effacer le cache de Mapsource", "cmdEffacerCacheTip"));
    cmdAnnuler_->setText(MapsetsCaption("Quitter", "cmdQuitter"));
    // The style's own margins leave a caption touching the button's edge.
    for (QPushButton* button : {cmdOK_, cmdSupprimer_, cmdOuvrirTyp_, cmdEffacerCache_, cmdAnnuler_})
        button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) + 24);
    FitColumns();
}

void MapsetsWindow::FitColumns() {
    int total = 0;
    for (int column = 0; column < kColumns; ++column) {
        lstvMapsets_->resizeColumnToContents(column);
        lstvMapsets_->setColumnWidth(column, lstvMapsets_->columnWidth(column) + 12);  // room between columns
        total += lstvMapsets_->columnWidth(column);
    }
    // Wide enough for every column when the screen allows it.
    const QScreen* shown = screen();
    const int available = shown ? shown->availableGeometry().width() - 40 : total;
    const int wanted = std::min(total + 40, available);
    if (wanted > width()) resize(wanted, height());
}

void MapsetsWindow::FillList() {
    lstvMapsets_->clear();
    for (const MapsetRow& row : model_.Rows()) {
        auto* item = new QTreeWidgetItem(lstvMapsets_);
        const std::string texts[kColumns] = {row.Name, row.Fid, row.Pid, row.Typ, row.Source, row.Folder};
        for (int column = 0; column < kColumns; ++column) {
            item->setText(column, Q(texts[column]));
            item->setToolTip(column, Q(texts[column]));
        }
    }
    FitColumns();
    lstvMapsets_->setCurrentItem(lstvMapsets_->topLevelItem(model_.SelectedRow()));
}

void MapsetsWindow::RunOnSelection(void (InstallTypModel::*command)()) {
    model_.SelectRow(lstvMapsets_->indexOfTopLevelItem(lstvMapsets_->currentItem()));
    (model_.*command)();
    FillList();
}

void MapsetsWindow::OpenTyp() {
    model_.SelectRow(lstvMapsets_->indexOfTopLevelItem(lstvMapsets_->currentItem()));
    if (model_.OpenAssociatedTyp()) accept();
}

void ShowMapsetsWindow(QWidget* parent, MainWindowModel& model, bool openOnly) {
    auto* window = new MapsetsWindow(
        LocalMapsetEnvironment(), model.Prompts(), [&model](const std::string& path) { return model.OpenTyp(path); },
        openOnly, parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->open();
}

void ClearMapCaches(UserPrompts& prompts) { ClearCacheModel(LocalMapsetEnvironment().CacheFolders, prompts).Run(); }

}  // namespace mirvane::app
