// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/PictureWidget.h"

#include "ui/qt/PictureAccess.h"
#include "ui/qt/WholePixels.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <cmath>

namespace ui::qt {

namespace {

bool IsWhole(qreal scale) {
    return scale == std::floor(scale);
}

QRect RectOf(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

/// The rectangle between two places, each of them moved to a whole one.
QRect WholeRect(const QRectF& rect) {
    const QPoint end = WholePixels(rect.bottomRight());
    return {WholePixels(rect.topLeft()), end - QPoint(1, 1)};
}

} // namespace

PictureWidget::PictureWidget(QWidget* parent)
    : QWidget(parent) {
    InstallAccess<PictureWidget, PictureAccess>();
    setAutoFillBackground(true);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
    fitPicture();
}

void PictureWidget::setPicture(const Picture* picture) {
    m_picture = picture;
    fitPicture();
    update();
}

void PictureWidget::setBlock(int side, std::optional<int> pixels) {
    m_block = side;
    m_fixedBlockPixels = pixels;
    fitPicture();
}

void PictureWidget::setView(int top, int height, QPoint shift) {
    if (top == m_viewTop && height == m_viewHeight && shift == m_viewShift) {
        return;
    }
    m_viewTop = top;
    m_viewHeight = height;
    m_viewShift = shift;
    fitPicture();
    placeView();
}

Rect PictureWidget::viewPart() const {
    if (m_picture == nullptr) {
        return {};
    }
    return m_viewHeight == 0 ? m_picture->bounds() : Rect{0, m_viewTop, m_picture->width(), m_viewHeight};
}

void PictureWidget::setPointer(int style) {
    switch (style) {
    case 1:
        setCursor(Qt::ArrowCursor);
        break;
    case 2:
        setCursor(Qt::CrossCursor);
        break;
    default:
        unsetCursor();
    }
}

void PictureWidget::showDamage(const Rect& damage) {
    if (damage.empty() || m_picture == nullptr) {
        return;
    }
    if (minimumSize() != sizeOf(m_picture->bounds(), m_zoom)) {
        fitPicture();
    }
    update(areaOf(damage));
    if (QAccessible::isActive()) {
        announceCells(damage);
    }
}

int PictureWidget::cellIndex(int row, int column) const {
    const bool isCell =
        hasCells() && row >= 1 && row <= m_cells.rows() && column >= 1 && column <= m_cells.columns;
    return isCell ? (row - 1) * m_cells.columns + column - 1 : -1;
}

QRect PictureWidget::cellRect(int row, int column) const {
    return WholeRect(placeOf(cellPart(row, column)));
}

Rect PictureWidget::cellPart(int row, int column) const {
    return {(column - 1) * m_cells.side, (row - 1) * m_cells.side, m_cells.side, m_cells.side};
}

void PictureWidget::pressCell(int row, int column) {
    const QPoint middle = RectOf(cellPart(row, column)).center();
    Q_EMIT pressed(middle, Qt::LeftButton);
}

bool PictureWidget::isInView(const Rect& part) const {
    return RectOf(viewPart()).contains(RectOf(part));
}

qreal PictureWidget::pixelSide() const {
    return m_blockPixels / (m_block * m_scale);
}

QSize PictureWidget::sizeOf(const Rect& part, int zoom) const {
    // A little less: the error of the division must make no whole number one more.
    const auto extent = [this, side = pixelSide() * zoom / m_zoom](int pixels, int shift) {
        return static_cast<int>(std::ceil(pixels * side + shift / m_scale - PixelTolerance));
    };
    return {extent(part.width, m_viewShift.x()), extent(part.height, m_viewShift.y())};
}

QRectF PictureWidget::placeOf(const Rect& part) const {
    const qreal side = pixelSide();
    // The view begins at the upper edge of the parent, the widget at a whole logical pixel next to that.
    const qreal top = m_viewHeight == 0 ? 0 : -m_viewTop * side - y();
    return QRectF(part.x * side, top + part.y * side, part.width * side, part.height * side)
        .translated(QPointF(m_viewShift) / m_scale);
}

QRect PictureWidget::areaOf(const Rect& part) const {
    const QRectF place = placeOf(part);
    // At a fractional scale a repaint may take or leave the pixels of the screen at the edges of an area.
    const qreal margin = IsWhole(m_scale) ? 0 : 1 / m_scale;
    return place.adjusted(-margin, -margin, margin, margin).toAlignedRect();
}

QPoint PictureWidget::originAt(const QPointF& corner, qreal scale) const {
    if (m_viewHeight == 0) {
        return WholePixels(corner);
    }
    return WholePixels(corner - QPointF(0, y() * scale)) + m_viewShift -
           QPoint(0, WholePixel(m_viewTop * pixelSide() * scale));
}

QRect PictureWidget::pixelsOf(const Rect& part, const QPointF& corner, qreal scale) const {
    const qreal side = pixelSide() * scale;
    return WholeRect({part.x * side, part.y * side, part.width * side, part.height * side})
        .translated(originAt(corner, scale));
}

QPoint PictureWidget::pixelAt(const QPointF& position) const {
    const QPointF corner = QPointF(mapTo(window(), QPoint(0, 0))) * m_scale;
    const QPointF fromOrigin =
        (corner + position * m_scale - originAt(corner, m_scale)) / (pixelSide() * m_scale);
    // Rounding it would put the far half of a cell's last pixel into the next cell.
    return {
        static_cast<int>(std::floor(fromOrigin.x() + PixelTolerance)),
        static_cast<int>(std::floor(fromOrigin.y() + PixelTolerance))};
}

void PictureWidget::setCurrentCell(int row, int column) {
    if (row == m_currentRow && column == m_currentColumn) {
        return;
    }
    m_currentRow = row;
    m_currentColumn = column;
    if (QAccessible::isActive()) {
        announceCurrentCell();
    }
}

void PictureWidget::announceCurrentCell() {
    const int index = cellIndex(m_currentRow, m_currentColumn);
    if (index >= 0) {
        QAccessibleEvent event(this, hasFocus() ? QAccessible::Focus : QAccessible::Selection);
        event.setChild(index);
        QAccessible::updateAccessibility(&event);
    }
}

void PictureWidget::announceCells(const Rect& damage) {
    if (!hasCells()) {
        return;
    }
    const int firstRow = damage.y / m_cells.side + 1;
    const int firstColumn = damage.x / m_cells.side + 1;
    const int lastColumn = (damage.x + damage.width - 1) / m_cells.side + 1;
    if (damage.height > m_cells.side) {
        // Nobody wants to hear every cell of several rows.
        QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::DataChanged);
        QAccessible::updateAccessibility(&event);
        return;
    }
    for (int column = firstColumn; column <= lastColumn; ++column) {
        if (const int index = cellIndex(firstRow, column); index >= 0) {
            QAccessibleEvent event(this, QAccessible::NameChanged);
            event.setChild(index);
            QAccessible::updateAccessibility(&event);
        }
    }
}

void PictureWidget::announceRows() {
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
    }
}

