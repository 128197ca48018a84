// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

/// Watches what a widget is asked to paint: every paint event carries the region that is painted, in the
/// widget's pixels.
class PaintRecorder final : public QObject {
public:
    explicit PaintRecorder(QWidget& widget) { widget.installEventFilter(this); }

    [[nodiscard]] QRegion painted() const { return m_painted; }

    [[nodiscard]] int pixels() const {
        int sum = 0;
        for (const QRect& rect : m_painted) {
            sum += rect.width() * rect.height();
        }
        return sum;
    }

    void forget() { m_painted = {}; }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            m_painted += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }

private:
    QRegion m_painted;
};
