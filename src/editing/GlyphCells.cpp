// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/GlyphCells.h"

#include "glyphs/GlyphWords.h"
#include "glyphs/mdlPaint.h"

#include <utility>

namespace editing {

namespace {

constexpr int Side = glyphs::AtlasSide / glyphs::CellSide; // glyphs in a row

} // namespace

glyphs::GlyphCode GridGlyph(int row, int column) {
    return static_cast<glyphs::GlyphCode>((row - 1) * Side + column - 1);
}

ui::qt::PictureCells GlyphGridCells(bool canBePressed, std::function<QString(glyphs::GlyphCode)> glyphText) {
    ui::qt::PictureCells cells;
    cells.columns = Side;
    cells.side = glyphs::CellSide;
    cells.rows = [] {
        return Side;
    };
    cells.cellText = [](int row, int column) {
        return QString::fromStdString(glyphs::GlyphName(GridGlyph(row, column)));
    };
    if (glyphText) {
        cells.toolTip = [text = std::move(glyphText)](int row, int column) {
            return text(GridGlyph(row, column));
        };
    }
    cells.canBePressed = canBePressed;
    return cells;
}

ui::Rect GridCell(glyphs::GlyphCode code) {
    return {
        code % Side * glyphs::CellSide, code / Side * glyphs::CellSide, glyphs::CellSide, glyphs::CellSide};
}

void SetCurrentGlyph(ui::qt::PictureWidget& grid, glyphs::GlyphCode code) {
    if (code == 0) {
        grid.setCurrentCell(0, 0);
    } else {
        grid.setCurrentCell(code / Side + 1, code % Side + 1);
    }
}

} // namespace editing
