#include "app/labels/label_strings_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <utility>

#include "app/common/colour_style.h"
#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "base/codepage.h"
#include "labels/language_codes.h"
#include "models/labels/label_strings_model.h"
#include "models/pattern/pattern_editor_model.h"
#include "models/shell/user_prompts.h"

namespace mirvane::app {

namespace {

constexpr int kLanguageComboWidth = 120;
constexpr int kFontStyles = 5;
constexpr int kCustomColours = 4;

}  // namespace

LabelStringsPanel::LabelStringsPanel(LabelStringsModel& model, int codePage, UserPrompts* colourPrompts,
                                     QWidget* parent)
    : QWidget(parent),
      model_(model),
      // Unknown code pages are written as 1252, as DecodeDocumentText reads them.
      codePage_(IsSupportedCodePage(codePage) ? codePage : 1252),
      colourPrompts_(colourPrompts) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    chkString_ = MakeNamed<QCheckBox>(this, "chkString");
    txtLangue_ = MakeNamed<QLabel>(this, "txtLangue");
    txtString_ = MakeNamed<QLabel>(this, "txtString");
    picLangues_ = MakeNamed<QScrollArea>(this, "picLangues");
    picString1_ = MakeNamed<QWidget>(picLangues_, "picString1");
    labelRows_ = new QGridLayout(picString1_);
    labelRows_->setContentsMargins(2, 2, 2, 2);
    labelRows_->setColumnStretch(1, 1);
    picLangues_->setWidget(picString1_);
    picLangues_->setWidgetResizable(true);
    picLangues_->setFixedHeight(110);
    cmdNouvelleLangue_ = MakeButton(this, "cmdNouvelleLangue");

    chkExtendedLabel_ = MakeNamed<QCheckBox>(this, "chkExtendedLabel");
    lblFontStyle_ = MakeNamed<QLabel>(this, "lblFontStyle");
    lblCustomColor_ = MakeNamed<QLabel>(this, "lblCustomColor");
    cbbFontStyle_ = MakeNamed<QComboBox>(this, "cbbFontStyle");
    cbbCustomColor_ = MakeNamed<QComboBox>(this, "cbbCustomColor");
    cbbFontStyle_->addItems(QStringList(kFontStyles, QString()));
    cbbCustomColor_->addItems(QStringList(kCustomColours, QString()));
    auto* extended = new QGridLayout;
    extended->addWidget(chkExtendedLabel_, 0, 0, 1, 2);
    extended->addWidget(lblFontStyle_, 1, 0);
    extended->addWidget(cbbFontStyle_, 1, 1);
    extended->addWidget(lblCustomColor_, 2, 0);
    extended->addWidget(cbbCustomColor_, 2, 1);
    if (colourPrompts_) BuildColourFields(extended);
    extended->setRowStretch(extended->rowCount(), 1);

    auto* heads = new QHBoxLayout;
    // The heads stand over their columns: the frame, the margin and the combo's width.
    heads->addSpacing(4);
    txtLangue_->setFixedWidth(kLanguageComboWidth + labelRows_->horizontalSpacing());
    heads->addWidget(txtLangue_);
    heads->addWidget(txtString_, 1);
    layout->addWidget(chkString_, 0, 0);
    layout->addLayout(heads, 1, 0);
    layout->addWidget(picLangues_, 2, 0);
    layout->addWidget(cmdNouvelleLangue_, 3, 0, Qt::AlignLeft);
    layout->addLayout(extended, 0, 1, 4, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnMinimumWidth(0, 430);

    connect(chkString_, &QCheckBox::clicked, this, [this](bool on) {
        model_.SetEnabled(on);
        Refresh();
    });
    connect(cmdNouvelleLangue_, &QPushButton::clicked, this, [this] {
        model_.AddRow();
        Refresh();
    });
    connect(chkExtendedLabel_, &QCheckBox::clicked, this, [this](bool on) {
        model_.SetExtendedEnabled(on);
        Refresh();
        emit ExtendedStyleChanged();
    });
    connect(cbbFontStyle_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (!refreshing_ && index >= 0) model_.Extended().FontStyle = index;
    });
    connect(cbbCustomColor_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (refreshing_ || index < 0) return;
        model_.Extended().CustomColor = index;
        Refresh();
        emit ExtendedStyleChanged();
    });
}

void LabelStringsPanel::BuildColourFields(QGridLayout* extended) {
    for (int i = 0; i < 2; ++i) {
        lblcouleur_[i] = MakeNamed<QLabel>(this, IndexedName("lblcouleur", i));
        txtcouleur_[i] = MakeNamed<QLineEdit>(this, IndexedName("txtcouleur", i + 4));
        txtcouleur_[i]->setMaxLength(7);
        txtcouleur_[i]->setMaximumWidth(80);
        extended->addWidget(lblcouleur_[i], 3 + i, 0);
        extended->addWidget(txtcouleur_[i], 3 + i, 1);
        connect(txtcouleur_[i], &QLineEdit::editingFinished, this, [this, i] { ColourFieldLeft(i); });
    }
}

void LabelStringsPanel::ColourFieldLeft(int index) {
    const std::string text = txtcouleur_[index]->text().toStdString();
    const auto colour = ParseColourText(text);
    if (!colour) {
        colourPrompts_->Inform("Mirvane", CheckColourText(text)->Text);
        return;
    }
    (index == 0 ? model_.Extended().DayColour : model_.Extended().NightColour) = *colour;
    Refresh();
}

