// The enlarged pixel grid of the pattern and POI editors. It knows nothing of
// what a cell holds: the editor hands it a colour per cell and gets back the
// cells the pointer presses, drags over and releases on.
#pragma once

#include <QColor>
#include <QWidget>
#include <functional>
#include <optional>

#include "graphics/pixel_grid.h"
#include "models/editing/tool.h"

namespace mirvane::app {

class PixelCanvas : public QWidget {
    Q_OBJECT
public:
    // No colour draws the cell as a checkerboard: a transparent pixel.
    using CellColour = std::function<std::optional<QColor>(Cell)>;

    explicit PixelCanvas(QWidget* parent = nullptr);

    // The grid's size in cells and how each cell looks; call Refresh after a change.
    void SetGrid(int columns, int rows, CellColour colourOf);
    void SetCellSize(int pixels);  // zoom
    int CellSize() const { return cellSize_; }
    void SetGridLines(bool shown);
    bool GridLines() const { return gridLines_; }
    void Refresh() { update(); }

    int Columns() const { return columns_; }
    int Rows() const { return rows_; }
    // The cell under a widget position, clamped into the grid so that a drag
    // leaving the canvas still ends on the edge cell.
    Cell CellAt(QPoint position) const;
    // The widget position at the centre of a cell, for tests that click cells.
    QPoint CentreOf(Cell cell) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void CellPressed(mirvane::Cell cell, mirvane::MouseButton button);
    void CellDragged(mirvane::Cell cell);  // a new cell while a button is held
    void CellReleased(mirvane::Cell cell);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void PaintCell(QPainter& painter, Cell cell) const;

    int columns_ = 0, rows_ = 0;
    int cellSize_ = 10;
    bool gridLines_ = true;
    CellColour colourOf_;
    std::optional<Cell> lastDragged_;  // set between a press and its release
};

}  // namespace mirvane::app
