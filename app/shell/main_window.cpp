#include "app/shell/main_window.h"

#include <QAction>
#include <algorithm>
#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

#include "app/colour/colour_identifier.h"
#include "app/text/compiler_window.h"
#include "document/identity.h"
#include "document/presentation.h"
#include "models/textpane/text_pane_session.h"
#include "models/preview/preview_pane.h"
#include "app/shell/labels_window.h"
#include "app/lang/change_language.h"
#include "app/mapsets/mapsets_window.h"
#include "app/special/special_typ_window.h"
#include "app/preview/icons_view.h"
#include "app/preview/preview_frame.h"
#include "app/common/texts.h"
#include "app/text/text_pane.h"

namespace mirvane::app {

namespace {

// Captions are set by RetranslateUi.
QAction* MakeAction(QWidget* owner, const char* name, const QKeySequence& keys = {}) {
    auto* action = new QAction(owner);
    action->setObjectName(name);
    if (!keys.isEmpty()) action->setShortcut(keys);
    return action;
}

QPushButton* MakeButton(QWidget* parent, const QString& name) {
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    return button;
}

// A frame holding one list in the fixed font.
QGroupBox* MakeListFrame(QWidget* parent, const char* frameName, const char* listName, QListWidget*& list) {
    auto* frame = new QGroupBox(parent);
    frame->setObjectName(frameName);
    list = new QListWidget(frame);
    list->setObjectName(listName);
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return frame;
}

void FillList(QListWidget* list, const std::vector<std::string>& rows) {
    const int current = list->currentRow();
    list->clear();
    for (const auto& row : rows) list->addItem(Q(row));
    if (current >= 0 && list->count() > 0) list->setCurrentRow(std::min(current, list->count() - 1));
}

bool IsOpenableFile(const QString& path, bool textRoute) {
    return path.endsWith(".typ", Qt::CaseInsensitive) || (textRoute && path.endsWith(".txt", Qt::CaseInsensitive));
}

}  // namespace

MainWindow::MainWindow(MainWindowModel& model, QWidget* parent) : QMainWindow(parent), model_(model) {
    setObjectName("frmMain");
    setAcceptDrops(true);
    BuildMenus();

    auto* lists = new QSplitter(Qt::Vertical);
    lists->setObjectName("splitObjets");
    fraPolygone_ = BuildObjectFrame("fraPolygone", "ListPolygone", "Polygone", ListPolygone_, cmdSupprimerPolygone_,
                                    ObjectKind::Polygon);
    frapolyline_ = BuildObjectFrame("frapolyline", "ListPolyline", "Polyline", ListPolyline_, cmdSupprimerPolyline_,
                                    ObjectKind::Polyline);
    fraPOI_ = BuildObjectFrame("fraPOI", "ListPOI", "POI", ListPOI_, cmdSupprimerPOI_, ObjectKind::Poi);
    lists->addWidget(fraPolygone_);
    lists->addWidget(frapolyline_);
    lists->addWidget(fraPOI_);

    auto* split = new QSplitter(Qt::Horizontal);
    split->setObjectName("splitPrincipal");
    split->addWidget(BuildHeaderPanel());
    split->addWidget(lists);
    split->addWidget(BuildPreviewColumn());
    split->setStretchFactor(0, 0);
    split->setStretchFactor(1, 1);
    split->setStretchFactor(2, 3);
    split->setSizes({300, 300, 680});
    split->setChildrenCollapsible(false);
    auto* central = new QWidget;
    auto* margins = new QVBoxLayout(central);
    margins->setContentsMargins(6, 4, 6, 2);
    margins->addWidget(split);
    setCentralWidget(central);

    // After the edit menu of the text pane.
    mnuLangues_ = menuBar()->addMenu(QString());
    mnuLangues_->setObjectName("mnuLangues");
    mnuChoixLangue_ = MakeAction(this, "mnuChoixLangue");
    mnuLangues_->addAction(mnuChoixLangue_);
    connect(mnuChoixLangue_, &QAction::triggered, this, [this] { OpenLanguagesWindow(*this); });
    statusBar()->setObjectName("barreEtat");
    resize(1280, 800);

    changesListener_ = model_.Changes().Listen([this](ChangeSet what) { Refresh(what); });
    RetranslateUi();
    ListPolygone_->setFocus();
}

MainWindow::~MainWindow() { model_.Changes().StopListening(changesListener_); }

void MainWindow::RetranslateUi() {
    mnuFichier_->setTitle(MainCaption("&Fichier", "mnuFichier"));
    mnuNouveau_->setText(MainCaption("&Nouveau", "mnuNouveau"));
    mnuOuvrirTYP_->setText(MainCaption("&Ouvrir un TYP...", "mnuOuvrirTYP"));
    mnuouvrirtxt_->setText(MainCaption("Ouvrir un fichier &texte...", "mnuouvrirtxt"));
    mnuOuvrirTypMapset_->setText(MainCaption("Ouvrir le TYP d'un &mapset...", "mnuOuvrirTypMapset"));
    mnufermer_->setText(MainCaption("&Fermer", "mnufermer"));
    mnuEnregistrerTyp_->setText(MainCaption("&Enregistrer le TYP...", "mnuEnregistrerTyp"));
    mnuEnregistrerTxt_->setText(MainCaption("Enregistrer le te&xte...", "mnuEnregistrerTxt"));
    recentMenu_->setTitle(MainCaption("Fichiers &récents", "mnuRecents"));
    mnuquitter_->setText(MainCaption("&Quitter", "mnuquitter"));
    mnuOutils_->setTitle(MainCaption("&Outils", "mnuOutils"));
    mnuSauvegardeAuto_->setText(MainCaption("Sauvegarde &automatique", "mnuSauvegardeAuto"));
    mnuTypSpeciaux_->setText(MainCaption("TYP &spéciaux...", "mnuTypSpeciaux"));
    mnuInstallerTyp_->setText(MainCaption("&Installer un TYP dans un mapset...", "mnuInstallerTYP"));
    mnuEffacerCache_->setText(MainCaption("Effacer les &caches des cartes", "mnuEffacerCache"));
    mnuCouleurIdentifieur_->setText(MainCaption("&Identifieur de couleur et de type...", "mnuCouleurIdentifieur"));
    mnuCompiler_->setText(MainCaption("Compiler un fichier txt avec cGPSmapper...", "mnuCompiler"));
    mnuLangues_->setTitle(MainCaption("&Langues", "mnuLangues"));
    mnuChoixLangue_->setText(MainCaption("Choisir la langue...", "mnuChoixLangue"));

    fraEntete_->setTitle(MainCaption("Fichier TYP", "fraEntete"));
    lblDate_->setText(MainCaption("Date :", "lblDate"));
    lblTaille_->setText(MainCaption("Longueur :", "lblTaille"));
    lblFID_->setText(MainCaption("FID :", "lblFID"));
    lblProductCode_->setText(MainCaption("Product Code :", "lblProductCode"));
    lblCodepage_->setText(MainCaption("Code page :", "lblCodepage"));
    lblHeadersize_->setText(MainCaption("Taille de l'entête :", "lblHeadersize"));
    cmdCreerTYP_->setText(MainCaption("Créer le TYP", "cmdCreerTYP"));
    cmdDraworder_->setText(MainCaption("Draw order...", "cmdDraworder"));
    cmdDraworder_->setToolTip(MainCaption("", "cmdDraworderTip"));
    cmdIcones_->setText(MainCaption("Icônes", "cmdIcones"));
    cmdLabels_->setText(MainCaption("Labels...", "cmdLabels"));

    for (QPushButton* add : {cmdAddPolygone_, cmdAddPolyline_, cmdAddPOI_})
        add->setText(MainCaption("Ajouter", "cmdAjouter"));
    for (QPushButton* edit : {cmdModifierPolygone_, cmdModifierPolyline_, cmdModifierPOI_})
        edit->setText(MainCaption("Modifier", "cmdModifier"));
    for (ObjectKind kind : kObjectKinds) ButtonsOf(kind).Delete->setText(MainCaption("Supprimer", "cmdSupprimer"));
    cmdAddPolygone_->setToolTip(MainCaption("", "cmdAddPolygoneTip"));
    cmdModifierPolygone_->setToolTip(MainCaption("", "cmdModifierPolygoneTip"));
    cmdSupprimerPolygone_->setToolTip(MainCaption("", "cmdSupprimerPolygoneTip"));
    cmdAddPolyline_->setToolTip(MainCaption("", "cmdAddPolylineTip"));
    cmdModifierPolyline_->setToolTip(MainCaption("", "cmdModifierPolylineTip"));
    cmdSupprimerPolyline_->setToolTip(MainCaption("", "cmdSupprimerPolylineTip"));
    cmdAddPOI_->setToolTip(MainCaption("", "cmdAddPOITip"));
    cmdModifierPOI_->setToolTip(MainCaption("", "cmdModifierPOITip"));
    cmdSupprimerPOI_->setToolTip(MainCaption("", "cmdSupprimerPOITip"));
    ListPolygone_->setToolTip(MainCaption("", "lstPolygoneTip"));
    ListPolyline_->setToolTip(MainCaption("", "lstPolylineTip"));
    ListPOI_->setToolTip(MainCaption("", "lstPOITip"));

    cmdvoirtxt_->setText(MainCaption("Voir le texte", "cmdVoirTxt"));
    cmdvoirtxt_->setToolTip(MainCaption("", "cmdVoirTip"));
    cmdEnregistrer_->setText(MainCaption("Enregistrer le texte", "cmdEnregistrer"));
    cmdEnregistrer_->setToolTip(MainCaption("", "cmdEnregistrerTip"));
    textPane_->RetranslateUi();
    fraApercu_->RetranslateUi();
    fraVisualization_->RetranslateUi();
    Refresh();  // the counted frame captions and the texts the model builds
}

void MainWindow::BuildMenus() {
    mnuFichier_ = menuBar()->addMenu(QString());
    mnuFichier_->setObjectName("mnuFichier");
    QMenu* file = mnuFichier_;
    mnuNouveau_ = MakeAction(this, "mnuNouveau", QKeySequence::New);
    mnuOuvrirTYP_ = MakeAction(this, "mnuOuvrirTYP", QKeySequence::Open);
    mnuouvrirtxt_ = MakeAction(this, "mnuouvrirtxt",
                               QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O));
    mnuOuvrirTypMapset_ = MakeAction(this, "mnuOuvrirTypMapset");
    mnufermer_ = MakeAction(this, "mnufermer", QKeySequence::Close);
    mnuEnregistrerTyp_ = MakeAction(this, "mnuEnregistrerTyp",
                                    QKeySequence::Save);
    mnuEnregistrerTxt_ = MakeAction(this, "mnuEnregistrerTxt",
                                    QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    mnuquitter_ = MakeAction(this, "mnuquitter", QKeySequence(Qt::CTRL | Qt::Key_Q));
    file->addActions({mnuNouveau_, mnuOuvrirTYP_, mnuouvrirtxt_, mnuOuvrirTypMapset_});
    file->addSeparator();
    file->addActions({mnufermer_, mnuEnregistrerTyp_, mnuEnregistrerTxt_});
    file->addSeparator();
    recentMenu_ = file->addMenu(QString());
    recentMenu_->setObjectName("mnuRecents");
    file->addSeparator();
    file->addAction(mnuquitter_);

    mnuOutils_ = menuBar()->addMenu(QString());
    mnuOutils_->setObjectName("mnuOutils");
    QMenu* tools = mnuOutils_;
    mnuSauvegardeAuto_ = MakeAction(this, "mnuSauvegardeAuto");
    mnuSauvegardeAuto_->setCheckable(true);
    mnuSauvegardeAuto_->setChecked(true);
    mnuTypSpeciaux_ = MakeAction(this, "mnuTypSpeciaux");
    mnuInstallerTyp_ = MakeAction(this, "mnuInstallerTyp");
    mnuEffacerCache_ = MakeAction(this, "mnuEffacerCache");
    tools->addActions({mnuSauvegardeAuto_, mnuTypSpeciaux_, mnuInstallerTyp_, mnuEffacerCache_});
    mnuCouleurIdentifieur_ = MakeAction(this, "mnuCouleurIdentifieur");
    tools->addAction(mnuCouleurIdentifieur_);
    connect(mnuCouleurIdentifieur_, &QAction::triggered, this, [this] { ShowColourIdentifier(this); });
    mnuCompiler_ = MakeAction(this, "mnuCompiler");
    tools->addAction(mnuCompiler_);
    connect(mnuCompiler_, &QAction::triggered, this, [this] {
        auto* compiler = new CompilerWindow(model_.Settings(), model_.Prompts(), this);
        compiler->setAttribute(Qt::WA_DeleteOnClose);
        compiler->open();
    });

    connect(mnuNouveau_, &QAction::triggered, this, [this] {
        if (CommitIdentityEdits()) model_.New();
    });
    connect(mnuOuvrirTYP_, &QAction::triggered, this, [this] {
        if (!CommitIdentityEdits()) return;
        model_.OpenTyp();
        cmdAppliquerModif_->hide();
    });
    connect(mnuouvrirtxt_, &QAction::triggered, this, [this] {
        if (CommitIdentityEdits()) model_.OpenText();
    });
    connect(mnufermer_, &QAction::triggered, this, [this] {
        if (CommitIdentityEdits()) model_.Close();
    });
    connect(mnuEnregistrerTyp_, &QAction::triggered, this, [this] {
        if (CommitIdentityEdits()) model_.SaveTyp();
    });
    connect(mnuquitter_, &QAction::triggered, this, &QWidget::close);
    connect(mnuOuvrirTypMapset_, &QAction::triggered, this, [this] {
        if (CommitIdentityEdits()) ShowMapsetsWindow(this, model_, true);
    });
    connect(mnuInstallerTyp_, &QAction::triggered, this, [this] { ShowMapsetsWindow(this, model_, false); });
    connect(mnuTypSpeciaux_, &QAction::triggered, this, [this] { ShowSpecialTypWindow(this, model_); });
    connect(mnuEffacerCache_, &QAction::triggered, this, [this] { ClearMapCaches(model_.Prompts()); });
}

QWidget* MainWindow::BuildHeaderPanel() {
    auto* panel = new QWidget;
    panel->setObjectName("panneauEntete");
    fraEntete_ = new QGroupBox(panel);
    fraEntete_->setObjectName("fraEntete");
    QGroupBox* header = fraEntete_;

    lblNomTyp_ = new QLabel(header);
    lblNomTyp_->setObjectName("lblNomTyp");
    lblNomTyp_->setWordWrap(true);
    lblNomTyp_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblNomTyp_->setMinimumHeight(lblNomTyp_->fontMetrics().lineSpacing() * 2);
    lblDateCreation_ = new QLabel(header);
    lblDateCreation_->setObjectName("lblDateCreation");
    lblLongueur_ = new QLabel(header);
    lblLongueur_->setObjectName("lblLongueur");

    auto* digits = new QRegularExpressionValidator(QRegularExpression("[0-9]*"), this);
    txtFID_ = new QLineEdit(header);
    txtFID_->setObjectName("txtFID");
    txtFID_->setValidator(digits);  // keys other than digits are dropped
    txtProductCode_ = new QLineEdit(header);
    txtProductCode_->setObjectName("txtProductCode");
    txtProductCode_->setValidator(digits);
    cbbCodepage_ = new QComboBox(header);
    cbbCodepage_->setObjectName("cbbCodepage");
    for (int page : kListedCodePages) cbbCodepage_->addItem(QString::number(page));
    cbbHeadersize_ = new QComboBox(header);
    cbbHeadersize_->setObjectName("cbbHeadersize");

    auto* form = new QFormLayout(header);
    form->addRow(lblNomTyp_);
    auto fieldLabel = [header](const char* name) {
        auto* label = new QLabel(header);
        label->setObjectName(name);
        return label;
    };
    lblDate_ = fieldLabel("lblDate");
    lblTaille_ = fieldLabel("lblTaille");
    lblFID_ = fieldLabel("lblFID");
    lblProductCode_ = fieldLabel("lblProductCode");
    lblCodepage_ = fieldLabel("lblCodepage");
    lblHeadersize_ = fieldLabel("lblHeadersize");
    form->addRow(lblDate_, lblDateCreation_);
    form->addRow(lblTaille_, lblLongueur_);
    form->addRow(lblFID_, txtFID_);
    form->addRow(lblProductCode_, txtProductCode_);
    form->addRow(lblCodepage_, cbbCodepage_);
    form->addRow(lblHeadersize_, cbbHeadersize_);

    cmdCreerTYP_ = MakeButton(header, "cmdCreerTYP");
    cmdDraworder_ = MakeButton(header, "cmdDraworder");
    cmdIcones_ = MakeButton(header, "cmdIcones");
    cmdLabels_ = MakeButton(header, "cmdLabels");
    connect(cmdDraworder_, &QPushButton::clicked, this, [this] { RunEditor(EditorWindow::DrawOrder, std::nullopt); });
    connect(cmdIcones_, &QPushButton::clicked, this, [this] { RunEditor(EditorWindow::Icons, std::nullopt); });
    connect(cmdLabels_, &QPushButton::clicked, this, [this] {
        auto* labels = new LabelsWindow(model_.Doc(), this);
        labels->setAttribute(Qt::WA_DeleteOnClose);
        labels->open();
    });
    auto* tools = new QHBoxLayout;
    tools->addWidget(cmdDraworder_);
    tools->addWidget(cmdIcones_);
    tools->addWidget(cmdLabels_);
    form->addRow(tools);
    form->addRow(cmdCreerTYP_);

    fraDraworder_ = MakeListFrame(panel, "fraDraworder", "ListDraworder", ListDraworder_);
    (new QVBoxLayout(fraDraworder_))->addWidget(ListDraworder_);
    fraExtraPOI_ = MakeListFrame(panel, "fraExtraPOI", "ListExtraPOI", ListExtraPOI_);
    (new QVBoxLayout(fraExtraPOI_))->addWidget(ListExtraPOI_);

    auto* lower = new QSplitter(Qt::Vertical, panel);
    lower->addWidget(fraDraworder_);
    lower->addWidget(fraExtraPOI_);
    lower->setSizes({300, 150});

    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(header);
    layout->addWidget(lower, 1);
    panel->setMinimumWidth(260);

    connect(txtFID_, &QLineEdit::editingFinished, this, [this] { FinishIdentityField(txtFID_, true); });
    connect(txtProductCode_, &QLineEdit::editingFinished, this,
            [this] { FinishIdentityField(txtProductCode_, false); });
    connect(cbbCodepage_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (!refreshing_) model_.SetCodePageIndex(index);
    });
    connect(cbbHeadersize_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (!refreshing_) model_.SetHeaderSizeIndex(index);
    });
    connect(cmdCreerTYP_, &QPushButton::clicked, this, [this] {
        if (CommitIdentityEdits()) model_.SaveTyp();
    });
    return panel;
}

