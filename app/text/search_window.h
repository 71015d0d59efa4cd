// frmRecherche: the non-modal search and replace window on the text pane,
// bound to SearchModel over the pane's own text.
#pragma once

#include <QDialog>
#include <memory>

#include "models/textpane/search_model.h"
#include "models/textpane/text_buffer.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace mirvane::app {

// The pane as the search window sees it; positions are the widget's character positions.
class PaneTextBuffer : public TextBuffer {
public:
    explicit PaneTextBuffer(QPlainTextEdit* pane) : pane_(pane) {}

    std::size_t SelStart() const override;
    std::size_t SelLength() const override;
    void SetSelection(std::size_t start, std::size_t length) override;
    long long Find(std::string_view word, std::size_t start, FindOptions options) override;
    void ReplaceSelection(std::string_view text) override;
    std::size_t ReplaceAll(std::string_view word, std::string_view replacement, std::size_t start,
                           FindOptions options) override;

private:
    QPlainTextEdit* pane_;
};

class SearchWindow : public QDialog {
    Q_OBJECT
public:
    SearchWindow(QPlainTextEdit* pane, UserPrompts& prompts, QWidget* parent);

    // Sets every caption in the current language.
    void RetranslateUi();

private:
    // Hands the typed word, replacement and options to the model.
    void TakeControls();

    PaneTextBuffer buffer_;
    SearchModel model_;
    QLabel *lblRechercher_, *lblRemplacer_;
    QLineEdit *Text1_, *txtRemplacer_;
    QCheckBox *chkCasse_, *chkMotEntier_;
    QPushButton *cmdSuivant_, *cmdRemplacer_, *cmdRemplacerTout_, *cmdAnnuler_;
};

}  // namespace mirvane::app
