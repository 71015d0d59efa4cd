#include "app/colour/palette_dialog.h"

#include <QColorDialog>
#include <QCursor>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"

namespace mirvane::app {

namespace {

QString PaletteTr(std::string_view defaultText, std::string_view key) { return Tr("Palette", defaultText, key); }

// The palette grid: squares of 23 points on a pitch of 24, 16 columns.
constexpr int kPitch = 24;
constexpr int kSquare = 22;
constexpr int kGridMargin = 4;
constexpr int kFrameOverhang = 3;

// Corners of the neighbours' cube, drawn with red to the right, green up and
// blue going back, in the order of squares 261 to 268.
constexpr int kCorners[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
const QPoint kCubeOrigin(60, 180);
const QPoint kRedAxis(110, 0), kGreenAxis(0, -110), kBlueAxis(56, -46);
constexpr int kCornerSquare = 24;
constexpr int kCentreSquare = 30;
// Square 269 in the middle of the cube, 270 beside it.
const QPoint kCubeCentre = kCubeOrigin + (kRedAxis + kGreenAxis + kBlueAxis) / 2;
const QPoint kCurrentSquareCentre(295, kCubeCentre.y());

QPoint CornerCentre(int corner) {
    return kCubeOrigin + kRedAxis * kCorners[corner][0] + kGreenAxis * kCorners[corner][1] +
           kBlueAxis * kCorners[corner][2];
}

QString SquareName(int index) { return QStringLiteral("Carré(%1)").arg(index); }

void KeepPlaceWhenHidden(QWidget* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

// Text on a coloured ground: black on light colours, white on dark ones.
QString ColouredLabelStyle(Colour colour) {
    const QColor ground = ToQColor(colour);
    const QColor ink = ground.lightness() > 128 ? Qt::black : Qt::white;
    return QStringLiteral("QLabel { background: %1; color: %2; border: 1px solid #404040; }")
        .arg(ground.name(), ink.name());
}

}  // namespace

// One square of the dialog; a click chooses its colour.
class ColourSquare : public QWidget {
    Q_OBJECT
public:
    ColourSquare(int index, QWidget* parent) : QWidget(parent), index_(index) {
        setObjectName(SquareName(index));
        setCursor(Qt::PointingHandCursor);
    }
    void Set(Colour colour, bool border, const QString& tip) {
        colour_ = ToQColor(colour);
        border_ = border;
        setToolTip(tip);
        update();
    }

signals:
    void clicked(int index);

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), colour_);
        if (!border_) return;
        painter.setPen(QPen(Qt::black, 1));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        painter.setPen(QPen(Qt::white, 1));
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked(index_);
    }

private:
    int index_;
    QColor colour_;
    bool border_ = false;
};

// The frame Carré2 around the square of the chosen colour.
class SquareFrame : public QWidget {
public:
    explicit SquareFrame(QWidget* parent) : QWidget(parent) {
        setObjectName(QStringLiteral("Carré2"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        resize(kSquare + 2 * kFrameOverhang, kSquare + 2 * kFrameOverhang);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::black);
        painter.fillRect(rect().adjusted(1, 1, -1, -1), Qt::white);
    }
};

// The eight neighbours drawn as the corners of a cube.
class NeighbourCube : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        static constexpr int kEdges[12][2] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6},
                                              {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Mid), 1));
        for (const auto& edge : kEdges) painter.drawLine(CornerCentre(edge[0]), CornerCentre(edge[1]));
    }
};