QGroupBox* MainWindow::BuildObjectFrame(const char* frameName, const char* listName, const char* kindWord,
                                        QListWidget*& list, QPushButton*& remove, ObjectKind kind) {
    auto* frame = MakeListFrame(nullptr, frameName, listName, list);
    const QString word = kindWord;
    auto* add = MakeButton(frame, "cmdAdd" + word);
    auto* edit = MakeButton(frame, "cmdModifier" + word);
    remove = MakeButton(frame, "cmdSupprimer" + word);
    if (kind == ObjectKind::Polygon) cmdAddPolygone_ = add, cmdModifierPolygone_ = edit;
    if (kind == ObjectKind::Polyline) cmdAddPolyline_ = add, cmdModifierPolyline_ = edit;
    if (kind == ObjectKind::Poi) cmdAddPOI_ = add, cmdModifierPOI_ = edit;
    connect(add, &QPushButton::clicked, this, [this, kind] { RunEditor(EditorOf(kind), std::nullopt); });
    connect(edit, &QPushButton::clicked, this, [this, kind] { EditSelected(kind); });
    connect(remove, &QPushButton::clicked, this, [this, kind] { DeleteSelected(kind); });
    // Picking a row shows that object's text; so do the arrow keys (eventFilter).
    connect(list, &QListWidget::itemClicked, this, [this, kind, list] { PickObject(kind, list->currentRow()); });
    connect(list, &QListWidget::itemDoubleClicked, this, [this, kind] { EditSelected(kind); });
    list->installEventFilter(this);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(edit);
    buttons->addWidget(remove);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(list, 1);
    layout->addLayout(buttons);
    return frame;
}

