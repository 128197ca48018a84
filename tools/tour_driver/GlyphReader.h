// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/mdlPaint.h"
#include "ui/Picture.h"

#include <optional>
#include <string_view>

namespace tour {

struct Position {
    int x = 0;
    int y = 0;
};

/// Finds glyphs in a picture of the screen. The outermost pixels of a cell do not count: a cursor may be
/// drawn over them.
class GlyphReader {
public:
    /// `halves`: how many pixels of the screen two pixels of a glyph are wide.
    GlyphReader(ui::Picture atlasCells, int halves);

    /// Where a row of glyphs is, the codes given as bytes; the first of them is not blank.
    [[nodiscard]] std::optional<Position>
    find(const ui::Picture& screen, const ui::Rect& area, std::string_view codes) const;

    /// Whether a row of glyphs is at a position.
    [[nodiscard]] bool matches(const ui::Picture& screen, Position position, std::string_view codes) const;

    /// Side of a cell on the screen.
    [[nodiscard]] int cellSide() const { return glyphs::CellSide * m_halves / 2; }

private:
    [[nodiscard]] bool matchesCell(const ui::Picture& screen, int x, int y, unsigned char code) const;

    ui::Picture m_cells;
    int m_halves;
};

} // namespace tour
