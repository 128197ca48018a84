// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QLabel>

namespace shell {

/// A box that shows a colour and can be clicked.
class ColourBox final : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QColor colour READ colour WRITE setColour)

public:
    explicit ColourBox(QWidget* parent = nullptr);

    [[nodiscard]] QColor colour() const { return m_colour; }

    void setColour(const QColor& colour);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_colour;
};

/// The frame around a key's glyph, which is its child; it can be clicked and reached by the keyboard.
class KeyStrip final : public QAbstractButton {
    Q_OBJECT

public:
    explicit KeyStrip(QWidget* parent = nullptr);

    /// Side of the glyph's picture in pixels.
    static constexpr int GlyphSide = 48;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A label that never makes its parent wider: a text that does not fit is shown with an ellipsis.
class ElidedLabel final : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace shell