QWidget* MainWindow::BuildTextPanel() {
    auto* panel = new QWidget;
    panel->setObjectName("panneauTexte");
    BoxVisualisation_ = new QPlainTextEdit(panel);
    BoxVisualisation_->setObjectName("BoxVisualisation");
    BoxVisualisation_->setReadOnly(true);  // editable once the text can be applied
    BoxVisualisation_->setLineWrapMode(QPlainTextEdit::NoWrap);
    BoxVisualisation_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    cmdvoirtxt_ = MakeButton(panel, "cmdvoirtxt");
    cmdEnregistrer_ = MakeButton(panel, "cmdEnregistrer");
    cmdAppliquerModif_ = MakeButton(panel, "cmdAppliquerModif");
    cmdAppliquerModif_->hide();
    textPane_ = new TextPane(*this, model_, BoxVisualisation_, cmdAppliquerModif_, cmdEnregistrer_);
    connect(cmdvoirtxt_, &QPushButton::clicked, this, [this] {
        model_.Select(std::nullopt);
        RefreshTextPane();
        fraApercu_->HideLabelColours();
    });

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdvoirtxt_);
    buttons->addWidget(cmdEnregistrer_);
    buttons->addWidget(textPane_->SearchButton());
    buttons->addStretch();
    buttons->addWidget(cmdAppliquerModif_);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(BoxVisualisation_, 1);
    layout->addLayout(buttons);
    return panel;
}

