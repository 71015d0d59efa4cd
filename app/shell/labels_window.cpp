#include "app/shell/labels_window.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "document/extra_sections.h"
#include "app/common/texts.h"

namespace mirvane::app {

LabelsWindow::LabelsWindow(const Document& doc, QWidget* parent) : QDialog(parent) {
    setObjectName("frmLabels");
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const LabelsBrowserContent content = LabelsBrowserText(doc);
    setWindowTitle(Q(content.Caption));

    auto* text = new QPlainTextEdit(this);
    text->setObjectName("txtLabels");
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setTabStopDistance(text->fontMetrics().horizontalAdvance(' ') * 4);
    text->setPlainText(DecodeDocumentText(content.Text, doc.Identity.CodePage).replace("\r\n", "\n"));
    auto* close = new QPushButton(Q(content.CloseCaption), this);
    close->setObjectName("cmdFermer");
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text, 1);
    layout->addWidget(close, 0, Qt::AlignRight);
    resize(760, 520);
    QApplication::restoreOverrideCursor();
}

}  // namespace mirvane::app
