#include "app/shell/labels_window.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "document/presentation.h"

namespace mirvane::app {

LabelsWindow::LabelsWindow(const Document& doc, QWidget* parent) : QDialog(parent) {
    setObjectName("frmLabels");
    QApplication::setOverrideCursor(Qt::WaitCursor);
    content_ = LabelsBrowserText(doc);
    const int codePage = doc.Identity.UnlistedCodePage ? doc.Identity.UnlistedCodePage : SelectedCodePage(doc.Identity);

    auto* text = MakeNamed<QPlainTextEdit>(this, "txtLabels");
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setTabStopDistance(text->fontMetrics().horizontalAdvance(' ') * 4);
    text->setPlainText(DecodeDocumentText(content_.Text, codePage).replace("\r\n", "\n"));
    cmdFermer_ = MakeNamed<QPushButton>(this, "cmdFermer");
    connect(cmdFermer_, &QPushButton::clicked, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text, 1);
    layout->addWidget(cmdFermer_, 0, Qt::AlignRight);
    resize(760, 520);
    RetranslateUi();
    QApplication::restoreOverrideCursor();
}

void LabelsWindow::RetranslateUi() {
    setWindowTitle(Q(content_.Caption));
    cmdFermer_->setText(Q(content_.CloseCaption));
}

}  // namespace mirvane::app