QWidget* MainWindow::BuildPreviewColumn() {
    auto* column = new QSplitter(Qt::Vertical);
    column->setObjectName("splitApercu");
    fraApercu_ = new PreviewFrame;
    fraVisualization_ = new IconsFrame;
    column->addWidget(fraApercu_);
    column->addWidget(fraVisualization_);
    column->addWidget(BuildTextPanel());
    column->setStretchFactor(1, 2);
    column->setStretchFactor(2, 1);
    column->setChildrenCollapsible(false);
    connect(fraApercu_, &PreviewFrame::VisualisationClicked, this, [this, column] {
        fraVisualization_->Toggle(model_.Doc(), fraApercu_->Background());
        // The icons take two thirds of what the preview leaves.
        const int rest = std::max(0, column->height() - fraApercu_->sizeHint().height());
        if (fraVisualization_->isVisible()) column->setSizes({fraApercu_->sizeHint().height(), rest * 2 / 3, rest / 3});
    });
    connect(fraApercu_, &PreviewFrame::BackgroundChanged, this,
            [this] { fraVisualization_->Rebuild(model_.Doc(), fraApercu_->Background()); });
    connect(fraVisualization_, &IconsFrame::IconClicked, this, [this](ObjectRef ref) {
        PickObject(ref.Kind, ref.Row);
    });
    return column;
}

