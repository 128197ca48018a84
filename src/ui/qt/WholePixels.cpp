// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/WholePixels.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

namespace ui::qt {

namespace {

constexpr QSize PlannedScreen(800, 600);

} // namespace

int BlockPixels(int block, qreal scale, const QSize& screen) {
    const qreal wanted = block * scale;
    const int nearest = WholePixel(wanted);
    const bool hasRoom = screen.width() * wanted >= PlannedScreen.width() * nearest &&
                         screen.height() * wanted >= PlannedScreen.height() * nearest;
    return std::max(nearest <= wanted + PixelTolerance || hasRoom ? nearest : nearest - 1, 1);
}

QPoint WholePixels(const QPointF& place) {
    return {WholePixel(place.x()), WholePixel(place.y())};
}

bool TellsOfAnotherScale(const QEvent& event) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    if (event.type() == QEvent::DevicePixelRatioChange) {
        return true;
    }
#endif
    return event.type() == QEvent::ScreenChangeInternal;
}

QImage ImageOver(const Picture& picture) {
    return {
        reinterpret_cast<const uchar*>(picture.row(0)), picture.width(), picture.height(),
        static_cast<qsizetype>(picture.width()) * static_cast<qsizetype>(sizeof(Pixel)),
        QImage::Format_RGB32};
}

QPointF DeviceCorner(const QPainter& painter) {
    const QTransform& transform = painter.deviceTransform();
    return {transform.dx(), transform.dy()};
}

qreal DeviceScale(const QPainter& painter) {
    return painter.deviceTransform().m11();
}

void PaintFrom(QPainter& painter, const QPointF& corner, qreal unit) {
    const qreal scale = DeviceScale(painter);
    painter.translate((corner - DeviceCorner(painter)) / scale);
    painter.scale(unit / scale, unit / scale);
}

} // namespace ui::qt
