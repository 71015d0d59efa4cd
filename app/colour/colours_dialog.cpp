#include "app/colour/colours_dialog.h"

#include <QFormLayout>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"

namespace mirvane::app {

namespace {

QString ColoursTr(std::string_view defaultText, std::string_view key) { return Tr("Couleurs", defaultText, key); }

}  // namespace

ColoursDialog::ColoursDialog(const Raster& bitmap, BitmapWriter write, QWidget* editor)
    : QWidget(editor, Qt::Tool), model_(bitmap), write_(std::move(write)) {
    setObjectName("frmCouleurs");
    setAttribute(Qt::WA_DeleteOnClose);

    lblRouge_ = MakeNamed<QLabel>(this, "lblRouge");
    lblVert_ = MakeNamed<QLabel>(this, "lblVert");
    lblBleu_ = MakeNamed<QLabel>(this, "lblBleu");
    auto* bars = new QFormLayout;
    bars->addRow(lblRouge_, MakeBar("ScrollRouge", ColourChannel::Red));
    bars->addRow(lblVert_, MakeBar("ScrollVert", ColourChannel::Green));
    bars->addRow(lblBleu_, MakeBar("ScrollBleu", ColourChannel::Blue));

    lblFermer_ = MakeNamed<QLabel>(this, "lblFermer");
    lblFermer_->setAlignment(Qt::AlignRight);
    connect(lblFermer_, &QLabel::linkActivated, this, &QWidget::close);

    auto* whole = new QVBoxLayout(this);
    whole->addLayout(bars);
    whole->addWidget(lblFermer_);
    RetranslateUi();
    resize(300, sizeHint().height());

    if (editor) {
        const QRect at = editor->frameGeometry();
        const WindowPosition place = ColoursWindowPosition(at.left(), at.top(), at.width());
        move(place.X, place.Y);
    }
}

void ColoursDialog::RetranslateUi() {
    setWindowTitle(ColoursTr("Couleurs", "frmCouleursCaption"));
    lblRouge_->setText(ColoursTr("Rouge", "lblRouge"));
    lblVert_->setText(ColoursTr("Vert", "lblVert"));
    lblBleu_->setText(ColoursTr("Bleu", "lblBleu"));
    // A link, so that the label closes the window like a button.
    lblFermer_->setText(QStringLiteral("<a href=\"fermer\">%1</a>").arg(ColoursTr("Fermer", "lblFermer")));
}

QScrollBar* ColoursDialog::MakeBar(const char* name, ColourChannel channel) {
    auto* bar = MakeNamed<QScrollBar>(this, name, Qt::Horizontal);
    bar->setRange(0, ColoursDialogModel::kMaximum);
    bar->setValue(ColoursDialogModel::kNeutral);
    bar->setMinimumWidth(220);
    // valueChanged comes while dragging and on release alike.
    connect(bar, &QScrollBar::valueChanged, this, [this, channel](int value) {
        const Raster mixed = model_.MoveBar(channel, value);
        if (write_) write_(mixed);
    });
    return bar;
}

}  // namespace mirvane::app
