// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/GlyphCells.h"

#include "glyphs/GlyphWords.h"
#include "glyphs/mdlPaint.h"

namespace editing {

namespace {

constexpr int Side = glyphs::AtlasSide / glyphs::CellSide; // glyphs in a row

} // namespace

ui::qt::PictureCells GlyphGridCells(bool canBePressed) {
    ui::qt::PictureCells cells;
    cells.columns = Side;
    cells.side = glyphs::CellSide;
    cells.rows = [] {
        return Side;
    };
    cells.cellText = [](int row, int column) {
        const auto code = static_cast<glyphs::GlyphCode>((row - 1) * Side + column - 1);
        return QString::fromStdString(glyphs::GlyphName(code));
    };
    cells.canBePressed = canBePressed;
    return cells;
}

void SetCurrentGlyph(ui::qt::PictureWidget& grid, glyphs::GlyphCode code) {
    if (code == 0) {
        grid.setCurrentCell(0, 0);
    } else {
        grid.setCurrentCell(code / Side + 1, code % Side + 1);
    }
}

} // namespace editing
