// BoxVisualisation as an editor: the coloured listing, the apply button, the
// Edit menu on the pane's own undo stack, saving the text, the backups
// window and the search window.
#pragma once

#include <QObject>
#include <QPointer>
#include <array>
#include <string>

#include "models/shell/main_window_model.h"
#include "models/textpane/text_pane_session.h"
#include "text/listing_text.h"

class QAction;
class QMainWindow;
class QMenu;
class QPlainTextEdit;
class QPushButton;

namespace mirvane::app {

class SearchWindow;

// Mirvane.save goes to the program's folder when it can be written, else to
// the user's data folder.
QString BackupFolder();

class TextPane : public QObject {
    Q_OBJECT
public:
    // Adds the Edit menu and "Voir les dernières sauvegardes texte" to the
    // window, and binds the pane and its buttons.
    TextPane(QMainWindow& window, MainWindowModel& model, QPlainTextEdit* pane, QPushButton* apply,
             QPushButton* saveText);

    TextPaneSession& Session() { return session_; }
    QPushButton* SearchButton() const { return cmdRecherche_; }
    void SetColours(const RtfColours& colours);
    void RetranslateUi();

    // Shows a listing of the document, decoded in `codePage`.
    void ShowListing(const ListingText& listing, int codePage);
    void Clear();
    // maj_interface: with a document the pane is unlocked and the commands act.
    void RefreshEnables(bool hasDocument);

    void Apply();
    void SaveText();
    void OpenSearch();
    void OpenBackups();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildEditMenu();
    void RedrawApplyButton();

    QMainWindow& window_;
    MainWindowModel& model_;
    TextPaneSession session_;
    QPlainTextEdit* pane_;
    QPushButton *cmdAppliquerModif_, *cmdRecherche_;
    QAction* mnuSauvegardeAuto_;
    QAction* mnuSauvegardeTexte_ = nullptr;
    QMenu* mnuEdition_;
    QList<QAction*> paneCommands_;
    QPointer<SearchWindow> search_;
    std::array<PaneColour, 4> colours_;
    int shownCodePage_ = 1252;
    bool textShown_ = false;
    bool filling_ = false;
};

}  // namespace mirvane::app
