#include "app/text/text_pane.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFocusEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QTextCursor>

#include "app/common/texts.h"
#include "app/text/backups_window.h"
#include "app/text/listing_document.h"
#include "app/text/search_window.h"

namespace mirvane::app {

namespace {

QAction* MakeAction(QObject* owner, const char* name) {
    auto* action = new QAction(owner);
    action->setObjectName(name);
    return action;
}

}  // namespace

QString BackupFolder() {
    const QString program = QCoreApplication::applicationDirPath();
    if (QFileInfo(program).isWritable()) return program;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(data);
    return data;
}

TextPane::TextPane(QMainWindow& window, MainWindowModel& model, QPlainTextEdit* pane, QPushButton* apply,
                   QPushButton* saveText)
    : QObject(&window), window_(window), model_(model), session_(model, model.Prompts()), pane_(pane),
      cmdAppliquerModif_(apply), colours_(PaneColours(LoadRtfColours(model.Settings()))) {
    session_.SetBackupFolder(BackupFolder().toStdString());
    mnuSauvegardeAuto_ = window.findChild<QAction*>("mnuSauvegardeAuto");

    cmdRecherche_ = new QPushButton(pane->parentWidget());
    cmdRecherche_->setObjectName("cmdRecherche");
    auto* find = new QShortcut(QKeySequence::Find, &window);
    connect(find, &QShortcut::activated, this, &TextPane::OpenSearch);
    connect(cmdRecherche_, &QPushButton::clicked, this, &TextPane::OpenSearch);

    BuildEditMenu();
    if (auto* tools = window.findChild<QMenu*>("mnuOutils")) {
        mnuSauvegardeTexte_ = MakeAction(&window, "mnuSauvegardeTexte");
        tools->addAction(mnuSauvegardeTexte_);
        connect(mnuSauvegardeTexte_, &QAction::triggered, this, &TextPane::OpenBackups);
    }
    if (auto* saveMenu = window.findChild<QAction*>("mnuEnregistrerTxt"))
        connect(saveMenu, &QAction::triggered, this, &TextPane::SaveText);
    connect(saveText, &QPushButton::clicked, this, &TextPane::SaveText);

    pane_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(pane_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { mnuEdition_->popup(pane_->viewport()->mapToGlobal(at)); });
    connect(pane_, &QPlainTextEdit::textChanged, this, [this] {
        if (filling_) return;
        session_.TextEdited();
        RedrawApplyButton();
    });
    pane_->installEventFilter(this);
    connect(cmdAppliquerModif_, &QPushButton::clicked, this, &TextPane::Apply);
    RetranslateUi();
}

void TextPane::BuildEditMenu() {
    mnuEdition_ = window_.menuBar()->addMenu(QString());
    mnuEdition_->setObjectName("mnuEdition");
    auto add = [this](const char* name, auto command) {
        QAction* action = MakeAction(&window_, name);
        mnuEdition_->addAction(action);
        paneCommands_ << action;
        connect(action, &QAction::triggered, this, [this, command] {
            pane_->setFocus();
            command();
        });
    };
    add("mnuAnnuler", [this] { pane_->undo(); });
    mnuEdition_->addSeparator();
    add("mnuCouper", [this] { pane_->cut(); });
    add("mnuCopier", [this] { pane_->copy(); });
    add("mnuColler", [this] { pane_->paste(); });
    add("mnuSupprimer", [this] {
        QTextCursor cursor = pane_->textCursor();
        if (!pane_->isReadOnly()) cursor.removeSelectedText();
        pane_->setTextCursor(cursor);
    });
    mnuEdition_->addSeparator();
    add("mnuSelectionnerTout", [this] { pane_->selectAll(); });
}

void TextPane::RetranslateUi() {
    cmdRecherche_->setText(MainCaption("Rechercher...", "cmdRecherche"));
    if (mnuSauvegardeTexte_)
        mnuSauvegardeTexte_->setText(MainCaption("Voir les dernières sauvegardes texte", "mnuSauvegardeTexte"));
    mnuEdition_->setTitle(MainCaption("&Edition", "mnuEdition"));
    // The keys are only shown: the pane and the other fields handle them
    // themselves, and Delete stays with the object lists.
    const auto command = [this](const char* name, const QString& caption, const char* keys) {
        if (auto* action = window_.findChild<QAction*>(name)) action->setText(caption + '\t' + keys);
    };
    command("mnuAnnuler", MainCaption("Annuler", "mnuAnnuler"), "Ctrl+Z");
    command("mnuCouper", MainCaption("Couper", "mnuCouper"), "Ctrl+X");
    command("mnuCopier", MainCaption("Copier", "mnuCopier"), "Ctrl+C");
    command("mnuColler", MainCaption("Coller", "mnuColler"), "Ctrl+V");
    command("mnuSupprimer", MainCaption("Supprimer", "mnuSupprimer"), "Suppr");
    command("mnuSelectionnerTout", MainCaption("Sélectionner tout", "mnuSelectionnerTout"), "Ctrl+A");
    RedrawApplyButton();
}

void TextPane::SetColours(const RtfColours& colours) { colours_ = PaneColours(colours); }

void TextPane::ShowListing(const ListingText& listing, int codePage) {
    filling_ = true;
    shownCodePage_ = codePage;
    FillListingDocument(*pane_->document(), listing, codePage, colours_);
    pane_->moveCursor(QTextCursor::Start);  // a new listing is read from the top
    textShown_ = true;
    filling_ = false;
}

void TextPane::Clear() {
    filling_ = true;
    pane_->clear();
    textShown_ = false;
    filling_ = false;
}

void TextPane::RefreshEnables(bool hasDocument) {
    pane_->setReadOnly(!hasDocument);
    for (QAction* action : paneCommands_) action->setEnabled(hasDocument);
    cmdRecherche_->setEnabled(hasDocument);
}

void TextPane::Apply() {
    const bool autoBackup = mnuSauvegardeAuto_ && mnuSauvegardeAuto_->isChecked();
    session_.Apply(PaneBytes(*pane_->document(), shownCodePage_), autoBackup);
    RedrawApplyButton();
}

void TextPane::SaveText() { session_.SaveText(PaneBytes(*pane_->document(), shownCodePage_)); }

void TextPane::OpenSearch() {
    if (!search_) search_ = new SearchWindow(pane_, model_.Prompts(), &window_);
    search_->show();
    search_->raise();
    search_->activateWindow();
}

void TextPane::OpenBackups() {
    auto* backups = new BackupsWindow(session_.Backups(), shownCodePage_, &window_);
    backups->setAttribute(Qt::WA_DeleteOnClose);
    backups->show();
}

void TextPane::RedrawApplyButton() {
    cmdAppliquerModif_->setText(Q(session_.ApplyCaption()));
    cmdAppliquerModif_->setVisible(session_.ApplyVisible());
    cmdAppliquerModif_->setEnabled(session_.ApplyEnabled());
}

bool TextPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == pane_ && event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
        const QWidget* next = QApplication::focusWidget();
        session_.FocusLeft(textShown_ && !pane_->isReadOnly(), next == pane_);
        RedrawApplyButton();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace mirvane::app
