// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <QPoint>
#include <QWidget>

namespace ui::qt {

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

    /// Whether pointerMoved() is sent without a button held as well. Off at first.
    void setHoverTracking(bool on) { setMouseTracking(on); }

Q_SIGNALS:
    /// A mouse button went down on a pixel of the picture. The second press of a double click is one too.
    void pressed(QPoint pixel, Qt::MouseButton button);

    /// The pointer moved to a pixel, which lies outside the picture when a button was held on leaving it.
    void pointerMoved(QPoint pixel, Qt::MouseButtons buttons);

    void pointerLeft();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void fitPicture();

    const Picture* m_picture = nullptr;
};

} // namespace ui::qt
