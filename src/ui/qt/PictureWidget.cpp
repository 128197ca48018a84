// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/PictureWidget.h"

#include <QImage>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
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
    }
}

void PictureWidget::fitPicture() {
    const QSize wanted = m_picture == nullptr ? QSize(0, 0) : QSize(m_picture->width(), m_picture->height());
    if (minimumSize() != wanted || maximumSize() != wanted) {
        setFixedSize(wanted);
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
