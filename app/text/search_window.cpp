#include "app/text/search_window.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <QTextDocument>

namespace mirvane::app {

namespace {

QTextDocument::FindFlags FlagsOf(FindOptions options) {
    QTextDocument::FindFlags flags;
    if (options.MatchCase) flags |= QTextDocument::FindCaseSensitively;
    if (options.WholeWord) flags |= QTextDocument::FindWholeWords;
    return flags;
}

QString FromUtf8(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

QPushButton* MakeButton(QWidget* parent, const char* name, const std::string& caption) {
    auto* button = new QPushButton(QString::fromStdString(caption), parent);
    button->setObjectName(name);
    return button;
}

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
    setWindowTitle(QString::fromStdString(model_.Caption));
    setModal(false);
    Text1_ = new QLineEdit(this);
    Text1_->setObjectName("Text1");
    txtRemplacer_ = new QLineEdit(this);
    txtRemplacer_->setObjectName("txtRemplacer");
    chkCasse_ = new QCheckBox(QString::fromStdString(model_.chkCasse_Caption), this);
    chkCasse_->setObjectName("chkCasse");
    chkMotEntier_ = new QCheckBox(QString::fromStdString(model_.chkMotEntier_Caption), this);
    chkMotEntier_->setObjectName("chkMotEntier");
    auto* next = MakeButton(this, "cmdSuivant", model_.cmdSuivant_Caption);
    auto* replace = MakeButton(this, "cmdRemplacer", model_.cmdRemplacer_Caption);
    auto* replaceAll = MakeButton(this, "cmdRemplacerTout", model_.cmdRemplacerTout_Caption);
    auto* cancel = MakeButton(this, "cmdAnnuler", model_.cmdAnnuler_Caption);
    next->setDefault(true);

    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QString::fromStdString(model_.lblRechercher_Caption), this), 0, 0);
    grid->addWidget(Text1_, 0, 1);
    grid->addWidget(next, 0, 2);
    grid->addWidget(new QLabel(QString::fromStdString(model_.lblRemplacer_Caption), this), 1, 0);
    grid->addWidget(txtRemplacer_, 1, 1);
    grid->addWidget(replace, 1, 2);
    grid->addWidget(chkCasse_, 2, 1);
    grid->addWidget(replaceAll, 2, 2);
    grid->addWidget(chkMotEntier_, 3, 1);
    grid->addWidget(cancel, 3, 2);
    grid->setColumnStretch(1, 1);
    setMinimumWidth(480);

    connect(next, &QPushButton::clicked, this, [this] {
        TakeControls();
        model_.cmdSuivant_Click();
    });
    connect(replace, &QPushButton::clicked, this, [this] {
        TakeControls();
        model_.cmdRemplacer_Click();
    });
    connect(replaceAll, &QPushButton::clicked, this, [this] {
        TakeControls();
        model_.cmdRemplacerTout_Click();
    });
    connect(cancel, &QPushButton::clicked, this, [this] {
        model_.cmdAnnuler_Click();
        hide();
    });
}

void SearchWindow::TakeControls() {
    model_.Text1 = Text1_->text().toStdString();
    model_.txtRemplacer = txtRemplacer_->text().toStdString();
    model_.chkCasse = chkCasse_->isChecked();
    model_.chkMotEntier = chkMotEntier_->isChecked();
}

}  // namespace mirvane::app
