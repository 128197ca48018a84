// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Change.h"
#include "glyphs/mdlPaint.h"

namespace editing {

/// The three pages' pictures.
struct PagePictures {
    glyphs::PagePicture name{NameLength, 1};
    glyphs::PagePicture animation{NameLength, MaxNames};
    glyphs::PagePicture messages{MessageLength, MessageCount};

    [[nodiscard]] glyphs::PagePicture& of(Page page) {
        return *std::array{&name, &animation, &messages}[static_cast<std::size_t>(page)];
    }
};

/// What pages are painted with. Everything is borrowed and outlives the call.
struct PagePainter {
    Documents& documents;
    const glyphs::GlyphAtlas& atlas;
    PagePictures& pictures;
    ui::SoundPlayer& sounds;
    const glyphs::SoundOptions& soundOptions;
    glyphs::Progress& progress;
};

/// Lets a page's picture follow its document: moves the painted cells that moved as a block, paints those
/// that changed, and damages both. Plays the sound that goes with the change.
void ShowChange(const PagePainter& painter, const Change& change);

/// Repaints a whole page from its document: sound 104, progress by the cell. Only the rows in use are
/// painted.
void PaintPage(const PagePainter& painter, Page page);

/// Paints the rows from `first` to the last one in use, silently: for the first showing, and for names that
/// come into use, as rows out of use are not kept painted.
void PaintRowsFrom(const PagePainter& painter, Page page, int first);

} // namespace editing
