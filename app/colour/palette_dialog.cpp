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
constexpr int kCorners[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
const QPoint kCubeOrigin(60, 180);
const QPoint kRedAxis(110, 0), kGreenAxis(0, -110), kBlueAxis(56, -46);
constexpr int kCornerSquare = 24;
constexpr int kCentreSquare = 30;

QPoint CornerCentre(int corner) {
    return kCubeOrigin + kRedAxis * kCorners[corner][0] + kGreenAxis * kCorners[corner][1] +
           kBlueAxis * kCorners[corner][2];
}

QString SquareName(int index) { return QStringLiteral("Carré(%1)").arg(index); }

QLabel* MakeLabel(QWidget* parent, const char* name, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

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
      squares_(kCarreActuel + 1, nullptr) {
    setObjectName("frmPalette");
    setWindowTitle(PaletteTr("Choix de la couleur", "frmPaletteCaption"));

    auto* left = new QVBoxLayout;
    left->addWidget(MakeLabel(this, "Label2",
                              PaletteTr("Palette des Etrex et des GpsMap 60 : cliquer sur la couleur désirée",
                                        "label2")));
    left->addWidget(BuildGrid());
    left->addWidget(MakeLabel(this, "Label8",
                              PaletteTr("Cliquer sur un carré pour choisir une nouvelle couleur", "label8")));
    left->addStretch();

    auto* chosen = new QHBoxLayout;
    chosen->addWidget(MakeLabel(this, "Label1", PaletteTr("Choisie", "label1")));
    lblCouleurChoisie_ = MakeLabel(this, "lblCouleurChoisie", {});
    lblCouleurChoisie_->setAlignment(Qt::AlignCenter);
    lblCouleurChoisie_->setMinimumSize(110, 28);
    chosen->addWidget(lblCouleurChoisie_);
    chosen->addStretch();

    label3_ = MakeLabel(this, "Label3",
                        PaletteTr("La couleur actuelle ne fait pas partie de la palette Garmin", "label3"));
    label9_ = MakeLabel(this, "Label9",
                        PaletteTr("La couleur choisie ne fait pas partie de la palette Garmin", "label9"));
    for (QLabel* warning : {label3_, label9_}) {
        warning->setStyleSheet("QLabel { color: #B00000; }");
        warning->setWordWrap(true);
        KeepPlaceWhenHidden(warning);
    }

    auto* right = new QVBoxLayout;
    right->addWidget(
        MakeLabel(this, "Label16", PaletteTr("Couleurs Garmin voisines de la couleur choisie", "label16")));
    right->addWidget(BuildNeighbours());
    right->addLayout(chosen);
    right->addWidget(label3_);
    right->addWidget(label9_);
    right->addWidget(BuildPipette());
    right->addStretch();

    auto* cmdAutres = new QPushButton(PaletteTr("Autres couleurs", "cmdAutres"), this);
    cmdAutres->setObjectName("cmdAutres");
    auto* cmdOK = new QPushButton(PaletteTr("OK", "cmdOK"), this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    auto* cmdAnnuler = new QPushButton(PaletteTr("Annuler", "cmdAnnuler"), this);
    cmdAnnuler->setObjectName("cmdAnnuler");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdAutres);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdAnnuler);

    auto* columns = new QHBoxLayout;
    columns->addLayout(left);
    columns->addSpacing(12);
    columns->addLayout(right);
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(columns);
    whole->addLayout(buttons);
    whole->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdAutres, &QPushButton::clicked, this, [this] {
        model_.cmdAutres_Result(freeColourDialog_ ? freeColourDialog_(this, model_.cmdAutres_Start())
                                                  : model_.cmdAutres_Start());
        Refresh();
    });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdAnnuler, &QPushButton::clicked, this, &QDialog::reject);

    timer1_ = new QTimer(this);
    timer1_->setObjectName("Timer1");
    timer1_->setInterval(50);
    connect(timer1_, &QTimer::timeout, this, [this] { PipetteTick(QCursor::pos()); });

    Refresh();
}

