// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/StripMover.h"

#include <QMouseEvent>
#include <QShortcut>

#include <array>
#include <cmath>
#include <utility>

namespace animation {

StripMover::StripMover(QWidget* strip, QWidget* window, std::optional<BoardLine> line)
    : QObject(window)
    , m_strip(strip)
    , m_line(line) {
    strip->installEventFilter(this);
    strip->setCursor(Qt::SizeAllCursor);
    const std::array<std::pair<Qt::Key, QPoint>, 4> steps = {
        {{Qt::Key_Left, {-1, 0}}, {Qt::Key_Right, {1, 0}}, {Qt::Key_Up, {0, -1}}, {Qt::Key_Down, {0, 1}}}};
    for (const auto& [key, step] : steps) {
        connect(
            new QShortcut(QKeySequence(Qt::CTRL | key), window), &QShortcut::activated, this,
            [this, by = step] {
                // The least that is seen.
                choose(BoardLine{
                    m_layout.line.x + by.x() * m_layout.reduce, m_layout.line.y + by.y() * m_layout.reduce});
            });
    }
    connect(
        new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Home), window), &QShortcut::activated, this,
        [this] { choose({}); });
}

void StripMover::follow(const RankingsLayout& layout) {
    m_layout = layout;
    if (m_line) {
        m_line = layout.line;
    }
}

bool StripMover::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        m_pressed.reset();
        choose({});
        return true;
    case QEvent::MouseButtonPress:
        if (const auto& mouse = static_cast<const QMouseEvent&>(*event); mouse.button() == Qt::LeftButton) {
            m_pressed = mouse.globalPosition().toPoint();
            m_from = m_layout.line;
        }
        return true;
    case QEvent::MouseMove:
        if (m_pressed) {
            const QPoint by = static_cast<const QMouseEvent&>(*event).globalPosition().toPoint() - *m_pressed;
            const double pixel = m_strip->devicePixelRatioF() * m_layout.reduce / m_layout.enlarge;
            choose(BoardLine{
                m_from.x + static_cast<int>(std::lround(by.x() * pixel)),
                m_from.y + static_cast<int>(std::lround(by.y() * pixel))});
        }
        return true;
    case QEvent::MouseButtonRelease:
        m_pressed.reset();
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

void StripMover::choose(std::optional<BoardLine> line) {
    if (line != m_line) {
        m_line = line;
        Q_EMIT moved();
    }
}

} // namespace animation
