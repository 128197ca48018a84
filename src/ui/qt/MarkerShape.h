// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <QColor>
#include <QWidget>

namespace ui::qt {

class PictureWidget;

/// The rectangle that marks one glyph cell of the picture that it lies on: a broken outline of 16 x 16
/// pixels of the picture, through which the mouse passes. Whatever lies beneath it, it is seen: the gaps of
/// the outline are drawn in the opposite brightness.
class MarkerShape final : public QWidget {
    Q_OBJECT
    Q_PROPERTY(Style style READ style WRITE setStyle)
    Q_PROPERTY(QColor colour READ colour WRITE setColour)

public:
    enum class Style { Dashed, Dotted, Solid };
    Q_ENUM(Style)

    /// Side of the marked cell in pixels of the picture.
    static constexpr int Side = 16;

    /// A marker over `picture`, hidden as yet, that blinks between dotted and `resting`.
    explicit MarkerShape(PictureWidget* picture, Style resting = Style::Dashed);

    [[nodiscard]] Style style() const { return m_style; }

    void setStyle(Style style);

    /// One blink: a dotted outline becomes the resting one, any other becomes dotted.
    void toggleStyle();

    [[nodiscard]] QColor colour() const { return m_colour; }

    void setColour(const QColor& colour);

    /// Moves it onto a cell of the picture (column and row 1-based).
    void moveToCell(int column, int row);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    PictureWidget* m_picture;
    Rect m_cell{0, 0, Side, Side};
    Style m_resting;
    Style m_style;
    QColor m_colour = Qt::green;
};

} // namespace ui::qt