QWidget* PaletteDialog::BuildGrid() {
    auto* grid = new QWidget(this);
    grid->setObjectName("grilleCarres");
    const int rows = (kNombreCarres + kColonnesCarres - 1) / kColonnesCarres;
    grid->setFixedSize(2 * kGridMargin + kColonnesCarres * kPitch, 2 * kGridMargin + rows * kPitch);
    frame_ = new SquareFrame(grid);  // first, so that the squares lie on it
    for (int index = 1; index <= kNombreCarres; ++index) {
        auto* square = new ColourSquare(index, grid);
        const PositionCarre at = position_carre(index);
        square->setGeometry(kGridMargin + at.colonne * kPitch + 1, kGridMargin + at.ligne * kPitch + 1, kSquare,
                            kSquare);
        const Colour colour = *couleur_carre(index);
        square->Set(colour, false, Q(texte_couleur(colour)));
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
    for (int corner = 0; corner < 8; ++corner) place(kPremierVoisin + corner, CornerCentre(corner), kCornerSquare);
    const QPoint centre = kCubeOrigin + (kRedAxis + kGreenAxis + kBlueAxis) / 2;
    place(kCarreChoisi, centre, kCentreSquare);
    const QPoint actual(295, centre.y());
    place(kCarreActuel, actual, kCentreSquare);

    auto* label4 = MakeLabel(cube, "Label4", PaletteTr("Actuelle", "label4"));
    label4->adjustSize();
    label4->move(actual.x() - label4->width() / 2, actual.y() - kCentreSquare / 2 - label4->height() - 2);
    auto* label6 = MakeLabel(cube, "Label6", PaletteTr("Rouge", "label6"));
    label6->adjustSize();
    label6->move(kCubeOrigin.x() + kRedAxis.x() / 2 - label6->width() / 2, kCubeOrigin.y() + kCornerSquare / 2 + 2);
    auto* label7 = MakeLabel(cube, "Label7", PaletteTr("Vert", "label7"));
    label7->adjustSize();
    label7->move(kCubeOrigin.x() - kCornerSquare / 2 - label7->width() - 4,
                 kCubeOrigin.y() + kGreenAxis.y() / 2 - label7->height() / 2);
    auto* label5 = MakeLabel(cube, "Label5", PaletteTr("Bleu", "label5"));
    label5->adjustSize();
    const QPoint blueMiddle = kCubeOrigin + kRedAxis + kBlueAxis / 2;
    label5->move(blueMiddle.x() + 6, blueMiddle.y() + 2);
    return cube;
}

QWidget* PaletteDialog::BuildPipette() {
    auto* box = new QWidget(this);
    box->setObjectName("fraPipette");
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 6, 0, 0);
    picPicker_ = new QLabel(QStringLiteral("✚"), box);
    picPicker_->setObjectName("picPicker");
    static_cast<QLabel*>(picPicker_)->setAlignment(Qt::AlignCenter);
    picPicker_->setFixedSize(36, 36);
    picPicker_->setCursor(Qt::CrossCursor);
    picPicker_->setToolTip(PaletteTr("Appuyer ici et glisser sur l'écran pour prélever une couleur", "picPicker"));
    picPicker_->installEventFilter(this);
    picture3_ = new Magnifier(box);
    picture3_->setObjectName("Picture3");
    picture3_->setFixedSize(100, 100);
    KeepPlaceWhenHidden(picture3_);
    label10_ = MakeLabel(box, "Label10", {});
    label10_->setMinimumWidth(70);
    row->addWidget(picPicker_, 0, Qt::AlignTop);
    row->addWidget(picture3_);
    row->addWidget(label10_, 0, Qt::AlignTop);
    row->addStretch();
    return box;
}

void PaletteDialog::Click(int index) {
    if (model_.Carre_Click(index)) Refresh();
}

void PaletteDialog::PipetteTick(const QPoint& pointer) {
    if (!model_.PipetteMoved(pointer.x(), pointer.y())) return;
    const ScreenLook look = LookAt(screenReader_, pointer, picture3_->size());
    picture3_->Show(look.Area);
    if (look.Pixel) model_.PipettePixel(*look.Pixel);
    label10_->setText(Q(model_.Label10_Caption()));
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
    if (event->type() == QEvent::MouseButtonRelease && mouse->button() == Qt::LeftButton &&
        model_.PrelevementEnCours()) {
        StopPipetteCapture();
        model_.PipetteEnd();
        Refresh();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void PaletteDialog::Refresh() {
    const int bordered = model_.CarreAvecBordure();
    for (int index = 1; index <= kNombreCarres; ++index) {
        const Colour colour = *couleur_carre(index);
        squares_[index]->Set(colour, index == bordered, Q(texte_couleur(colour)));
    }
    for (int index = kPremierVoisin; index <= kCarreActuel; ++index) {
        const CarreVoisin& square = model_.Voisin(index);
        squares_[index]->Set(square.Couleur, square.Bordure, Q(square.Tip));
    }
    if (const int framed = model_.CarreEncadre()) {
        const QWidget* square = squares_[framed];
        frame_->move(square->pos() - QPoint(kFrameOverhang, kFrameOverhang));
        frame_->show();
    } else {
        frame_->hide();
    }
    lblCouleurChoisie_->setText(Q(model_.lblCouleurChoisie_Caption()));
    lblCouleurChoisie_->setStyleSheet(ColouredLabelStyle(model_.CouleurChoisie()));
    label3_->setVisible(model_.Label3Visible());
    label9_->setVisible(model_.Label9Visible());
    picPicker_->setStyleSheet(QStringLiteral("QLabel { background: %1; border: 1px solid #404040; }")
                                  .arg(ToQColor(model_.picPicker_BackColor()).name()));
    picture3_->setVisible(model_.Picture3Visible());
    label10_->setText(Q(model_.Label10_Caption()));
}

void PaletteDialog::StopPipetteCapture() {
    picPicker_->releaseMouse();
    timer1_->stop();
}

void PaletteDialog::accept() {
    StopPipetteCapture();
    model_.cmdOK_Click();
    QDialog::accept();
}

void PaletteDialog::reject() {
    StopPipetteCapture();
    model_.cmdAnnuler_Click();
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
    return static_cast<std::uint32_t>(dialog.Model().CouleurChoisie());
}

}  // namespace mirvane::app

#include "palette_dialog.moc"
