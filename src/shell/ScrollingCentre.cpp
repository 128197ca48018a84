// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ScrollingCentre.h"

#include "ui/qt/WholePixels.h"

#include <QEvent>
#include <QScreen>

namespace shell {

namespace {

/// What the window's bars and the desktop's frame take of a screen.
constexpr QSize RoomAround(10, 140);

} // namespace

ScrollingCentre::ScrollingCentre(QWidget* parent)
    : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
}

void ScrollingCentre::follow(const QWidget& part) {
    // The part that its parents hide cannot be brought into view.
    QRect shown = part.rect();
    for (const QWidget* at = &part; at != widget(); at = at->parentWidget()) {
        shown = shown.translated(at->pos()).intersected(at->parentWidget()->rect());
    }
    if (!shown.isEmpty()) {
        const QPoint middle = shown.center();
        ensureVisible(middle.x(), middle.y(), shown.width(), shown.height());
    }
}

QSize ScrollingCentre::sizeHint() const {
    return widget()->sizeHint();
}

QSize ScrollingCentre::minimumSizeHint() const {
    return widget()->minimumSizeHint().boundedTo(screen()->availableSize() - RoomAround);
}

bool ScrollingCentre::event(QEvent* event) {
    if (ui::qt::TellsOfAnotherScale(*event)) {
        updateGeometry();
    }
    return QScrollArea::event(event);
}

bool ScrollingCentre::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        // The window grows with its content, as far as the screen goes.
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

} // namespace shell
