// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <QPoint>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

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

/// Shows a picture, one picture pixel a logical pixel, straight from the picture's memory. As large as its
/// picture. On a screen that is scaled, every block of the picture (see setBlock) is drawn with the same
/// whole number of the screen's pixels, see BlockPixels; where that is not the scale itself, the widget is
/// larger or smaller than its picture has pixels, and its last pixel may be background in part.
///
/// Rectangles and positions of the picture are in its own pixels, whatever the scale.
class PictureWidget final : public QWidget {
    Q_OBJECT

public:
    explicit PictureWidget(QWidget* parent = nullptr);

    /// Shows `picture`, which is not copied and outlives this widget or the next call; null shows nothing.
    void setPicture(const Picture* picture);

    [[nodiscard]] const Picture* picture() const { return m_picture; }

    /// Takes the size that the picture has on the screen. It does so by itself once it is shown.
    void fitPicture();

    /// Tells the side of the squares that the picture is made of, in its pixels: an artwork that was enlarged
    /// has one for each of its own pixels. 1 at first. They are drawn with `pixels` pixels of the screen, or
    /// with as many as BlockPixels says.
    void setBlock(int side, std::optional<int> pixels = std::nullopt);

    /// Draws every block with `zoom` times as many pixels of the screen. 1 at first.
    void setZoom(int zoom) {
        m_zoom = zoom;
        fitPicture();
    }

    [[nodiscard]] int zoom() const { return m_zoom; }

    /// What the part in view would take more of its parent at another zoom.
    [[nodiscard]] QSize growthTo(int zoom) const { return sizeOf(viewPart(), zoom) - viewSize(); }

    /// Shows only a part of the picture, `height` pixels from `top` on, which begins at the left upper corner
    /// of its parent, or `shift` pixels of the screen away from it. Another `top` repaints only what comes
    /// into view.
    void setView(int top, int height, QPoint shift = {});

    /// What the part in view takes of its parent, in logical pixels.
    [[nodiscard]] QSize viewSize() const { return sizeOf(viewPart(), m_zoom); }

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

    /// Where a cell is, in logical pixels.
    [[nodiscard]] QRect cellRect(int row, int column) const;

    /// The part of the picture that is a cell.
    [[nodiscard]] Rect cellPart(int row, int column) const;

    /// Acts as if the cell were pressed.
    void pressCell(int row, int column);

    [[nodiscard]] bool isInView(const Rect& part) const;

    /// The least area in logical pixels that shows a part of the picture.
    [[nodiscard]] QRect areaOf(const Rect& part) const;

    /// The pixels of a screen that show a part of the picture. The widget begins at `corner` of that screen,
    /// one logical pixel is `scale` of its pixels.
    [[nodiscard]] QRect pixelsOf(const Rect& part, const QPointF& corner, qreal scale) const;

    /// Says which cell the cursor is in; 0, 0 for none. Moves no marker.
    void setCurrentCell(int row, int column);

    [[nodiscard]] int currentRow() const { return m_currentRow; }

    [[nodiscard]] int currentColumn() const { return m_currentColumn; }

    /// Tells assistive tools that rows came into use or went out of it.
    void announceRows();

    /// Whether pointerMoved() is sent without a button held as well. Off at first.
    void setHoverTracking(bool on) { setMouseTracking(on); }

Q_SIGNALS:
    /// Its size has changed: the picture is another, or the screen.
    void fitted();

    /// The place of its cells in the widget has changed.
    void cellsMoved();

    /// A mouse button went down on a pixel of the picture. The second press of a double click is one too.
    void pressed(QPoint pixel, Qt::MouseButton button);

    /// The second press of a double click, after it was told as a press.
    void pressedTwice(QPoint pixel, Qt::MouseButton button);

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
    void placeView();
    [[nodiscard]] Rect viewPart() const;
    [[nodiscard]] qreal pixelSide() const; ///< of a pixel of the picture, in logical pixels
    [[nodiscard]] QSize sizeOf(const Rect& part, int zoom) const;
    [[nodiscard]] QRectF placeOf(const Rect& part) const;
    [[nodiscard]] QPoint originAt(const QPointF& corner, qreal scale) const;
    [[nodiscard]] QPoint pixelAt(const QPointF& position) const;
    void announceCurrentCell();
    void announceCells(const Rect& damage);
    bool showToolTip(const QPoint& position, const QPoint& global);

    const Picture* m_picture = nullptr;
    int m_block = 1;
    qreal m_scale = 1;     ///< of the screen
    int m_blockPixels = 1; ///< of the screen, for a side of a block
    std::optional<int> m_fixedBlockPixels;
    int m_zoom = 1;
    int m_viewTop = 0;
    int m_viewHeight = 0; ///< 0: the whole picture is in view
    QPoint m_viewShift;   ///< in pixels of the screen
    PictureCells m_cells;
    int m_currentRow = 0;
    int m_currentColumn = 0;
};

} // namespace ui::qt
