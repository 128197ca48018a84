// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlCommon.h"

#include "glyphs/mdlSwitches.h"

#include <algorithm>

namespace editing {

using glyphs::BlankGlyph;
using glyphs::BlitCells;
using glyphs::CellSide;

namespace {

/// Moves `count` painted cells of a row from column `from` on to column `to` on.
void MovePaintedCells(ui::Picture& picture, int row, int from, int to, int count) {
    const int top = (row - 1) * CellSide;
    BlitCells(
        picture, (to - 1) * CellSide, top, count * CellSide, CellSide, picture, (from - 1) * CellSide, top);
}

void PaintWholePage(const EditContext& context, Page page, glyphs::Progress& progress) {
    glyphs::PlaySoundResource(context.sounds, context.soundOptions, glyphs::PagePaintedSound);
    const PageCursor cursor = CursorOf(context.documents, page);
    glyphs::PagePicture& picture = context.pictures.of(page);
    progress.ProgressStart(1, cursor.rowsInUse * cursor.rows.width(), 1);
    for (int row = 1; row <= cursor.rowsInUse; ++row) {
        for (int column = 1; column <= cursor.rows.width(); ++column) {
            progress.ProgressStep();
            glyphs::PaintGlyph(picture.canvas(), context.atlas, cursor.rows.cell(row, column), column, row);
        }
    }
    progress.setCurrent(1);
    progress.ProgressStep();
    picture.damageAll();
}

} // namespace

glyphs::PagePicture& PagePictures::of(Page page) {
    switch (page) {
    case Page::Animation:
        return animation;
    case Page::Messages:
        return messages;
    case Page::Name:
        break;
    }
    return name;
}

PageCursor CursorOf(Documents& documents, Page page) {
    switch (page) {
    case Page::Animation: {
        AnimationDocument& animation = documents.animation;
        return {animation.rows(), animation.cursorPos, animation.currentName, animation.nameCount};
    }
    case Page::Messages: {
        MessageDocument& messages = documents.messages;
        return {messages.rows(), messages.cursorPos, messages.currentMessage, MessageCount};
    }
    case Page::Name:
        break;
    }
    NameDocument& name = documents.name;
    return {name.rows(), name.cursorPos, name.currentRow, 1};
}

void NewAnimation(AnimationDocument& animation) {
    animation.nameGlyphs.fill(BlankGlyph);
    animation.nameTicks.fill(InitialTicks);
}

void ClearName(NameDocument& name) {
    name.cells.fill(BlankGlyph);
}

void ClearMessages(MessageDocument& messages) {
    messages.cells.fill(BlankGlyph);
}

void CursorRight(PageCursor& cursor) {
    ++cursor.column;
}

void CursorLeft(PageCursor& cursor) {
    --cursor.column;
}

bool PutGlyph(const EditContext& context, GlyphCode code) {
    if (code == 0) {
        return false;
    }
    const GlyphCode placed = context.modes.typingColour ? glyphs::ToColor2Glyph(code) : code;
    glyphs::PlaySoundResource(context.sounds, context.soundOptions, glyphs::GlyphPlacedSound);

    PageCursor cursor = CursorOf(context.documents, context.page);
    glyphs::PagePicture& picture = context.pictures.of(context.page);
    const int width = cursor.rows.width();
    const int column = cursor.column;
    int changedCells = 1;
    if (context.modes.insert && column < width) {
        const auto cells = cursor.rows.row(cursor.row).subspan(static_cast<std::size_t>(column - 1));
        std::shift_right(cells.begin(), cells.end(), 1);
        MovePaintedCells(picture.canvas(), cursor.row, column, column + 1, width - column);
        changedCells = width - column + 1;
    }
    glyphs::PaintGlyph(picture.canvas(), context.atlas, placed, column, cursor.row);
    cursor.rows.cell(cursor.row, column) = placed;
    picture.damageCells(column, cursor.row, changedCells, 1);

    // Inserting leaves the cursor on the new glyph, so the next one goes in before it: that is how insert
    // mode works.
    if (!context.modes.insert && column < width) {
        CursorRight(cursor);
    }
    return true;
}

void DeleteGlyph(const EditContext& context) {
    const PageCursor cursor = CursorOf(context.documents, context.page);
    glyphs::PagePicture& picture = context.pictures.of(context.page);
    const int width = cursor.rows.width();
    const int column = cursor.column;
    const auto cells = cursor.rows.row(cursor.row).subspan(static_cast<std::size_t>(column - 1));
    std::shift_left(cells.begin(), cells.end(), 1);
    cells.back() = BlankGlyph;
    MovePaintedCells(picture.canvas(), cursor.row, column + 1, column, width - column);
    glyphs::PaintGlyph(picture.canvas(), context.atlas, BlankGlyph, width, cursor.row);
    picture.damageCells(column, cursor.row, width - column + 1, 1);
}

void PlaceCursor(PageCursor& cursor, int x, int y) {
    cursor.column = std::clamp(x / CellSide, 0, cursor.rows.width() - 1) + 1;
    cursor.row = std::clamp(y / CellSide, 0, cursor.rowsInUse - 1) + 1;
}

void PaintNamePage(const EditContext& context, glyphs::Progress& progress) {
    PaintWholePage(context, Page::Name, progress);
}

void PaintAnimationPage(const EditContext& context, glyphs::Progress& progress) {
    PaintWholePage(context, Page::Animation, progress);
}

void PaintMessagePage(const EditContext& context, glyphs::Progress& progress) {
    PaintWholePage(context, Page::Messages, progress);
}

void PaintRow(const EditContext& context, Page page, int row) {
    const PageCursor cursor = CursorOf(context.documents, page);
    glyphs::PagePicture& picture = context.pictures.of(page);
    const int width = cursor.rows.width();
    for (int column = 1; column <= width; ++column) {
        glyphs::PaintGlyph(picture.canvas(), context.atlas, cursor.rows.cell(row, column), column, row);
    }
    picture.damageCells(1, row, width, 1);
}

void PaintRowsInUse(const EditContext& context, Page page) {
    const int rows = CursorOf(context.documents, page).rowsInUse;
    for (int row = 1; row <= rows; ++row) {
        PaintRow(context, page, row);
    }
}

} // namespace editing
