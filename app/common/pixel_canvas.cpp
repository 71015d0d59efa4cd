#include "app/common/pixel_canvas.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace mirvane::app {

namespace {

MouseButton ButtonOf(Qt::MouseButton button) {
    if (button == Qt::LeftButton) return MouseButton::Left;
    if (button == Qt::RightButton) return MouseButton::Right;
    return MouseButton::Other;
}

}  // namespace

PixelCanvas::PixelCanvas(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PixelCanvas::SetGrid(int columns, int rows, CellColour colourOf) {
    columns_ = std::max(columns, 0);
    rows_ = std::max(rows, 0);
    colourOf_ = std::move(colourOf);
    updateGeometry();
    update();
}

void PixelCanvas::SetCellSize(int pixels) {
    cellSize_ = std::max(pixels, 1);
    updateGeometry();
    update();
}

void PixelCanvas::SetGridLines(bool shown) {
    gridLines_ = shown;
    update();
}

QSize PixelCanvas::sizeHint() const { return {columns_ * cellSize_ + 1, rows_ * cellSize_ + 1}; }

Cell PixelCanvas::CellAt(QPoint position) const {
    const int x = std::clamp(position.x() / cellSize_, 0, std::max(columns_ - 1, 0));
    const int y = std::clamp(position.y() / cellSize_, 0, std::max(rows_ - 1, 0));
    return {x, y};
}

QPoint PixelCanvas::CentreOf(Cell cell) const {
    return {cell.x * cellSize_ + cellSize_ / 2, cell.y * cellSize_ + cellSize_ / 2};
}

void PixelCanvas::PaintCell(QPainter& painter, Cell cell) const {
    const QRect rect(cell.x * cellSize_, cell.y * cellSize_, cellSize_, cellSize_);
    const std::optional<QColor> colour = colourOf_ ? colourOf_(cell) : std::nullopt;
    if (colour) {
        painter.fillRect(rect, *colour);
        return;
    }
    // Transparent: a checkerboard of two greys, in quarters of the cell.
    const int half = std::max(cellSize_ / 2, 1);
    painter.fillRect(rect, QColor(255, 255, 255));
    painter.fillRect(QRect(rect.topLeft(), QSize(half, half)), QColor(204, 204, 204));
    painter.fillRect(QRect(rect.topLeft() + QPoint(half, half), QSize(cellSize_ - half, cellSize_ - half)),
                     QColor(204, 204, 204));
}

void PixelCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    for (int y = 0; y < rows_; ++y)
        for (int x = 0; x < columns_; ++x) PaintCell(painter, {x, y});
    if (!gridLines_ || cellSize_ < 3) return;
    painter.setPen(QColor(128, 128, 128));
    for (int x = 0; x <= columns_; ++x) painter.drawLine(x * cellSize_, 0, x * cellSize_, rows_ * cellSize_);
    for (int y = 0; y <= rows_; ++y) painter.drawLine(0, y * cellSize_, columns_ * cellSize_, y * cellSize_);
}

void PixelCanvas::mousePressEvent(QMouseEvent* event) {
    if (columns_ == 0 || rows_ == 0 || lastDragged_) return;
    const Cell cell = CellAt(event->position().toPoint());
    lastDragged_ = cell;
    emit CellPressed(cell, ButtonOf(event->button()));
}

void PixelCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (!lastDragged_) return;
    const Cell cell = CellAt(event->position().toPoint());
    if (cell == *lastDragged_) return;
    lastDragged_ = cell;
    emit CellDragged(cell);
}

void PixelCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (!lastDragged_) return;
    lastDragged_.reset();
    emit CellReleased(CellAt(event->position().toPoint()));
}

}  // namespace mirvane::app
