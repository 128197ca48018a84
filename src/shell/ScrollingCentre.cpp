// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ScrollingCentre.h"

#include "ui/qt/PictureWidget.h"
#include "ui/qt/WholePixels.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

namespace shell {

namespace {

constexpr int LeastGap = 2; ///< of the margin, beside a column

/// What the window's bars and the desktop's frame take of a screen.
constexpr QSize RoomAround(10, 140);

} // namespace

ScrollingCentre::ScrollingCentre(QWidget& left, QWidget& right, QWidget* parent)
    : QScrollArea(parent) {
    setObjectName(QStringLiteral("centre"));
    setAccessibleName(tr("Glyphs and pages"));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget(this);
    auto* layout = new QHBoxLayout(content);
    layout->setContentsMargins(0, Margin, 0, Margin);
    layout->setSpacing(0);
    // A small window takes the room between the columns before it is scrolled.
    const auto addGap = [layout] {
        layout->addSpacing(LeastGap);
        layout->addItem(new QSpacerItem(Margin - LeastGap, 0, QSizePolicy::Maximum));
    };
    addGap();
    layout->addWidget(&left, 0, Qt::AlignTop);
    addGap();
    layout->addWidget(&right, 1);
    addGap();
    setWidget(content);
}

void ScrollingCentre::settle() {
    std::ranges::for_each(findChildren<ui::qt::PictureWidget*>(), &ui::qt::PictureWidget::fitPicture);
    const auto parts = findChildren<QWidget*>();
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        if (QLayout* const layout = (*part)->layout()) {
            layout->invalidate();
            layout->activate();
        }
    }
}

int ScrollingCentre::barHeight(int width) const {
    return widget()->minimumSizeHint().width() > width ? horizontalScrollBar()->sizeHint().height() : 0;
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
