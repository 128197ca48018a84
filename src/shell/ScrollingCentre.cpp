// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ScrollingCentre.h"

#include "shell/GlyphColumn.h"
#include "shell/PageColumn.h"
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

ScrollingCentre::ScrollingCentre(GlyphColumn& left, PageColumn& right, QWidget* parent)
    : QScrollArea(parent)
    , m_glyphColumn(left)
    , m_pageColumn(right) {
    setObjectName(QStringLiteral("center"));
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
    for (const QWidget* const part : findChildren<QWidget*>()) {
        if (QLayout* const layout = part->layout()) {
            layout->invalidate();
        }
    }
    activateLayouts();
}

void ScrollingCentre::activateLayouts() const {
    // The inner ones first: the outer ones go by what they want.
    const auto parts = findChildren<QWidget*>();
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        if (QLayout* const layout = (*part)->layout()) {
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

void ScrollingCentre::setZoom(int zoom) {
    m_zoom = zoom;
    m_pageColumn.makeRoomForAll(zoom == 1);
    applyZoom(Fitting::Anew);
    updateGeometry();
}

void ScrollingCentre::applyZoom(Fitting fitting) {
    m_zooms = m_zoom == FitZoom ? fittingZooms(fitting) : EqualZooms(m_zoom);
    m_glyphColumn.setZoom(m_zooms.grid);
    for (const editing::Kind& kind : editing::Kinds) {
        m_pageColumn.setZoom(kind.page, m_zooms.pages.at(static_cast<std::size_t>(kind.page)));
    }
}

Zooms ScrollingCentre::fittingZooms(Fitting fitting) const {
    activateLayouts();
    const int beside = widget()->minimumSizeHint().width() - m_glyphColumn.minimumSizeHint().width() -
                       m_pageColumn.minimumSizeHint().width();
    const QSize room = contentsRect().size() - QSize(beside, 2 * Margin);
    const ZoomSizes sizes{
        [this](int zoom) { return m_glyphColumn.leastSizeAt(zoom); },
        [this](editing::Page page, int zoom) {
            return m_pageColumn.leastSizeAt(page, zoom);
        }};
    if (fitting == Fitting::Anew) {
        return FittingZooms(sizes, room);
    }
    return AllFit(sizes, room, m_zooms) ? m_zooms : SmallerZooms(m_zooms, FittingZooms(sizes, room));
}

QSize ScrollingCentre::leastSize() const {
    if (m_zoom != FitZoom) {
        // A window that grows with the zoom keeps its margins.
        const int margins = m_zoom == 1 ? 0 : 3 * (Margin - LeastGap);
        return widget()->minimumSizeHint() + QSize(margins, 0);
    }
    // However large it is by now: it gets as small as it was at first.
    QSize least;
    for (const editing::Kind& kind : editing::Kinds) {
        least = least.expandedTo(m_pageColumn.leastSizeAt(kind.page, 1));
    }
    const QSize grid = m_glyphColumn.leastSizeAt(1);
    return {
        grid.width() + least.width() + 3 * LeastGap, std::max(grid.height(), least.height()) + 2 * Margin};
}

QSize ScrollingCentre::sizeHint() const {
    return m_zoom == FitZoom ? leastSize() : widget()->sizeHint();
}

QSize ScrollingCentre::minimumSizeHint() const {
    return leastSize().boundedTo(screen()->availableSize() - RoomAround);
}

void ScrollingCentre::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    if (m_zoom == FitZoom) {
        applyZoom(Fitting::Anew);
    }
}

bool ScrollingCentre::event(QEvent* event) {
    if (ui::qt::TellsOfAnotherScale(*event)) {
        updateGeometry();
    }
    return QScrollArea::event(event);
}

bool ScrollingCentre::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        if (m_zoom == FitZoom) {
            // What fits can depend on the zoom: growing as well, it might never come to rest.
            applyZoom(Fitting::ToLessOnly);
        }
        // The window grows with its content, as far as the screen goes.
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

} // namespace shell