void MainWindow::PickObject(ObjectKind kind, int row) {
    // A click on the row already selected shows its text again, after "Voir le texte" say.
    if (model_.Selection() == ObjectRef{kind, row}) ShowSelection();
    else model_.Select(ObjectRef{kind, row});
}

void MainWindow::ShowSelection() {
    const bool wasRefreshing = refreshing_;
    refreshing_ = true;
    const std::optional<ObjectRef> selected = model_.Selection();
    if (selected) {
        QListWidget* list = ListOf(selected->Kind);
        list->setCurrentRow(selected->Row);
        list->scrollToItem(list->currentItem());
    }
    RefreshTextPane();
    RefreshPreview();
    if (selected) fraVisualization_->ShowIcon(*selected);
    refreshing_ = wasRefreshing;
}

void MainWindow::SetListingFunction(ListingFunction listing, ObjectListingFunction objectListing) {
    listing_ = std::move(listing);
    objectListing_ = std::move(objectListing);
    Refresh();
}

void MainWindow::SetAutoSaveChecked(bool checked) { mnuSauvegardeAuto_->setChecked(checked); }

void MainWindow::Refresh(ChangeSet what) {
    const bool wasRefreshing = refreshing_;
    refreshing_ = true;
    if (what.Has(Change::File) || what.Has(Change::Identity)) {
        setWindowTitle(Q(model_.Title()));
        lblNomTyp_->setText(Q(model_.NameCaption()));
        lblDateCreation_->setText(Q(model_.DateText()));
        lblLongueur_->setText(Q(model_.LengthText()));
        RefreshIdentity();
        RefreshEnables();
    }
    RefreshLists(what);
    if (what.Has(Change::Settings) || what.Has(Change::File)) RefreshRecentMenu();
    // The listing and the icons show every record and the header's code page.
    if (what.HasRecords() || what.Has(Change::File) || what.Has(Change::Identity) || what.Has(Change::DrawOrder))
        fraVisualization_->Rebuild(model_.Doc(), fraApercu_->Background());
    if (!(what == ChangeSet(Change::Settings))) ShowSelection();
    refreshing_ = wasRefreshing;
}