PaletteDialog::PaletteDialog(Colour current, PaletteCaller caller, PaletteDialogModel::PreviewHandler preview,
                             QWidget* parent)
    : QDialog(parent),
      model_(current, caller, std::move(preview)),
      freeColourDialog_(PlatformColourDialog),
      screenReader_(GrabScreen),
      squares_(kCurrentSquare + 1, nullptr) {
    setObjectName("frmPalette");

    label2_ = MakeNamed<QLabel>(this, "Label2");
    label8_ = MakeNamed<QLabel>(this, "Label8");
    auto* left = new QVBoxLayout;
    left->addWidget(label2_);
    left->addWidget(BuildGrid());
    left->addWidget(label8_);
    left->addStretch();

    label1_ = MakeNamed<QLabel>(this, "Label1");
    lblCouleurChoisie_ = MakeNamed<QLabel>(this, "lblCouleurChoisie");
    lblCouleurChoisie_->setAlignment(Qt::AlignCenter);
    lblCouleurChoisie_->setMinimumSize(110, 28);
    auto* chosen = new QHBoxLayout;
    chosen->addWidget(label1_);
    chosen->addWidget(lblCouleurChoisie_);
    chosen->addStretch();

    label3_ = MakeNamed<QLabel>(this, "Label3");
    label9_ = MakeNamed<QLabel>(this, "Label9");
    for (QLabel* warning : {label3_, label9_}) {
        warning->setStyleSheet("QLabel { color: #B00000; }");
        warning->setWordWrap(true);
        KeepPlaceWhenHidden(warning);
    }

    label16_ = MakeNamed<QLabel>(this, "Label16");
    auto* right = new QVBoxLayout;
    right->addWidget(label16_);
    right->addWidget(BuildNeighbours());
    right->addLayout(chosen);
    right->addWidget(label3_);
    right->addWidget(label9_);
    right->addWidget(BuildPipette());
    right->addStretch();

    cmdAutres_ = MakeNamed<QPushButton>(this, "cmdAutres");
    cmdOK_ = MakeNamed<QPushButton>(this, "cmdOK");
    cmdOK_->setDefault(true);
    cmdAnnuler_ = MakeNamed<QPushButton>(this, "cmdAnnuler");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdAutres_);
    buttons->addStretch();
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdAnnuler_);

    auto* columns = new QHBoxLayout;
    columns->addLayout(left);
    columns->addSpacing(12);
    columns->addLayout(right);
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(columns);
    whole->addLayout(buttons);
    whole->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdAutres_, &QPushButton::clicked, this, [this] {
        const Colour start = model_.ChosenColour();
        model_.ChooseFreeColour(freeColourDialog_ ? freeColourDialog_(this, start) : start);
        Refresh();
    });
    connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdAnnuler_, &QPushButton::clicked, this, &QDialog::reject);

    timer1_ = new QTimer(this);
    timer1_->setObjectName("Timer1");
    timer1_->setInterval(50);
    connect(timer1_, &QTimer::timeout, this, [this] { PipetteTick(QCursor::pos()); });

    RetranslateUi();
    Refresh();
}

void PaletteDialog::RetranslateUi() {
    setWindowTitle(PaletteTr("Choix de la couleur", "frmPaletteCaption"));
    label1_->setText(PaletteTr("Choisie", "label1"));
    label2_->setText(PaletteTr("Palette des Etrex et des GpsMap 60 : cliquer sur la couleur désirée", "label2"));
    label3_->setText(PaletteTr("La couleur actuelle ne fait pas partie de la palette Garmin", "label3"));
    label4_->setText(PaletteTr("Actuelle", "label4"));
    label5_->setText(PaletteTr("Bleu", "label5"));
    label6_->setText(PaletteTr("Rouge", "label6"));
    label7_->setText(PaletteTr("Vert", "label7"));
    label8_->setText(PaletteTr("Cliquer sur un carré pour choisir une nouvelle couleur", "label8"));
    label9_->setText(PaletteTr("La couleur choisie ne fait pas partie de la palette Garmin", "label9"));
    label16_->setText(PaletteTr("Couleurs Garmin voisines de la couleur choisie", "label16"));
    picPicker_->setToolTip(PaletteTr("Appuyer ici et glisser sur l'écran pour prélever une couleur", "picPicker"));
    cmdAutres_->setText(PaletteTr("Autres couleurs", "cmdAutres"));
    cmdOK_->setText(PaletteTr("OK", "cmdOK"));
    cmdAnnuler_->setText(PaletteTr("Annuler", "cmdAnnuler"));
    PlaceCubeLabels();
}