LabelStringsPanel::LabelRow LabelStringsPanel::AddRowWidgets(int i) {
    LabelRow row{MakeNamed<QComboBox>(picString1_, IndexedName("cbbLangue", i)),
                 MakeNamed<QLineEdit>(picString1_, IndexedName("txtTexte", i)),
                 MakeButton(picString1_, IndexedName("cmdSupprimerLangue", i))};
    for (int code = 0; code < LanguageCodeCount(); ++code) row.Language->addItem(Q(LanguageCodeName(code)));
    row.Language->setFixedWidth(kLanguageComboWidth);
    row.Remove->setText(QStringLiteral("✕"));
    row.Remove->setFixedWidth(28);
    row.Remove->setToolTip(EditTr("Supprimer cette langue", "cmdSupprimerLangueTip"));
    labelRows_->addWidget(row.Language, i, 0);
    labelRows_->addWidget(row.Text, i, 1);
    labelRows_->addWidget(row.Remove, i, 2);
    connect(row.Language, &QComboBox::currentIndexChanged, this, [this, i](int code) {
        if (!refreshing_ && code >= 0) model_.SetLanguage(i, static_cast<std::uint8_t>(code));
    });
    connect(row.Text, &QLineEdit::textEdited, this, [this, i](const QString& text) {
        model_.SetText(i, EncodeCodePage(text.toStdString(), codePage_));
    });
    connect(row.Remove, &QPushButton::clicked, this, [this, i] {
        model_.RemoveRow(i);
        Refresh();
    });
    return row;
}

void LabelStringsPanel::RefreshRows() {
    const auto& rows = model_.Rows();
    while (rows_.size() > rows.size()) {
        const LabelRow row = rows_.back();
        rows_.pop_back();
        delete row.Language;
        delete row.Text;
        delete row.Remove;
    }
    while (rows_.size() < rows.size()) rows_.push_back(AddRowWidgets(static_cast<int>(rows_.size())));
    labelRows_->setRowStretch(static_cast<int>(rows.size()), 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows_[i].Language->setCurrentIndex(rows[i].LanguageCode < LanguageCodeCount() ? rows[i].LanguageCode : 0);
        const QString text = DecodeDocumentText(rows[i].Text, codePage_);
        if (rows_[i].Text->text() != text) rows_[i].Text->setText(text);
    }
}

void LabelStringsPanel::Refresh() {
    const bool wasRefreshing = std::exchange(refreshing_, true);
    chkString_->setChecked(model_.Enabled());
    for (QWidget* w : std::initializer_list<QWidget*>{txtLangue_, txtString_, picLangues_, cmdNouvelleLangue_})
        w->setVisible(model_.Enabled());
    RefreshRows();
    const bool extended = model_.ExtendedEnabled();
    const ExtendedLabelStyle& style = model_.Extended();
    chkExtendedLabel_->setChecked(extended);
    for (QWidget* w : std::initializer_list<QWidget*>{lblFontStyle_, cbbFontStyle_, lblCustomColor_, cbbCustomColor_})
        w->setVisible(extended);
    cbbFontStyle_->setCurrentIndex(style.FontStyle);
    cbbCustomColor_->setCurrentIndex(style.CustomColor);
    if (colourPrompts_) {
        for (int i = 0; i < 2; ++i) {
            const bool shown = extended && (style.CustomColor & (1 << i));
            const std::uint32_t colour = i == 0 ? style.DayColour : style.NightColour;
            lblcouleur_[i]->setVisible(shown);
            txtcouleur_[i]->setVisible(shown);
            txtcouleur_[i]->setText(HtmlOf(colour));
            txtcouleur_[i]->setStyleSheet(FilledStyle(colour));
        }
    }
    refreshing_ = wasRefreshing;
}

void LabelStringsPanel::RetranslateUi() {
    chkString_->setText(EditCaption("Labels", "chkString"));
    txtLangue_->setText(EditCaption("Langue", "txtLangue"));
    txtString_->setText(EditCaption("Description", "txtString"));
    cmdNouvelleLangue_->setText(EditCaption("Ajouter une langue", "cmdNouvelleLangue"));
    for (const LabelRow& row : rows_) {
        for (int code = 0; code < row.Language->count(); ++code)
            row.Language->setItemText(code, Q(LanguageCodeName(code)));
        row.Remove->setToolTip(EditTr("Supprimer cette langue", "cmdSupprimerLangueTip"));
    }
    chkExtendedLabel_->setText(EditCaption("Label étendu", "chkExtendedLabel"));
    lblFontStyle_->setText(EditCaption("Police", "lblFontStyle"));
    lblCustomColor_->setText(EditCaption("Couleur", "lblCustomColor"));
    const std::array<const char*, kFontStyles> fonts{"Défaut", "Pas de label (invisible)", "Petite police",
                                                     "Police normale", "Grande police"};
    for (int i = 0; i < kFontStyles; ++i)
        cbbFontStyle_->setItemText(i, EditCaption(fonts[i], "cbbFontStyle" + std::to_string(i)));
    const std::array<const char*, kCustomColours> colours{"Aucune", "De jour", "De nuit", "De jour et de nuit"};
    for (int i = 0; i < kCustomColours; ++i)
        cbbCustomColor_->setItemText(i, EditCaption(colours[i], "cbbCustomColor" + std::to_string(i)));
    if (colourPrompts_) {
        lblcouleur_[0]->setText(EditCaption("Jour", "optBitmap0"));
        lblcouleur_[1]->setText(EditCaption("Nuit", "optBitmap1"));
    }
}

}  // namespace mirvane::app