void MainWindow::RefreshPreview() {
    // The preview follows the object whose text the pane shows.
    if (const auto selected = model_.Selection())
        fraApercu_->ShowObject(model_.Doc(), *selected);
    else fraApercu_->Reset();
}

void MainWindow::RefreshLists(ChangeSet what) {
    const Document& doc = model_.Doc();
    if (what.Has(Change::Polygons)) FillList(ListPolygone_, PolygonListRows(doc));
    if (what.Has(Change::Polylines)) FillList(ListPolyline_, PolylineListRows(doc));
    if (what.Has(Change::Pois)) FillList(ListPOI_, PoiListRows(doc));
    if (what.Has(Change::File)) FillList(ListExtraPOI_, ExtraPoiListRows(doc));
    if (what.Has(Change::DrawOrder)) FillList(ListDraworder_, model_.DrawOrderRows());
    fraPolygone_->setTitle(Q(model_.PolygonCaption()));
    frapolyline_->setTitle(Q(model_.PolylineCaption()));
    fraPOI_->setTitle(Q(model_.PoiCaption()));
    fraExtraPOI_->setTitle(Q(model_.ExtraPoiCaption()));
    fraDraworder_->setTitle(Q(model_.DrawOrderCaptionText()));
}

void MainWindow::RefreshIdentity() {
    if (!txtFID_->hasFocus()) txtFID_->setText(Q(model_.FidText()));
    if (!txtProductCode_->hasFocus()) txtProductCode_->setText(Q(model_.ProductCodeText()));
    cbbCodepage_->setCurrentIndex(model_.CodePageIndex());
    // A code page the combo cannot select is still shown, greyed, and kept on saving.
    cbbCodepage_->setPlaceholderText(Q(model_.UnlistedCodePageText()));

    cbbHeadersize_->clear();
    for (const auto& item : model_.HeaderSizeItems()) cbbHeadersize_->addItem(Q(item));
    cbbHeadersize_->setCurrentIndex(model_.HeaderSizeIndex());
    cbbHeadersize_->setToolTip(Q(model_.HeaderSizeTip()).replace("\r\n", "\n"));
}