void PictureWidget::fitPicture() {
    const qreal scale = devicePixelRatioF();
    const int blockPixels =
        m_zoom * m_fixedBlockPixels.value_or(BlockPixels(m_block, scale, screen()->size()));
    const bool isScaled = scale != m_scale || blockPixels != m_blockPixels;
    m_scale = scale;
    m_blockPixels = blockPixels;
    // At a fractional scale the widget has pixels of the screen beyond the picture, which show the
    // background.
    setAttribute(Qt::WA_OpaquePaintEvent, IsWhole(scale));
    const QSize wanted = m_picture == nullptr ? QSize(0, 0) : sizeOf(m_picture->bounds(), m_zoom);
    if (isScaled || minimumSize() != wanted || maximumSize() != wanted) {
        setFixedSize(wanted);
        placeView();
        update();
        Q_EMIT cellsMoved();
        Q_EMIT fitted();
    }
}

void PictureWidget::placeView() {
    if (m_viewHeight == 0) {
        return;
    }
    move(0, -static_cast<int>(std::floor(m_viewTop * pixelSide() + PixelTolerance)));
    if (!IsWhole(m_scale)) {
        // After a move by a fraction of a pixel of the screen nothing shown can stay.
        update();
        Q_EMIT cellsMoved();
    }
}

bool PictureWidget::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_cells.toolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        return showToolTip(help->pos(), help->globalPos());
    }
    if (m_picture != nullptr && (event->type() == QEvent::Show || TellsOfAnotherScale(*event))) {
        fitPicture();
    }
    return QWidget::event(event);
}

bool PictureWidget::showToolTip(const QPoint& position, const QPoint& global) {
    const QPoint pixel = pixelAt(position);
    const int row = pixel.y() / m_cells.side + 1;
    const int column = pixel.x() / m_cells.side + 1;
    // The tip goes as soon as the pointer leaves its cell.
    QToolTip::showText(
        global, cellIndex(row, column) < 0 ? toolTip() : m_cells.toolTip(row, column), this,
        cellRect(row, column));
    return true;
}

void PictureWidget::focusInEvent(QFocusEvent* /*event*/) {
    // Nothing to repaint: a picture looks the same with the focus.
    if (QAccessible::isActive()) {
        // The picture itself is announced after this event; what matters is the cell in it.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (hasFocus()) {
                    announceCurrentCell();
                }
            },
            Qt::QueuedConnection);
    }
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
    if (m_picture == nullptr || m_picture->empty()) {
        return;
    }
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const qreal scale = DeviceScale(painter);
    PaintFrom(painter, originAt(DeviceCorner(painter), scale), pixelSide() * scale);
    // All that is in view, under the clip of the event: a part by itself would be rounded to other pixels.
    const QRect shown = RectOf(viewPart());
    painter.drawImage(shown, ImageOver(*m_picture), shown);
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    Q_EMIT pressed(pixelAt(event->position()), event->button());
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint pixel = pixelAt(event->position());
    Q_EMIT pressed(pixel, event->button());
    Q_EMIT pressedTwice(pixel, event->button());
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
    Q_EMIT pointerMoved(pixelAt(event->position()), event->buttons());
}

void PictureWidget::leaveEvent(QEvent* /*event*/) {
    Q_EMIT pointerLeft();
}

} // namespace ui::qt
