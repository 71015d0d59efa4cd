#include "app/colour/colour_identifier.h"

#include <QCursor>
#include <QFontMetrics>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "models/colour/colour_identifier_model.h"

namespace mirvane::app {

namespace {

QString IdentifierTr(std::string_view defaultText, std::string_view key) {
    return Tr("ColorIdentifier", defaultText, key);
}

QLabel* MakeValueLabel(QWidget* parent, const char* name) {
    QLabel* label = MakeNamed<QLabel>(parent, name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    // Room for the longest value, so that the window keeps its size.
    label->setMinimumWidth(QFontMetrics(font).horizontalAdvance(QStringLiteral("#WWWWWW")));
    return label;
}

}  // namespace

ColourIdentifierWindow::ColourIdentifierWindow(QWidget* parent) : QWidget(parent, Qt::Tool), screenReader_(GrabScreen) {
    setObjectName("frmColorIdentifier");

    picLoupe_ = new Magnifier(this);
    picLoupe_->setObjectName("picLoupe");
    picLoupe_->setFixedSize(100, 100);
    picture1_ = new QLabel(this);
    picture1_->setObjectName("Picture1");
    picture1_->setFixedSize(100, 24);
    picture1_->setStyleSheet("QLabel { border: 1px solid #404040; }");

    label1_ = MakeValueLabel(this, "Label1");
    type_ = MakeValueLabel(this, "Type");
    subType_ = MakeValueLabel(this, "SubType");
    lblCouleur_ = MakeNamed<QLabel>(this, "lblCouleur");
    lblType_ = MakeNamed<QLabel>(this, "lblType");
    lblSubType_ = MakeNamed<QLabel>(this, "lblSubType");
    auto* values = new QFormLayout;
    values->addRow(lblCouleur_, label1_);
    values->addRow(lblType_, type_);
    values->addRow(lblSubType_, subType_);

    auto* view = new QVBoxLayout;
    view->addWidget(picLoupe_);
    view->addWidget(picture1_);
    auto* whole = new QHBoxLayout(this);
    whole->addLayout(view);
    whole->addLayout(values);
    whole->setSizeConstraint(QLayout::SetFixedSize);

    timer1_ = new QTimer(this);
    timer1_->setObjectName("Timer1");
    timer1_->setInterval(100);
    connect(timer1_, &QTimer::timeout, this, [this] { Tick(QCursor::pos()); });
    RetranslateUi();
}

void ColourIdentifierWindow::RetranslateUi() {
    setWindowTitle(IdentifierTr("Identifieue de couleur et de type", "frmColorIdentifierCaption"));
    lblCouleur_->setText(IdentifierTr("Couleur :", "lblCouleur"));
    lblType_->setText(IdentifierTr("Type :", "lblType"));
    lblSubType_->setText(IdentifierTr("SubType :", "lblSubType"));
}

void ColourIdentifierWindow::Tick(const QPoint& pointer) {
    if (!pointer_.Moved(pointer.x(), pointer.y())) return;
    const ScreenLook look = LookAt(screenReader_, pointer, picLoupe_->size());
    picLoupe_->Show(look.Area);
    if (!look.Pixel) return;
    const ColourIdentity identity = IdentifyColour(static_cast<std::uint32_t>(*look.Pixel));
    picture1_->setStyleSheet(
        QStringLiteral("QLabel { background: %1; border: 1px solid #404040; }").arg(ToQColor(*look.Pixel).name()));
    label1_->setText(Q(identity.Text));
    type_->setText(Q(identity.Type));
    subType_->setText(Q(identity.SubType));
}

void ColourIdentifierWindow::showEvent(QShowEvent* event) {
    timer1_->start();
    QWidget::showEvent(event);
}

void ColourIdentifierWindow::hideEvent(QHideEvent* event) {
    timer1_->stop();
    QWidget::hideEvent(event);
}

void ShowColourIdentifier(QWidget* owner) {
    auto* window = owner->findChild<ColourIdentifierWindow*>("frmColorIdentifier", Qt::FindDirectChildrenOnly);
    if (!window) window = new ColourIdentifierWindow(owner);
    window->show();
    window->raise();
}

}  // namespace mirvane::app
