// fraVisualization: every object as an icon, bound to IconsViewModel. The
// picture is painted band by band for the part on screen only.
#pragma once

#include <QGroupBox>
#include <QWidget>

#include "document/document.h"
#include "models/preview/icons_view_model.h"

class QLabel;
class QScrollArea;
class QSlider;

namespace mirvane::app {

// picAfficheTout: as wide as the view, as tall as the whole grid.
class IconsPicture : public QWidget {
    Q_OBJECT
public:
    IconsPicture(IconsViewModel& model, QWidget* parent = nullptr);
    // The view's width changed, or the grid did: new columns and height.
    void Relayout(int width);

signals:
    void IconClicked(mirvane::ObjectRef ref);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    IconsViewModel& model_;
};

class IconsFrame : public QGroupBox {
    Q_OBJECT
public:
    explicit IconsFrame(QWidget* parent = nullptr);

    // cmdVisualisation: shows or hides the view; showing builds the icons.
    void Toggle(Document& doc, RasterColour background);
    // AfficheTout, when the view is up (the document or the background changed).
    void Rebuild(Document& doc, RasterColour background);
    // A list row was picked: its icon scrolls into view.
    void ShowIcon(ObjectRef ref);
    void RetranslateUi();

    const IconsViewModel& Model() const { return model_; }
    IconsPicture* Picture() const { return picture_; }

signals:
    void IconClicked(mirvane::ObjectRef ref);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* lblZoomIcons_;
    void Relayout();

    IconsViewModel model_;
    QSlider* sldZoomIcons_;
    QScrollArea* Picture5_;
    IconsPicture* picture_;
};

}  // namespace mirvane::app
