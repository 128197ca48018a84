// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/CellMarks.h"

#include "ui/qt/PictureWidget.h"
#include "ui/qt/WholePixels.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRegion>
#include <algorithm>

namespace ui::qt {

namespace {

/// Told from every colour of the games' glyphs and from the cursor's marker.
constexpr QColor MarkColour(80, 190, 255);
constexpr QColor ShadeColour(0, 0, 0, 190);
constexpr int MarkThickness = 2; ///< in pixels of the picture

} // namespace

CellMarks::CellMarks(PictureWidget* picture, Look look)
    : QWidget(picture)
    , m_picture(picture)
    , m_look(look) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(picture->rect());
    picture->installEventFilter(this);
    connect(picture, &PictureWidget::cellsMoved, this, qOverload<>(&QWidget::update));
    lower(); // the cursor's marker lies over it
    hide();
}

void CellMarks::mark(std::vector<Rect> cells) {
    const auto updateThose = [this](const std::vector<Rect>& changed, const std::vector<Rect>& others) {
        for (const Rect& cell : changed) {
            if (std::ranges::find(others, cell) == others.end()) {
                update(m_picture->areaOf(cell));
            }
        }
    };
    updateThose(m_cells, cells);
    updateThose(cells, m_cells);
    m_cells = std::move(cells);
    setVisible(!m_cells.empty());
}

bool CellMarks::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_picture && event->type() == QEvent::Resize) {
        setGeometry(m_picture->rect());
    }
    return QWidget::eventFilter(watched, event);
}

void CellMarks::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (m_look == Look::Lines) {
        paintLines(painter, event->rect());
    } else {
        paintShade(painter);
    }
}

void CellMarks::paintLines(QPainter& painter, const QRect& area) const {
    const qreal scale = DeviceScale(painter);
    const QPointF corner = DeviceCorner(painter);
    PaintFrom(painter, QPoint(0, 0), 1);
    for (const Rect& cell : m_cells) {
        if (m_picture->isInView(cell) && m_picture->areaOf(cell).intersects(area)) {
            QRect line = m_picture->pixelsOf(cell, corner, scale);
            const int thickness = std::max(1, line.height() * MarkThickness / cell.height);
            line.setTop(line.bottom() + 1 - thickness);
            painter.fillRect(line, MarkColour);
        }
    }
}

void CellMarks::paintShade(QPainter& painter) const {
    const qreal scale = DeviceScale(painter);
    const QPointF corner = DeviceCorner(painter);
    QRegion shaded = m_picture->pixelsOf(m_picture->picture()->bounds(), corner, scale);
    for (const Rect& cell : m_cells) {
        shaded -= m_picture->pixelsOf(cell, corner, scale);
    }
    PaintFrom(painter, QPoint(0, 0), 1);
    for (const QRect& part : shaded) {
        painter.fillRect(part, ShadeColour);
    }
}

} // namespace ui::qt