QWidget* PaletteDialog::BuildGrid() {
    auto* grid = new QWidget(this);
    grid->setObjectName("grilleCarres");
    const int rows = (kPaletteSquareCount + kPaletteColumns - 1) / kPaletteColumns;
    grid->setFixedSize(2 * kGridMargin + kPaletteColumns * kPitch, 2 * kGridMargin + rows * kPitch);
    frame_ = new SquareFrame(grid);  // first, so that the squares lie on it
    for (int index = 1; index <= kPaletteSquareCount; ++index) {
        auto* square = new ColourSquare(index, grid);
        const GridPosition at = PaletteSquarePosition(index);
        square->setGeometry(kGridMargin + at.column * kPitch + 1, kGridMargin + at.row * kPitch + 1, kSquare, kSquare);
        const Colour colour = *PaletteSquareColour(index);
        square->Set(colour, false, Q(ColourText(colour)));
        connect(square, &ColourSquare::clicked, this, &PaletteDialog::Click);
        squares_[index] = square;
    }
    return grid;
}

QWidget* PaletteDialog::BuildNeighbours() {
    auto* cube = new NeighbourCube(this);
    cube->setObjectName("fraVoisins");
    cube->setFixedSize(330, 210);
    const auto place = [&](int index, QPoint centre, int size) {
        auto* square = new ColourSquare(index, cube);
        square->setGeometry(centre.x() - size / 2, centre.y() - size / 2, size, size);
        connect(square, &ColourSquare::clicked, this, &PaletteDialog::Click);
        squares_[index] = square;
    };
    for (int corner = 0; corner < 8; ++corner)
        place(kFirstNeighbourSquare + corner, CornerCentre(corner), kCornerSquare);
    place(kChosenSquare, kCubeCentre, kCentreSquare);
    place(kCurrentSquare, kCurrentSquareCentre, kCentreSquare);
    label4_ = MakeNamed<QLabel>(cube, "Label4");
    label5_ = MakeNamed<QLabel>(cube, "Label5");
    label6_ = MakeNamed<QLabel>(cube, "Label6");
    label7_ = MakeNamed<QLabel>(cube, "Label7");
    return cube;
}

void PaletteDialog::PlaceCubeLabels() {
    for (QLabel* label : {label4_, label5_, label6_, label7_}) label->adjustSize();
    label4_->move(kCurrentSquareCentre.x() - label4_->width() / 2,
                  kCurrentSquareCentre.y() - kCentreSquare / 2 - label4_->height() - 2);
    label6_->move(kCubeOrigin.x() + kRedAxis.x() / 2 - label6_->width() / 2, kCubeOrigin.y() + kCornerSquare / 2 + 2);
    label7_->move(kCubeOrigin.x() - kCornerSquare / 2 - label7_->width() - 4,
                  kCubeOrigin.y() + kGreenAxis.y() / 2 - label7_->height() / 2);
    const QPoint blueMiddle = kCubeOrigin + kRedAxis + kBlueAxis / 2;
    label5_->move(blueMiddle.x() + 6, blueMiddle.y() + 2);
}

QWidget* PaletteDialog::BuildPipette() {
    auto* box = new QWidget(this);
    box->setObjectName("fraPipette");
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 6, 0, 0);
    picPicker_ = MakeNamed<QLabel>(box, "picPicker", QStringLiteral("✚"));
    picPicker_->setAlignment(Qt::AlignCenter);
    picPicker_->setFixedSize(36, 36);
    picPicker_->setCursor(Qt::CrossCursor);
    picPicker_->installEventFilter(this);
    picture3_ = MakeNamed<Magnifier>(box, "Picture3");
    picture3_->setFixedSize(100, 100);
    KeepPlaceWhenHidden(picture3_);
    label10_ = MakeNamed<QLabel>(box, "Label10");
    label10_->setMinimumWidth(70);
    row->addWidget(picPicker_, 0, Qt::AlignTop);
    row->addWidget(picture3_);
    row->addWidget(label10_, 0, Qt::AlignTop);
    row->addStretch();
    return box;
}

