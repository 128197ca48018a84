// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Change.h"

namespace editing {

/// The rows of a page and its cursor: references into its document, with their bounds.
struct PageCursor {
    Page page;
    GlyphRows rows;
    int& column; ///< 1 to rows.width()
    int& row;    ///< 1 to rowsInUse
    int rowsInUse;

    /// The glyph at the cursor.
    [[nodiscard]] GlyphCode glyph() const { return rows.cell(row, column); }
};

/// The cursor of a page. The name page's row is always 1.
[[nodiscard]] PageCursor CursorOf(Documents& documents, Page page);

/// The change of a whole row.
[[nodiscard]] Change RowChanged(const PageCursor& cursor, int row);

/// All rows of a page's document become blank, in use or not, and all tick counts 2; the number of names and
/// the cursor stay.
Change NewDocument(Documents& documents, Page page);

/// Move the cursor one column. The caller has tested the bounds.
void CursorRight(const PageCursor& cursor);
void CursorLeft(const PageCursor& cursor);

/// Places a glyph at the cursor, in colour 2 and by shifting the row if the modes say so. Overwriting moves
/// the cursor on, up to the last cell; inserting never moves it. Glyph 0 is not placed, and changes nothing.
Change PutGlyph(const PageCursor& cursor, const Modes& modes, GlyphCode code);

/// Places glyphs from the cursor on, in colour 2 and by shifting the row if the modes say so, as many as fit.
/// Overwriting moves the cursor on behind them, up to the last cell; inserting never moves it.
Change PutGlyphs(const PageCursor& cursor, const Modes& modes, std::span<const GlyphCode> codes);

/// How many glyphs fit into the row from the cursor on.
[[nodiscard]] std::size_t RoomFrom(const PageCursor& cursor);

/// Removes the glyph at the cursor: the rest of the row closes up. The cursor stays.
Change DeleteGlyph(const PageCursor& cursor);

/// Puts the cursor of a page into the cell under a position in its picture (pixels); positions outside count
/// as the nearest cell in use.
void PlaceCursor(const PageCursor& cursor, int x, int y);

} // namespace editing
