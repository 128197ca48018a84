// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/mdlPaint.h"
#include "shell/GameReport.h"

#include <QWidget>

class QLabel;

namespace ui::qt {
class LineLabel;
class PictureWidget;
} // namespace ui::qt

namespace shell {

/// One of the lines under a page: the family's name, what it makes of the page, and the row that others see.
class GameLineRow final : public QWidget {
    Q_OBJECT

public:
    /// `nameWidth` is where the text begins. The atlas is borrowed and outlives the row.
    GameLineRow(games::Family family, int nameWidth, const glyphs::GlyphAtlas& atlas, QWidget* parent);

    /// The width that a family's name takes, in the font of a widget.
    [[nodiscard]] static int nameWidth(games::Family family, const QWidget& widget);

    [[nodiscard]] games::Family family() const { return m_family; }

    [[nodiscard]] const GameLine& line() const { return m_line; }

    void show(const GameLine& line);

    /// The atlas is another one.
    void showAtlas();

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The line, which is about a cell, was pressed.
    void pressed();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void paleName();
    void makePicture();
    /// Shows the row in place of `before`.
    void showGlyphs(const std::vector<glyphs::GlyphCode>& before);
    /// Paints the cells that show another glyph than `before`, or, without that, all.
    void paintCells(const std::vector<glyphs::GlyphCode>* before);
    /// Draws the row as large as there is room for behind the text.
    void fitPicture();
    /// How many pixels of the screen are a pixel of the artwork then.
    [[nodiscard]] int blockPixels() const;
    /// The place of so many of the screen's pixels, with the border around them.
    [[nodiscard]] int framed(int pixels) const;

    games::Family m_family;
    const glyphs::GlyphAtlas& m_atlas;
    GameLine m_line;
    ui::Picture m_picture;
    QLabel* lblFamily;
    ui::qt::LineLabel* lblGame;
    QWidget* m_frame = nullptr;                ///< made when it is first wanted, with the picture in it
    ui::qt::PictureWidget* picShown = nullptr; ///< as wide as rows get; the frame shows its beginning
};

} // namespace shell
