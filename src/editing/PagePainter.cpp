// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/PagePainter.h"

#include "editing/mdlCommon.h"

namespace editing {

using glyphs::CellSide;

namespace {

void PaintCells(const PagePainter& painter, Page page, const CellBlock& block) {
    const GlyphRows rows = CursorOf(painter.documents, page).rows;
    glyphs::PagePicture& picture = painter.pictures.of(page);
    for (int row = block.row; row < block.row + block.rows; ++row) {
        for (int column = block.column; column < block.column + block.columns; ++column) {
            glyphs::PaintGlyph(picture.canvas(), painter.atlas, rows.cell(row, column), column, row);
        }
    }
    picture.damageCells(block.column, block.row, block.columns, block.rows);
}

void MoveCells(glyphs::PagePicture& picture, const CellBlock& block, int byColumns, int byRows) {
    const int x = (block.column - 1) * CellSide;
    const int y = (block.row - 1) * CellSide;
    glyphs::BlitCells(
        picture.canvas(), x + byColumns * CellSide, y + byRows * CellSide, block.columns * CellSide,
        block.rows * CellSide, picture.canvas(), x, y);
    picture.damageCells(block.column + byColumns, block.row + byRows, block.columns, block.rows);
}

} // namespace

void ShowChange(const PagePainter& painter, const Change& change) {
    if (change.kind == Change::Kind::WholePage) {
        return PaintPage(painter, change.page);
    }
    if (change.kind == Change::Kind::PlacedGlyph) {
        glyphs::PlaySoundResource(painter.sounds, painter.soundOptions, glyphs::GlyphPlacedSound);
    }
    MoveCells(painter.pictures.of(change.page), change.moved, change.byColumns, change.byRows);
    PaintCells(painter, change.page, change.changed);
}

void PaintPage(const PagePainter& painter, Page page) {
    glyphs::PlaySoundResource(painter.sounds, painter.soundOptions, glyphs::PagePaintedSound);
    const PageCursor cursor = CursorOf(painter.documents, page);
    glyphs::PagePicture& picture = painter.pictures.of(page);
    painter.progress.ProgressStart(1, cursor.rowsInUse * cursor.rows.width(), 1);
    for (int row = 1; row <= cursor.rowsInUse; ++row) {
        for (int column = 1; column <= cursor.rows.width(); ++column) {
            painter.progress.ProgressStep();
            glyphs::PaintGlyph(picture.canvas(), painter.atlas, cursor.rows.cell(row, column), column, row);
        }
    }
    painter.progress.setCurrent(1);
    painter.progress.ProgressStep();
    picture.damageAll();
}

void PaintRowsFrom(const PagePainter& painter, Page page, int first) {
    const PageCursor cursor = CursorOf(painter.documents, page);
    PaintCells(painter, page, {1, first, cursor.rows.width(), cursor.rowsInUse - first + 1});
}

} // namespace editing
