// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/MarkerShape.h"

#include <QPainter>

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

/// The pixel at a step of the way around: clockwise from the left upper corner.
QPoint OutlinePixel(int step) {
    constexpr int Last = MarkerShape::Side - 1;
    const int along = step % Last;
    switch (step / Last) {
    case 0:
        return {along, 0};
    case 1:
        return {Last, along};
    case 2:
        return {Last - along, Last};
    default:
        return {0, Last - along};
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
    // Filled pixels instead of a pen: they stay sharp at every scale of the screen.
    for (int step = 0; step < OutlineLength; ++step) {
        painter.fillRect(QRect(OutlinePixel(step), QSize(1, 1)), IsDrawn(m_style, step) ? m_colour : gap);
    }
}

} // namespace ui::qt
