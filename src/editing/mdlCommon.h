// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "glyphs/mdlPaint.h"

namespace editing {

/// The cursor of the page in view: references into its document, with its bounds.
struct PageCursor {
    GlyphRows rows;
    int& column; ///< 1 to rows.width()
    int& row;    ///< 1 to rowsInUse
    int rowsInUse;
};

/// The three pages' pictures.
struct PagePictures {
    glyphs::PagePicture name{NameLength, 1};
    glyphs::PagePicture animation{NameLength, MaxNames};
    glyphs::PagePicture messages{MessageLength, MessageCount};

    [[nodiscard]] glyphs::PagePicture& of(Page page);
};

/// What the editing operations work with. Everything is borrowed and outlives the call.
struct EditContext {
    Documents& documents;
    Page page; ///< the page in view
    const Modes& modes;
    const glyphs::GlyphAtlas& atlas;
    PagePictures& pictures;
    ui::SoundPlayer& sounds;
    const glyphs::SoundOptions& soundOptions;
};

/// The cursor of a page. The name page's row is always 1.
[[nodiscard]] PageCursor CursorOf(Documents& documents, Page page);

/// All 90 rows become blank, all 90 tick counts 2; the number of names and the cursor stay.
void NewAnimation(AnimationDocument& animation);
void ClearName(NameDocument& name);
void ClearMessages(MessageDocument& messages);

/// Move the cursor one column. The caller has tested the bounds.
void CursorRight(PageCursor& cursor);
void CursorLeft(PageCursor& cursor);

/// Places a glyph at the cursor of the page in view, in colour 2 and by shifting the row if the modes say so,
/// and paints what changed. Overwriting moves the cursor on, up to the last cell; inserting never moves it.
/// Returns whether it was placed: glyph 0 is not, and has no effect at all.
bool PutGlyph(const EditContext& context, GlyphCode code);

/// Removes the glyph at the cursor of the page in view: the rest of the row closes up. The cursor stays.
void DeleteGlyph(const EditContext& context);

/// Puts the cursor of a page into the cell under a position in its picture (pixels); positions outside count
/// as the nearest cell in use.
void PlaceCursor(PageCursor& cursor, int x, int y);

/// Repaint a whole page from its document: sound 104, progress by the cell. Only the rows in use are painted.
void PaintNamePage(const EditContext& context, glyphs::Progress& progress);
void PaintAnimationPage(const EditContext& context, glyphs::Progress& progress);
void PaintMessagePage(const EditContext& context, glyphs::Progress& progress);

/// Paints the cells of one row of a page, silently.
void PaintRow(const EditContext& context, Page page, int row);

/// Paints all rows in use of a page, silently: the first showing at start.
void PaintRowsInUse(const EditContext& context, Page page);

} // namespace editing
