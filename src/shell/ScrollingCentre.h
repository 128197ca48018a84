// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/ZoomFit.h"

#include <QScrollArea>

namespace shell {

class GlyphColumn;
class PageColumn;

/// What the main window holds between its bars: two columns. Where the screen is too small for that, it is
/// scrolled: nothing of it gets out of reach.
class ScrollingCentre final : public QScrollArea {
    Q_OBJECT

public:
    static constexpr int Margin = 12; ///< around the columns; less beside them where the window is narrow

    /// Takes the columns in, the left one with the height that it wants.
    ScrollingCentre(GlyphColumn& left, PageColumn& right, QWidget* parent);

    /// Shows the grid and the pages `zoom` times as large, 1 to MaxZoom; FitZoom: as large as there is room.
    void setZoom(int zoom);

    /// The layouts learn what their content wants at the scale of the screen, pages out of view as well.
    void settle();

    /// The height that a scroll bar takes when there is room for this width only; 0: none is needed.
    [[nodiscard]] int barHeight(int width) const;

    /// Scrolls until the visible part of a widget in it is in view.
    void follow(const QWidget& part);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Fitting { Anew, ToLessOnly };

    void applyZoom(Fitting fitting);
    [[nodiscard]] Zooms fittingZooms(Fitting fitting) const;
    void activateLayouts() const;
    [[nodiscard]] QSize leastSize() const; ///< of the content

    GlyphColumn& m_glyphColumn;
    PageColumn& m_pageColumn;
    int m_zoom = 1;
    Zooms m_zooms = EqualZooms(1);
};

} // namespace shell
