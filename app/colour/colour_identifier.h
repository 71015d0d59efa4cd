// frmColorIdentifier: a small tool window that follows the pointer and shows
// the colour of the screen under it, with the type and subtype that colour
// stands for in an identification TYP.
#pragma once

#include <QWidget>

#include "app/platform/screen_reader.h"
#include "models/colour/pointer_tracker.h"

class QLabel;
class QTimer;

namespace mirvane::app {

class ColourIdentifierWindow : public QWidget {
    Q_OBJECT
public:
    explicit ColourIdentifierWindow(QWidget* parent = nullptr);

    // Sets every caption in the current language.
    void RetranslateUi();

    void SetScreenReader(ScreenReader reader) { screenReader_ = std::move(reader); }
    // One tick of Timer1, at the pointer's place.
    void Tick(const QPoint& pointer);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    ScreenReader screenReader_;
    PointerTracker pointer_;
    QTimer* timer1_;
    QLabel *picture1_, *label1_, *type_, *subType_;
    QLabel *lblCouleur_, *lblType_, *lblSubType_;
    Magnifier* picLoupe_;
};

// The menu entry mnuCouleurIdentifieur: shows the one window of `owner`,
// making it the first time.
void ShowColourIdentifier(QWidget* owner);

}  // namespace mirvane::app
