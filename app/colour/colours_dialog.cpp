#include "app/colour/colours_dialog.h"

#include <QFormLayout>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include "app/common/texts.h"

namespace mirvane::app {

namespace {

QString ColoursTr(std::string_view defaultText, std::string_view key) { return Tr("Couleurs", defaultText, key); }

}  // namespace

ColoursDialog::ColoursDialog(const Raster& bitmap, BitmapWriter write, QWidget* editor)
    : QWidget(editor, Qt::Tool), model_(bitmap), write_(std::move(write)) {
    setObjectName("frmCouleurs");
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(ColoursTr("Couleurs", "frmCouleursCaption"));

    auto* bars = new QFormLayout;
    bars->addRow(ColoursTr("Rouge", "lblRouge"), MakeBar("ScrollRouge", CanalCouleur::Rouge));
    bars->addRow(ColoursTr("Vert", "lblVert"), MakeBar("ScrollVert", CanalCouleur::Vert));
    bars->addRow(ColoursTr("Bleu", "lblBleu"), MakeBar("ScrollBleu", CanalCouleur::Bleu));

    const QString close = ColoursTr("Fermer", "lblFermer");
    auto* lblFermer = new QLabel(QStringLiteral("<a href=\"fermer\">%1</a>").arg(close), this);
    lblFermer->setObjectName("lblFermer");
    lblFermer->setAlignment(Qt::AlignRight);
    connect(lblFermer, &QLabel::linkActivated, this, &QWidget::close);

    auto* whole = new QVBoxLayout(this);
    whole->addLayout(bars);
    whole->addWidget(lblFermer);
    resize(300, sizeHint().height());

    if (editor) {
        const QRect at = editor->frameGeometry();
        const PositionFenetre place = PositionCouleurs(at.left(), at.top(), at.width());
        move(place.X, place.Y);
    }
}

QScrollBar* ColoursDialog::MakeBar(const char* name, CanalCouleur channel) {
    auto* bar = new QScrollBar(Qt::Horizontal, this);
    bar->setObjectName(name);
    bar->setRange(0, ColoursDialogModel::kMaximum);
    bar->setValue(ColoursDialogModel::kNeutre);
    bar->setMinimumWidth(220);
    // valueChanged comes while dragging and on release alike.
    connect(bar, &QScrollBar::valueChanged, this, [this, channel](int value) {
        const Raster mixed = model_.Scroll_Change(channel, value);
        if (write_) write_(mixed);
    });
    return bar;
}

}  // namespace mirvane::app
