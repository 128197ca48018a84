// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/PagePainter.h"
#include "editing/mdlCommon.h"

namespace support {

/// The first lines of a picture.
inline ui::Picture TopOf(const ui::Picture& picture, int height) {
    ui::Picture part(picture.width(), height);
    glyphs::BlitCells(part, 0, 0, picture.width(), height, picture, 0, 0);
    return part;
}

/// Whether the pictures of all pages show exactly the rows in use of their documents.
inline bool ArePaintedLike(
    editing::Documents& documents, editing::PagePictures& pictures, const glyphs::GlyphAtlas& atlas) {
    editing::PagePictures expected;
    for (const editing::Page page :
         {editing::Page::Name, editing::Page::Animation, editing::Page::Messages}) {
        const editing::PageCursor cursor = editing::CursorOf(documents, page);
        for (int row = 1; row <= cursor.rowsInUse; ++row) {
            for (int column = 1; column <= cursor.rows.width(); ++column) {
                glyphs::PaintGlyph(
                    expected.of(page).canvas(), atlas, cursor.rows.cell(row, column), column, row);
            }
        }
        const int height = cursor.rowsInUse * glyphs::CellSide;
        if (TopOf(pictures.of(page).pixels(), height) != TopOf(expected.of(page).pixels(), height)) {
            return false;
        }
    }
    return true;
}

} // namespace support
