// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/MarkerShape.h"

#include "ui/qt/PictureWidget.h"
#include "ui/qt/WholePixels.h"

#include <QPainter>
#include <algorithm>

namespace ui::qt {

namespace {

/// Pixels on the way around the outline, corners counted once. Both patterns divide it, so that they meet at
/// the corner where they began.
constexpr int OutlineLength = 4 * (MarkerShape::Side - 1);
constexpr int DashLength = 4;
constexpr int DashPeriod = 6;
constexpr int DotPeriod = 2;
/// Colours darker than this have white gaps. Pure red and green count as bright.
constexpr int DarkBelow = 80;
static_assert(OutlineLength % DashPeriod == 0 && OutlineLength % DotPeriod == 0);

bool IsDrawn(MarkerShape::Style style, int step) {
    switch (style) {
    case MarkerShape::Style::Dashed:
        return step % DashPeriod < DashLength;
    case MarkerShape::Style::Dotted:
        return step % DotPeriod == 0;
    case MarkerShape::Style::Solid:
        return true;
    }
    return true;
}

/// A step of the way around a cell, clockwise from its left upper corner, in pixels of the screen from that.
/// The outline is equally thick on all sides, whatever the side of the cell there.
QRect OutlinePiece(int step, int side) {
    constexpr int Last = MarkerShape::Side - 1;
    const qreal scale = static_cast<qreal>(side) / MarkerShape::Side;
    const int thickness = std::max(1, WholePixel(scale));
    const int edge = side - thickness;
    const auto start = [scale](int place) {
        return WholePixel(place * scale);
    };
    const int along = step % Last;
    const int ahead = start(along);
    const int back = start(Last - along);
    const int aheadLength = start(along + 1) - ahead;
    const int backLength = start(Last - along + 1) - back;
    switch (step / Last) {
    case 0:
        return {ahead, 0, aheadLength, thickness};
    case 1:
        return {edge, ahead, thickness, aheadLength};
    case 2:
        return {back, edge, backLength, thickness};
    default:
        return {0, back, thickness, backLength};
    }
}

} // namespace

MarkerShape::MarkerShape(PictureWidget* picture, Style resting)
    : QWidget(picture)
    , m_picture(picture)
    , m_resting(resting)
    , m_style(resting) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    connect(picture, &PictureWidget::cellsMoved, this, &MarkerShape::place);
    place();
    hide();
}

void MarkerShape::setStyle(Style style) {
    if (style != m_style) {
        m_style = style;
        update();
    }
}

void MarkerShape::toggleStyle() {
    setStyle(m_style == Style::Dotted ? m_resting : Style::Dotted);
}

void MarkerShape::setColour(const QColor& colour) {
    if (colour != m_colour) {
        m_colour = colour;
        update();
    }
}

void MarkerShape::moveToCell(int column, int row) {
    m_cell.x = (column - 1) * Side;
    m_cell.y = (row - 1) * Side;
    place();
}

void MarkerShape::place() {
    setGeometry(m_picture->areaOf(m_cell));
}

void MarkerShape::paintEvent(QPaintEvent* /*event*/) {
    if (!m_picture->isInView(m_cell)) {
        return;
    }
    QPainter painter(this);
    const QColor gap = qGray(m_colour.rgb()) < DarkBelow ? QColor(Qt::white) : QColor(Qt::black);
    const qreal scale = DeviceScale(painter);
    const QRect cell = m_picture->pixelsOf(m_cell, DeviceCorner(painter) - QPointF(pos()) * scale, scale);
    // Filled pixels of the screen instead of a pen: they stay sharp at every scale.
    PaintFrom(painter, cell.topLeft(), 1);
    for (int step = 0; step < OutlineLength; ++step) {
        painter.fillRect(OutlinePiece(step, cell.width()), IsDrawn(m_style, step) ? m_colour : gap);
    }
}

} // namespace ui::qt
