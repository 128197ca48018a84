// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/RankingsLayout.h"

#include <QObject>
#include <QPoint>
#include <QWidget>

#include <optional>

namespace animation {

/// Moves the preview's strip to another line of the screenshot: by dragging, and by Ctrl and the arrow keys.
/// A double click and Ctrl+Home put it back.
class StripMover final : public QObject {
    Q_OBJECT

public:
    /// Watches the strip, and the keys of its window.
    StripMover(QWidget* strip, QWidget* window, std::optional<BoardLine> line);

    /// The line that was chosen; none: it stands where it does at first.
    [[nodiscard]] const std::optional<BoardLine>& line() const { return m_line; }

    /// Takes over where the strip has come to stand.
    void follow(const RankingsLayout& layout);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Another line was chosen.
    void moved();

private:
    void choose(std::optional<BoardLine> line);

    QWidget* m_strip;
    std::optional<BoardLine> m_line;
    RankingsLayout m_layout;
    std::optional<QPoint> m_pressed; ///< where on the screen it was taken hold of
    BoardLine m_from;                ///< where it stood then
};

} // namespace animation
