// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <QWidget>
#include <vector>

namespace ui::qt {

class PictureWidget;

/// Thin lines below cells of the picture that it lies on, through which the mouse passes. Without a mark it
/// is hidden, and costs nothing.
class CellMarks final : public QWidget {
    Q_OBJECT

public:
    /// No marks over `picture`, hidden.
    explicit CellMarks(PictureWidget* picture);

    /// Marks these parts of the picture, each a cell, and no others.
    void mark(std::vector<Rect> cells);

    [[nodiscard]] const std::vector<Rect>& cells() const { return m_cells; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    PictureWidget* m_picture;
    std::vector<Rect> m_cells;
};

} // namespace ui::qt