void MainWindow::RefreshRecentMenu() {
    recentMenu_->clear();
    const auto& items = model_.Recent().Items();
    for (std::size_t i = 0; i < items.size(); ++i) {
        QAction* action = recentMenu_->addAction(QString("&%1  %2").arg(i + 1).arg(Q(items[i])));
        action->setObjectName("mnuMRU");
        action->setData(static_cast<int>(i));
        connect(action, &QAction::triggered, this, [this, i] {
            // The menu is rebuilt by the command; run it once the menu is done.
            QTimer::singleShot(0, this, [this, i] { model_.OpenRecent(i); });
        });
    }
    recentMenu_->setEnabled(!items.empty());
}

void MainWindow::RefreshEnables() {
    const EnableState state = model_.Enables();
    for (ObjectKind kind : kObjectKinds) {
        const ObjectButtons buttons = ButtonsOf(kind);
        for (QPushButton* button : {buttons.Add, buttons.Edit, buttons.Delete}) button->setEnabled(state.ObjectCommands);
    }
    cmdDraworder_->setEnabled(state.DrawOrder);
    cmdIcones_->setEnabled(model_.HasDocument() && model_.Doc().Identity.HeaderSize >= 110);
    txtFID_->setEnabled(state.IdentityFields);
    txtProductCode_->setEnabled(state.IdentityFields);
    cbbCodepage_->setEnabled(state.Combos);
    cbbHeadersize_->setEnabled(state.Combos);
    cmdCreerTYP_->setEnabled(state.CreateTyp);
    cmdLabels_->setEnabled(model_.HasDocument() && model_.Doc().Identity.HeaderSize >= 156);
    mnuEnregistrerTyp_->setEnabled(state.CreateTyp);
    mnufermer_->setEnabled(state.Close);
    mnuouvrirtxt_->setEnabled(state.OpenText);
    mnuEnregistrerTxt_->setEnabled(state.SaveText);
    cmdEnregistrer_->setEnabled(state.SaveText);
    cmdvoirtxt_->setEnabled(state.ViewText && static_cast<bool>(listing_));
    textPane_->RefreshEnables(model_.HasDocument() && static_cast<bool>(listing_));
}

void MainWindow::RefreshTextPane() {
    BoxVisualisation_->setPlaceholderText(
        model_.HasDocument()
            ? MainTr("Le texte du TYP s'affichera ici.", "BoxVisualisationVide")
            : MainTr("Ouvrez un fichier TYP (Ctrl+O) ou déposez-le sur cette fenêtre.", "BoxVisualisationAide"));
    if (!listing_ || !model_.HasDocument()) {
        textPane_->Clear();
        return;
    }
    Document& doc = model_.Doc();
    const std::optional<ObjectRef> selected = model_.Selection();
    textPane_->ShowListing(selected && objectListing_ ? objectListing_(doc, *selected) : listing_(doc),
                           PaneCodePage(doc.Identity));
}

