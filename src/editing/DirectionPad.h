// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <optional>

namespace editing {

/// The on-screen direction pad: four arrows that act like the arrow keys while they are pressed, and that
/// show which arrow key is in use.
class DirectionPad : public QWidget {
    Q_OBJECT

public:
    /// `name` becomes the objectName; the timer that repeats a held arrow is named `imgTimer`.
    explicit DirectionPad(QWidget* parent = nullptr);

    /// Shows an arrow key's press for a moment; other keys change nothing.
    void showKey(int virtualKey);

    /// The arrow that is shown pressed, as a virtual key.
    [[nodiscard]] std::optional<int> pressedKey() const;

    static constexpr int ArrowCount = 4;

    /// What an arrow (0 to 3) does, in words.
    [[nodiscard]] static QString arrowName(int index);

    [[nodiscard]] static QRect arrowRect(int index);

    /// Presses an arrow and lets it go.
    void pressArrow(int index);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// An arrow was pressed, or is held and repeats: the virtual key of the arrow.
    void arrow(int virtualKey);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void imgTimer_Timer();
    void press(std::optional<std::size_t> index);

    std::optional<std::size_t> m_pressed;
    bool m_isHeld = false;
    QTimer m_repeat;
};

} // namespace editing
