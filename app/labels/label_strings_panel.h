// The label controls of the polygon, line and POI editors: chkString with the
// rows of language and text under picLangues, and chkExtendedLabel with the
// font and the custom colours of the extended label. Every edit goes to the
// model at once; the window's OK stores what the model holds.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;

namespace mirvane {
class LabelStringsModel;
class UserPrompts;
}  // namespace mirvane

namespace mirvane::app {

class LabelStringsPanel : public QWidget {
    Q_OBJECT
public:
    // Texts are stored in `codePage`. With `colourPrompts` the panel also holds
    // the two label colour fields (lblcouleur(0) and txtcouleur(4) by day,
    // lblcouleur(1) and txtcouleur(5) by night) and tells there of a colour it
    // cannot read; without, the window shows those colours itself.
    LabelStringsPanel(LabelStringsModel& model, int codePage, UserPrompts* colourPrompts, QWidget* parent);

    // Shows the model's state again.
    void Refresh();
    void RetranslateUi();

signals:
    // The user turned the extended label on or off or chose other custom
    // colours: what the window shows of the label colours may change.
    void ExtendedStyleChanged();

private:
    struct LabelRow {
        QComboBox* Language;
        QLineEdit* Text;
        QPushButton* Remove;
    };

    void RefreshRows();
    LabelRow AddRowWidgets(int index);
    void BuildColourFields(QGridLayout* extended);
    void ColourFieldLeft(int index);

    LabelStringsModel& model_;
    int codePage_;
    UserPrompts* colourPrompts_;
    bool refreshing_ = false;

    QCheckBox *chkString_ = nullptr, *chkExtendedLabel_ = nullptr;
    QLabel *txtLangue_ = nullptr, *txtString_ = nullptr, *lblFontStyle_ = nullptr, *lblCustomColor_ = nullptr;
    QComboBox *cbbFontStyle_ = nullptr, *cbbCustomColor_ = nullptr;
    QScrollArea* picLangues_ = nullptr;
    QWidget* picString1_ = nullptr;
    QGridLayout* labelRows_ = nullptr;
    std::vector<LabelRow> rows_;
    QPushButton* cmdNouvelleLangue_ = nullptr;
    std::array<QLabel*, 2> lblcouleur_{};     // only with the colour fields
    std::array<QLineEdit*, 2> txtcouleur_{};  // (4) day, (5) night
};

}  // namespace mirvane::app
