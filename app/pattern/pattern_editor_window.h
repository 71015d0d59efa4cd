// What frmPolygone and frmPolyline show alike: type and subtype, the colour
// check boxes and fields, the enlarged pattern with its tool box, the day and
// night previews and the label rows. Each editor adds its own fields and OK.
#pragma once

#include <QDialog>
#include <array>
#include <vector>

#include <optional>
#include <string_view>

#include "app/common/texts.h"
#include "document/object_preview.h"
#include "models/pattern/pattern_editor_model.h"
#include "models/shell/user_prompts.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollArea;
class QToolButton;
class QVBoxLayout;

namespace mirvane::app {

class LabelStringsPanel;
class PixelCanvas;
class RasterPicture;

inline constexpr int kPatternCellSize = 11;

// The row `object` names when it is a `kind` the document holds.
std::optional<int> RowOfKind(const Document& doc, std::optional<ObjectRef> object, ObjectKind kind);
inline constexpr int kColourFields = 6;  // txtcouleur(0) to (5)

class PatternEditorWindow : public QDialog {
    Q_OBJECT
public:
    // Sets every caption in the current language.
    void RetranslateUi();
    // Shows the model's state again.
    void Refresh();
    // OK: stores the record when the checks pass, then closes.
    void accept() override;

protected:
    PatternEditorWindow(PatternEditorModel& model, int codePage, UserPrompts& prompts, QWidget* parent);

    // Lays the window out around `kindFields` (placed under the type fields)
    // and `kindChecks` (beside the colour check boxes); the subclass calls
    // it once its own controls exist.
    void BuildUi(QWidget* kindFields, QWidget* kindChecks);

    // The picture the previews tile: the object as OK would store it.
    virtual PixelPicture PreviewPicture() const = 0;
    virtual QSize PreviewSize() const = 0;
    // Whether the pattern and its tools are on show.
    virtual bool PatternShown() const = 0;
    virtual void RefreshKind() = 0;
    virtual void RetranslateKind() = 0;
    virtual void CopyPattern() = 0;
    virtual void PastePattern() = 0;
    // True when the record was stored or the form is to close anyway.
    virtual bool Store() = 0;

    void RefreshPreviews();
    QLineEdit* MakeNumberField(QWidget* parent, const char* name, const char* pattern);
    // A field checked on leaving: `check` gives the message, after which the field is emptied.
    void CheckOnLeaving(QLineEdit* field, std::function<std::optional<EditorMessage>(const std::string&)> check);
    UserPrompts& Prompts() { return prompts_; }
    int CodePage() const { return codePage_; }

    QLabel* lblNumero_ = nullptr;
    QCheckBox *chkCouleursNuit_ = nullptr, *chkTranspJour_ = nullptr, *chkTranspNuit_ = nullptr;
    QGroupBox* fraDrawingMode_ = nullptr;
    QWidget* picOutils_ = nullptr;
    PixelCanvas* Picture2_ = nullptr;
    QLabel* lblCoordonnees_ = nullptr;
    QComboBox *cbbPixelsH_ = nullptr, *cbbPixelsV_ = nullptr;
    bool formReady_ = false;  // FormReady: handlers stay still while the form fills itself

private:
    QWidget* BuildTypeFields();
    QWidget* BuildColourFields();
    QWidget* BuildPatternColumn();
    QWidget* BuildToolBox();
    QWidget* BuildPreviews();
    void ConnectColourField(int index);
    void SetColourOfField(int index, std::uint32_t colour);
    std::optional<std::uint32_t> ColourOfField(int index) const;
    void ShowColourField(int index, bool shown);
    void ChooseColour(int index);
    void RefreshPattern();
    void AfterPatternChange();
    void RunCommand(PatternCommand command);

    bool eventFilter(QObject* watched, QEvent* event) override;

    PatternEditorModel& model_;
    int codePage_;
    UserPrompts& prompts_;
    bool checking_ = false;  // a message of a field check is showing

    QLabel *lblType_ = nullptr, *lblSubType_ = nullptr;
    QLineEdit *txtType_ = nullptr, *txtSubType_ = nullptr;
    std::array<QLineEdit*, kColourFields> txtcouleur_{};
    std::array<QLabel*, kColourFields> lblcouleur_{};
    std::array<QToolButton*, kColourFields> cmdGarmin_{};  // the nearest Garmin colour, when the colour is none
    QRadioButton *optPinceau_ = nullptr, *optPot_ = nullptr;
    QLabel* lblCouleurChoisie_ = nullptr;
    QCheckBox *chkGrille_ = nullptr, *chkAuto_ = nullptr;
    std::vector<std::pair<QPushButton*, PatternCommand>> commands_;
    QPushButton *cmdRepeterH_ = nullptr, *cmdRepeterV_ = nullptr, *cmdCopier_ = nullptr, *cmdColler_ = nullptr;
    QLabel *lblRepeterH_ = nullptr, *lblRepeterV_ = nullptr;
    QLabel *lblAperçuJour_ = nullptr, *lblAperçuNuit_ = nullptr, *lblAperçuJourNuit_ = nullptr;
    std::array<RasterPicture*, 2> Aperçu_{};
    LabelStringsPanel* labels_ = nullptr;
    QPushButton *cmdOK_ = nullptr, *cmdAnnuler_ = nullptr;
};

}  // namespace mirvane::app
