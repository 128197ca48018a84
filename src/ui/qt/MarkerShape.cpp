// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/MarkerShape.h"

#include <QPainter>
#include <QtMath>
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

/// The rectangle of device pixels at a step of the way around: clockwise from the left upper corner. The
/// outline is equally thick on all sides at every scale of the screen.
QRect OutlinePiece(int step, qreal scale) {
    constexpr int Last = MarkerShape::Side - 1;
    const int thickness = std::max(1, qFloor(scale + 0.5));
    const int edge = qFloor(MarkerShape::Side * scale + 0.5) - thickness;
    const auto start = [scale](int place) {
        return qFloor(place * scale + 0.5);
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

MarkerShape::MarkerShape(QWidget* picture, Style resting)
    : QWidget(picture)
    , m_resting(resting)
    , m_style(resting) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setFixedSize(Side, Side);
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
    move((column - 1) * Side, (row - 1) * Side);
}

void MarkerShape::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor gap = qGray(m_colour.rgb()) < DarkBelow ? QColor(Qt::white) : QColor(Qt::black);
    // Filled pixels of the screen instead of a pen: they stay sharp at every scale.
    const qreal scale = painter.deviceTransform().m11();
    painter.scale(1 / scale, 1 / scale);
    for (int step = 0; step < OutlineLength; ++step) {
        painter.fillRect(OutlinePiece(step, scale), IsDrawn(m_style, step) ? m_colour : gap);
    }
}

} // namespace ui::qt
