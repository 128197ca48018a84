// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"
#include "ui/WholePixel.h"

#include <QImage>
#include <QPoint>
#include <QSize>

class QEvent;
class QPainter;

namespace ui::qt {

/// How many pixels of a screen of that scale are a side of a block of `block` logical pixels: always a whole
/// number, so that all blocks are alike. It is the nearest one, but never more than leaves room on the screen
/// (in logical pixels) for windows that are made for 800 x 600.
[[nodiscard]] int BlockPixels(int block, qreal scale, const QSize& screen);

/// WholePixel of both coordinates.
[[nodiscard]] QPoint WholePixels(const QPointF& place);

/// Whether a widget is told by `event` that it may be on a screen of another scale.
[[nodiscard]] bool TellsOfAnotherScale(const QEvent& event);

/// The picture's memory as an image; nothing is copied.
[[nodiscard]] QImage ImageOver(const Picture& picture);

/// Where a painter's widget begins on what it paints on, in pixels of that.
[[nodiscard]] QPointF DeviceCorner(const QPainter& painter);

/// How many pixels of what it paints on are a logical pixel.
[[nodiscard]] qreal DeviceScale(const QPainter& painter);

/// From now on `painter` counts from `corner`, in units of `unit` pixels; both in pixels of what it paints
/// on.
void PaintFrom(QPainter& painter, const QPointF& corner, qreal unit);

} // namespace ui::qt
