// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "glyphs/mdlPaint.h"
#include "ui/Picture.h"

#include <QAbstractButton>

namespace shell {

/// A button that shows one glyph and acts when a mouse button goes down on it.
class GlyphButton : public QAbstractButton {
    Q_OBJECT

public:
    /// `title` says which button it is, for those who cannot see it.
    explicit GlyphButton(QString title, QWidget* parent = nullptr);

    /// The glyph alone, without the button around it.
    void setBare();

    /// Shows the glyph's artwork.
    void setGlyph(const glyphs::GlyphAtlas& atlas, glyphs::GlyphCode code);

    [[nodiscard]] glyphs::GlyphCode glyph() const { return m_code; }

    /// The 16 x 16 picture that is shown.
    [[nodiscard]] const ui::Picture& picture() const { return m_picture; }

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void mouseDown(Qt::MouseButton button);
    /// The pointer is over it; false: no longer.
    void pointedAt(bool isOver);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString m_title;
    bool m_isBare = false;
    glyphs::GlyphCode m_code = 0;
    ui::Picture m_picture;
};

} // namespace shell
