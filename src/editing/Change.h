// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"

namespace editing {

/// A block of a page's cells; columns and rows count from 1. Empty at first.
struct CellBlock {
    int column = 1;
    int row = 1;
    int columns = 0;
    int rows = 0;

    friend bool operator==(const CellBlock&, const CellBlock&) = default;
};

/// What an operation has changed in a document: what a picture of it has to follow, in this order. Without
/// cells, as at first, nothing has changed that a picture shows.
struct Change {
    enum class Kind {
        Cells,       ///< the cells below, without a sound
        PlacedGlyph, ///< the same by a glyph that was placed, which sounds
        WholePage,   ///< the page is painted from its document, with a sound and progress
    };

    Kind kind = Kind::Cells;
    Page page = Page::Name;
    CellBlock moved{};   ///< cells that only stand elsewhere now: where they stood
    int byColumns = 0;   ///< how far they moved to the right
    int byRows = 0;      ///< how far they moved down
    CellBlock changed{}; ///< cells to be taken from the document

    friend bool operator==(const Change&, const Change&) = default;
};

} // namespace editing
