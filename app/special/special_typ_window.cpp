#include "app/special/special_typ_window.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "lang/lookup.h"
#include "models/shell/main_window_model.h"

namespace mirvane::app {

namespace {

QString SpecialTr(std::string_view defaultText, std::string_view key) { return Tr("TypSpeciaux", defaultText, key); }

}  // namespace

SpecialTypWindow::SpecialTypWindow(UserPrompts& prompts, SpecialTypModel::SeedSource seed, QWidget* parent)
    : QDialog(parent), model_(prompts, std::move(seed)) {
    setObjectName("frmTypSpeciaux");
    fraTypeObjects_ = MakeNamed<QGroupBox>(this, "fraTypeObjects");
    optPolygone_ = MakeNamed<QRadioButton>(fraTypeObjects_, "optPolygone");
    optPolyline_ = MakeNamed<QRadioButton>(fraTypeObjects_, "optPolyline");
    optPOI_ = MakeNamed<QRadioButton>(fraTypeObjects_, "optPOI");
    auto* kinds = new QVBoxLayout(fraTypeObjects_);
    for (QRadioButton* option : {optPolygone_, optPolyline_, optPOI_}) kinds->addWidget(option);
    lblChoisir_ = MakeNamed<QLabel>(this, "lblChoisir");
    cbbPlage_ = MakeNamed<QComboBox>(this, "cbbPlage");
    cmdOK_ = MakeNamed<QPushButton>(this, "cmdOK");
    cmdAnnuler_ = MakeNamed<QPushButton>(this, "cmdAnnuler");
    cmdOK_->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdAnnuler_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraTypeObjects_);
    layout->addWidget(lblChoisir_);
    layout->addWidget(cbbPlage_);
    layout->addLayout(buttons);

    connect(optPolygone_, &QRadioButton::toggled, this, [this](bool on) { if (on) model_.SetKind(ObjectKind::Polygon); });
    connect(optPolyline_, &QRadioButton::toggled, this, [this](bool on) { if (on) model_.SetKind(ObjectKind::Polyline); });
    connect(optPOI_, &QRadioButton::toggled, this, [this](bool on) { if (on) model_.SetKind(ObjectKind::Poi); });
    connect(cbbPlage_, &QComboBox::currentIndexChanged, this, [this](int row) { model_.SetRangeRow(row); });
    connect(cmdOK_, &QPushButton::clicked, this, &SpecialTypWindow::Accept);
    connect(cmdAnnuler_, &QPushButton::clicked, this, &QDialog::reject);
    RetranslateUi();
}

void SpecialTypWindow::RetranslateUi() {
    setWindowTitle(Q(FormCaption("TypSpeciaux", "Typ pour l'identification des objets", "frmTypSpeciauxCaption")));
    fraTypeObjects_->setTitle(SpecialTr("Type d'objets", "fraTypeObjects"));
    optPolygone_->setText(SpecialTr("Polygones", "optPolygone"));
    optPolyline_->setText(SpecialTr("Polylignes", "optPolyline"));
    optPOI_->setText(SpecialTr("POI", "optPOI"));
    lblChoisir_->setText(SpecialTr("Choisir une plage de 512 objets", "lblChoisir"));
    cmdOK_->setText(SpecialTr("OK", "cmdOK"));
    cmdAnnuler_->setText(SpecialTr("Annuler", "cmdAnnuler"));
    const int row = model_.RangeRow();
    const QSignalBlocker keep(cbbPlage_);
    cbbPlage_->clear();
    for (const std::string& item : SpecialTypModel::RangeItems()) cbbPlage_->addItem(Q(item));
    cbbPlage_->setCurrentIndex(row);
}

void SpecialTypWindow::Accept() {
    result_ = model_.Build();
    if (result_) accept();
}

void ShowSpecialTypWindow(QWidget* parent, MainWindowModel& model) {
    SpecialTypWindow window(model.Prompts(), {}, parent);
    if (window.exec() != QDialog::Accepted || !window.Result()) return;
    model.New();
    model.Doc() = std::move(*window.Result());
    model.MarkModified();
}

}  // namespace mirvane::app
