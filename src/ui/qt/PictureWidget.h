// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <QPoint>
#include <QString>
#include <QWidget>
#include <functional>

namespace ui::qt {

/// What the cells of a picture hold, in words, for tooltips and for people who hear the screen. Everything is
/// asked for when it is needed. Rows and columns are counted from 1.
struct PictureCells {
    int columns = 0;
    int side = 0;                                         ///< of a cell, in pixels
    std::function<int()> rows;                            ///< how many are in use
    std::function<QString(int row, int column)> cellText; ///< what a cell holds
    std::function<QString(int row, int column)> cellNote; ///< what else is to be said about it; optional
    std::function<QString(int row)> rowText;              ///< a whole row; optional
    std::function<QString(int row, int column)> toolTip;  ///< optional: without it, the widget's own
    bool canBePressed = true;                             ///< whether a press on a cell does something
};

/// Shows a picture, one picture pixel a logical pixel, straight from the picture's memory. On a screen that
/// is scaled every picture pixel stays one block. As large as its picture.
///
/// Inside a smaller parent the parent shows the part of it that its position brings into view; moving it
/// repaints only what comes into view.
class PictureWidget final : public QWidget {
    Q_OBJECT

public:
    explicit PictureWidget(QWidget* parent = nullptr);

    /// Shows `picture`, which is not copied and outlives this widget or the next call; null shows nothing.
    void setPicture(const Picture* picture);

    [[nodiscard]] const Picture* picture() const { return m_picture; }

    /// Shows a part of the picture again after it was painted into.
    void showDamage(const Rect& damage);

    /// The mouse pointer over the picture: 0 none of its own, 1 arrow, 2 cross.
    void setPointer(int style);

    /// Says what the cells hold. Without it the picture is a mere graphic.
    void setCells(PictureCells cells) { m_cells = std::move(cells); }

    [[nodiscard]] bool hasCells() const { return m_cells.columns > 0; }

    [[nodiscard]] const PictureCells& cells() const { return m_cells; }

    /// The index of a cell counted row by row from 0; -1 for a cell that is not in use.
    [[nodiscard]] int cellIndex(int row, int column) const;

    [[nodiscard]] QRect cellRect(int row, int column) const;

    /// Says which cell the cursor is in; 0, 0 for none. Moves no marker.
    void setCurrentCell(int row, int column);

    [[nodiscard]] int currentRow() const { return m_currentRow; }

    [[nodiscard]] int currentColumn() const { return m_currentColumn; }

    /// Tells assistive tools that rows came into use or went out of it.
    void announceRows();

    /// Whether pointerMoved() is sent without a button held as well. Off at first.
    void setHoverTracking(bool on) { setMouseTracking(on); }

Q_SIGNALS:
    /// A mouse button went down on a pixel of the picture. The second press of a double click is one too.
    void pressed(QPoint pixel, Qt::MouseButton button);

    /// The pointer moved to a pixel, which lies outside the picture when a button was held on leaving it.
    void pointerMoved(QPoint pixel, Qt::MouseButtons buttons);

    void pointerLeft();

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void fitPicture();
    void announceCurrentCell();
    void announceCells(const Rect& damage);
    bool showToolTip(const QPoint& pixel, const QPoint& global);

    const Picture* m_picture = nullptr;
    PictureCells m_cells;
    int m_currentRow = 0;
    int m_currentColumn = 0;
};

} // namespace ui::qt
