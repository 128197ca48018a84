// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/PictureWidget.h"

#include "ui/qt/PictureAccess.h"

#include <QHelpEvent>
#include <QImage>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

namespace ui::qt {

namespace {

/// The pixel under a position. Rounding it would put the far half of a cell's last pixel into the next cell.
QPoint PixelAt(const QPointF& position) {
    return {static_cast<int>(std::floor(position.x())), static_cast<int>(std::floor(position.y()))};
}

/// The picture's memory as an image; nothing is copied.
QImage ImageOver(const Picture& picture) {
    return {
        reinterpret_cast<const uchar*>(picture.row(0)), picture.width(), picture.height(),
        static_cast<qsizetype>(picture.width()) * static_cast<qsizetype>(sizeof(Pixel)),
        QImage::Format_RGB32};
}

} // namespace

PictureWidget::PictureWidget(QWidget* parent)
    : QWidget(parent) {
    InstallAccess<PictureWidget, PictureAccess>();
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
    fitPicture();
}

void PictureWidget::setPicture(const Picture* picture) {
    m_picture = picture;
    fitPicture();
    update();
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
    fitPicture();
    if (!damage.empty()) {
        update(damage.x, damage.y, damage.width, damage.height);
        if (QAccessible::isActive()) {
            announceCells(damage);
        }
    }
}

int PictureWidget::cellIndex(int row, int column) const {
    const bool isCell =
        hasCells() && row >= 1 && row <= m_cells.rows() && column >= 1 && column <= m_cells.columns;
    return isCell ? (row - 1) * m_cells.columns + column - 1 : -1;
}

QRect PictureWidget::cellRect(int row, int column) const {
    return {(column - 1) * m_cells.side, (row - 1) * m_cells.side, m_cells.side, m_cells.side};
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
    const QSize wanted = m_picture == nullptr ? QSize(0, 0) : QSize(m_picture->width(), m_picture->height());
    if (minimumSize() != wanted || maximumSize() != wanted) {
        setFixedSize(wanted);
    }
}

bool PictureWidget::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_cells.toolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        return showToolTip(help->pos(), help->globalPos());
    }
    return QWidget::event(event);
}

bool PictureWidget::showToolTip(const QPoint& pixel, const QPoint& global) {
    const int row = pixel.y() / m_cells.side + 1;
    const int column = pixel.x() / m_cells.side + 1;
    // It goes as soon as the pointer leaves the cell that it is about.
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

void PictureWidget::paintEvent(QPaintEvent* event) {
    if (m_picture == nullptr || m_picture->empty()) {
        return;
    }
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    // Drawn whole under the clip of the event: where the screen's scale is not a whole number, a part drawn
    // by itself would be rounded to other pixels than the same part of the whole.
    painter.setClipRegion(event->region());
    painter.drawImage(QPoint(0, 0), ImageOver(*m_picture));
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    Q_EMIT pressed(PixelAt(event->position()), event->button());
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    Q_EMIT pressed(PixelAt(event->position()), event->button());
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
    Q_EMIT pointerMoved(PixelAt(event->position()), event->buttons());
}

void PictureWidget::leaveEvent(QEvent* /*event*/) {
    Q_EMIT pointerLeft();
}

} // namespace ui::qt
