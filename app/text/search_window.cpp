#include "app/text/search_window.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <QTextDocument>

#include "app/common/named_widget.h"
#include "app/common/texts.h"

namespace mirvane::app {

namespace {

QTextDocument::FindFlags FlagsOf(FindOptions options) {
    QTextDocument::FindFlags flags;
    if (options.MatchCase) flags |= QTextDocument::FindCaseSensitively;
    if (options.WholeWord) flags |= QTextDocument::FindWholeWords;
    return flags;
}

QString SearchTr(std::string_view defaultText, std::string_view key) { return Tr("Rechercher", defaultText, key); }

QString FromUtf8(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

}  // namespace

std::size_t PaneTextBuffer::SelStart() const { return static_cast<std::size_t>(pane_->textCursor().selectionStart()); }

std::size_t PaneTextBuffer::SelLength() const {
    const QTextCursor cursor = pane_->textCursor();
    return static_cast<std::size_t>(cursor.selectionEnd() - cursor.selectionStart());
}

void PaneTextBuffer::SetSelection(std::size_t start, std::size_t length) {
    QTextCursor cursor(pane_->document());
    const int end = pane_->document()->characterCount() - 1;
    cursor.setPosition(std::min(static_cast<int>(start), end));
    cursor.setPosition(std::min(static_cast<int>(start + length), end), QTextCursor::KeepAnchor);
    pane_->setTextCursor(cursor);
}

long long PaneTextBuffer::Find(std::string_view word, std::size_t start, FindOptions options) {
    if (word.empty()) return -1;
    const QTextCursor found = pane_->document()->find(FromUtf8(word), static_cast<int>(start), FlagsOf(options));
    if (found.isNull()) return -1;
    pane_->setTextCursor(found);
    return found.selectionStart();
}

void PaneTextBuffer::ReplaceSelection(std::string_view text) {
    QTextCursor cursor = pane_->textCursor();
    cursor.insertText(FromUtf8(text));
    pane_->setTextCursor(cursor);
}

std::size_t PaneTextBuffer::ReplaceAll(std::string_view word, std::string_view replacement, std::size_t start,
                                       FindOptions options) {
    if (word.empty()) return 0;
    QTextDocument* document = pane_->document();
    const QString searched = FromUtf8(word), replacing = FromUtf8(replacement);
    QTextCursor edit(document);
    edit.beginEditBlock();  // one step of undo
    std::size_t count = 0;
    int position = static_cast<int>(start);
    // Each search starts behind the last replacement, so the loop ends.
    for (;;) {
        QTextCursor found = document->find(searched, position, FlagsOf(options));
        if (found.isNull()) break;
        found.insertText(replacing);
        position = found.position();
        ++count;
    }
    edit.endEditBlock();
    QTextCursor caret(document);
    caret.setPosition(position);
    pane_->setTextCursor(caret);
    return count;
}

SearchWindow::SearchWindow(QPlainTextEdit* pane, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), buffer_(pane), model_(buffer_, prompts) {
    setObjectName("frmRecherche");
    setModal(false);
    lblRechercher_ = MakeNamed<QLabel>(this, "lblRechercher");
    lblRemplacer_ = MakeNamed<QLabel>(this, "lblRemplacer");
    Text1_ = MakeNamed<QLineEdit>(this, "Text1");
    txtRemplacer_ = MakeNamed<QLineEdit>(this, "txtRemplacer");
    chkCasse_ = MakeNamed<QCheckBox>(this, "chkCasse");
    chkMotEntier_ = MakeNamed<QCheckBox>(this, "chkMotEntier");
    cmdSuivant_ = MakeNamed<QPushButton>(this, "cmdSuivant");
    cmdRemplacer_ = MakeNamed<QPushButton>(this, "cmdRemplacer");
    cmdRemplacerTout_ = MakeNamed<QPushButton>(this, "cmdRemplacerTout");
    cmdAnnuler_ = MakeNamed<QPushButton>(this, "cmdAnnuler");
    cmdSuivant_->setDefault(true);

    auto* grid = new QGridLayout(this);
    grid->addWidget(lblRechercher_, 0, 0);
    grid->addWidget(Text1_, 0, 1);
    grid->addWidget(cmdSuivant_, 0, 2);
    grid->addWidget(lblRemplacer_, 1, 0);
    grid->addWidget(txtRemplacer_, 1, 1);
    grid->addWidget(cmdRemplacer_, 1, 2);
    grid->addWidget(chkCasse_, 2, 1);
    grid->addWidget(cmdRemplacerTout_, 2, 2);
    grid->addWidget(chkMotEntier_, 3, 1);
    grid->addWidget(cmdAnnuler_, 3, 2);
    grid->setColumnStretch(1, 1);
    setMinimumWidth(480);
    RetranslateUi();

    connect(cmdSuivant_, &QPushButton::clicked, this, [this] {
        TakeControls();
        model_.FindNext();
    });
    connect(cmdRemplacer_, &QPushButton::clicked, this, [this] {
        TakeControls();
        model_.ReplaceSelection();
    });
    connect(cmdRemplacerTout_, &QPushButton::clicked, this, [this] {
        TakeControls();
        model_.ReplaceAll();
    });
    connect(cmdAnnuler_, &QPushButton::clicked, this, &QWidget::hide);
}

void SearchWindow::RetranslateUi() {
    setWindowTitle(SearchTr("Rechercher", "Caption"));
    lblRechercher_->setText(SearchTr("Rechercher :", "lblRechercher"));
    lblRemplacer_->setText(SearchTr("Remplacer par :", "lblRemplacer"));
    chkCasse_->setText(SearchTr("Respecter la casse", "chkCasse"));
    chkMotEntier_->setText(SearchTr("Mot entier uniquement", "chkMotEntier"));
    cmdSuivant_->setText(SearchTr("Suivant", "cmdSuivant"));
    cmdRemplacer_->setText(SearchTr("Remplacer", "cmdRemplacer"));
    cmdRemplacerTout_->setText(SearchTr("Remplacer tout", "cmdRemplacerTout"));
    cmdAnnuler_->setText(SearchTr("Annuler", "cmdAnnuler"));
}

void SearchWindow::TakeControls() {
    model_.Word = Text1_->text().toStdString();
    model_.Replacement = txtRemplacer_->text().toStdString();
    model_.Options = {chkCasse_->isChecked(), chkMotEntier_->isChecked()};
}

}  // namespace mirvane::app
