// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <QWidget>
#include <vector>

class QPainter;

namespace ui::qt {

class PictureWidget;

/// Marks cells of the picture that it lies on, by thin lines below them or by a shade over all others. The
/// mouse passes through. Without a mark it is hidden, and costs nothing.
class CellMarks final : public QWidget {
    Q_OBJECT

public:
    enum class Look { Lines, Shade };

    /// No marks over `picture`, hidden.
    explicit CellMarks(PictureWidget* picture, Look look = Look::Lines);

    /// Marks these parts of the picture, each a cell, and no others.
    void mark(std::vector<Rect> cells);

    [[nodiscard]] const std::vector<Rect>& cells() const { return m_cells; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void paintLines(QPainter& painter, const QRect& area) const;
    void paintShade(QPainter& painter) const;

    PictureWidget* m_picture;
    Look m_look;
    std::vector<Rect> m_cells;
};

} // namespace ui::qt