bool MainWindow::FinishIdentityField(QLineEdit* field, bool fid) {
    if (refreshing_ || checkingIdentity_ || !model_.HasDocument()) return true;
    const std::string text = field->text().toStdString();
    if (text == (fid ? model_.FidText() : model_.ProductCodeText())) return true;
    checkingIdentity_ = true;
    const std::optional<std::uint16_t> value = model_.CheckIdentityValue(text);
    checkingIdentity_ = false;
    if (!value) {
        // Stay in the field with the text selected.
        QTimer::singleShot(0, field, [field] {
            field->setFocus();
            field->selectAll();
        });
        return false;
    }
    if (fid) model_.SetFid(*value);
    else model_.SetProductCode(*value);
    return true;
}

QListWidget* MainWindow::ListOf(ObjectKind kind) const {
    switch (kind) {
        case ObjectKind::Polygon: return ListPolygone_;
        case ObjectKind::Polyline: return ListPolyline_;
        case ObjectKind::Poi: break;
    }
    return ListPOI_;
}

MainWindow::ObjectButtons MainWindow::ButtonsOf(ObjectKind kind) const {
    switch (kind) {
        case ObjectKind::Polygon: return {cmdAddPolygone_, cmdModifierPolygone_, cmdSupprimerPolygone_};
        case ObjectKind::Polyline: return {cmdAddPolyline_, cmdModifierPolyline_, cmdSupprimerPolyline_};
        case ObjectKind::Poi: break;
    }
    return {cmdAddPOI_, cmdModifierPOI_, cmdSupprimerPOI_};
}

std::optional<int> MainWindow::SelectedRow(ObjectKind kind) const {
    QListWidget* list = ListOf(kind);
    if (!list->currentItem() || !list->currentItem()->isSelected()) return std::nullopt;
    return list->currentRow();
}

// A command with no selection in its list does nothing.
void MainWindow::EditSelected(ObjectKind kind) {
    if (!ButtonsOf(kind).Edit->isEnabled()) return;
    if (const std::optional<int> row = SelectedRow(kind)) RunEditor(EditorOf(kind), ObjectRef{kind, *row});
}

void MainWindow::RunEditor(EditorWindow window, std::optional<ObjectRef> object) {
    if (CommitIdentityEdits()) OpenEditor(window, model_, this, object);
}

void MainWindow::DeleteSelected(ObjectKind kind) { model_.DeleteObject(kind, SelectedRow(kind).value_or(-1)); }

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QMainWindow::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    for (ObjectKind kind : kObjectKinds) {
        QListWidget* list = ListOf(kind);
        if (watched != list) continue;
        if (key->matches(QKeySequence::Delete)) {
            if (ButtonsOf(kind).Delete->isEnabled()) DeleteSelected(kind);
            return true;
        }
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            EditSelected(kind);
            return true;
        }
        // Moving through the list shows each object, once the list has moved. Only
        // keys do: the row the list takes by itself on getting the focus shows nothing.
        static const int kMoves[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,
                                     Qt::Key_End};
        if (std::find(std::begin(kMoves), std::end(kMoves), key->key()) != std::end(kMoves))
            QTimer::singleShot(0, this, [this, kind, list] {
                if (list->currentRow() >= 0) PickObject(kind, list->currentRow());
            });
    }
    return QMainWindow::eventFilter(watched, event);
}

bool MainWindow::CommitIdentityEdits() {
    // A shortcut such as Ctrl+S leaves the focus in the field, so its text
    // has not been taken yet.
    // Both texts are read first: taking one redraws the other.
    const QString typedFid = txtFID_->text(), typedProduct = txtProductCode_->text();
    if (!txtFID_->isEnabled()) return true;
    txtFID_->setText(typedFid);
    if (!FinishIdentityField(txtFID_, true)) return false;
    txtProductCode_->setText(typedProduct);
    return FinishIdentityField(txtProductCode_, false);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!CommitIdentityEdits()) {
        event->ignore();
        return;
    }
    if (model_.RequestQuit(mnuSauvegardeAuto_->isChecked())) event->accept();
    else event->ignore();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const auto urls = event->mimeData()->urls();
    if (urls.size() == 1 && urls[0].isLocalFile() && IsOpenableFile(urls[0].toLocalFile(), model_.HasTextRoute()))
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const auto urls = event->mimeData()->urls();
    if (urls.isEmpty()) return;
    const QString path = urls[0].toLocalFile();
    if (!IsOpenableFile(path, model_.HasTextRoute())) return;
    event->acceptProposedAction();
    // Opening asks questions: let the drag end first.
    QTimer::singleShot(0, this, [this, path] {
        if (CommitIdentityEdits()) model_.OpenAny(path.toStdString());
    });
}

}  // namespace mirvane::app