void PaletteDialog::Click(int index) {
    if (model_.ChooseSquare(index)) Refresh();
}

void PaletteDialog::PipetteTick(const QPoint& pointer) {
    if (!model_.PipetteMoved(pointer.x(), pointer.y())) return;
    const ScreenLook look = LookAt(screenReader_, pointer, picture3_->size());
    picture3_->Show(look.Area);
    if (look.Pixel) model_.PipettePixel(*look.Pixel);
    label10_->setText(Q(model_.PipetteColourText()));
}

bool PaletteDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != picPicker_) return QDialog::eventFilter(watched, event);
    const auto* mouse = dynamic_cast<QMouseEvent*>(event);
    if (event->type() == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        model_.PipetteStart();
        picPicker_->grabMouse();
        timer1_->start();
        Refresh();
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease && mouse->button() == Qt::LeftButton && model_.PipetteRunning()) {
        StopPipetteCapture();
        model_.PipetteEnd();
        Refresh();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void PaletteDialog::Refresh() {
    const int bordered = model_.BorderedSquare();
    for (int index = 1; index <= kPaletteSquareCount; ++index) {
        const Colour colour = *PaletteSquareColour(index);
        squares_[index]->Set(colour, index == bordered, Q(ColourText(colour)));
    }
    for (int index = kFirstNeighbourSquare; index <= kCurrentSquare; ++index) {
        const NeighbourSquare& square = model_.Neighbour(index);
        squares_[index]->Set(square.Fill, square.Border, Q(square.Tip));
    }
    if (const int framed = model_.FramedSquare()) {
        const QWidget* square = squares_[framed];
        frame_->move(square->pos() - QPoint(kFrameOverhang, kFrameOverhang));
        frame_->show();
    } else {
        frame_->hide();
    }
    lblCouleurChoisie_->setText(Q(model_.ChosenColourText()));
    lblCouleurChoisie_->setStyleSheet(ColouredLabelStyle(model_.ChosenColour()));
    label3_->setVisible(model_.CurrentColourOutsidePalette());
    label9_->setVisible(model_.ChosenColourOutsidePalette());
    picPicker_->setStyleSheet(QStringLiteral("QLabel { background: %1; border: 1px solid #404040; }")
                                  .arg(ToQColor(model_.PipetteButtonColour()).name()));
    picture3_->setVisible(model_.PipetteRunning());
    label10_->setText(Q(model_.PipetteColourText()));
}

void PaletteDialog::StopPipetteCapture() {
    picPicker_->releaseMouse();
    timer1_->stop();
}

void PaletteDialog::accept() {
    StopPipetteCapture();
    model_.Accept();
    QDialog::accept();
}

void PaletteDialog::reject() {
    StopPipetteCapture();
    model_.Cancel();
    QDialog::reject();
}

Colour PlatformColourDialog(QWidget* parent, Colour start) {
    // QColorDialog keeps its custom colours for the life of the program.
    const QColor chosen = QColorDialog::getColor(ToQColor(start), parent, PaletteTr("Autres couleurs", "cmdAutres"));
    return chosen.isValid() ? FromQColor(chosen) : start;
}

std::optional<std::uint32_t> ChooseGarminColour(QWidget* parent, std::uint32_t current, int caller,
                                                std::function<void(std::uint32_t)> preview) {
    PaletteDialogModel::PreviewHandler handler;
    if (preview) handler = [preview](Colour c) { preview(static_cast<std::uint32_t>(c)); };
    const auto who = caller == 1 ? PaletteCaller::PreviewBackground : PaletteCaller::Editor;
    PaletteDialog dialog(static_cast<Colour>(current & 0xFFFFFFu), who, std::move(handler), parent);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return static_cast<std::uint32_t>(dialog.Model().ChosenColour());
}

}  // namespace mirvane::app

#include "palette_dialog.moc"
