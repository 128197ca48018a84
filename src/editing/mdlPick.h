// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"

#include <array>

namespace editing {

/// The three glyphs that occur most often in the rows in use of every page, most frequent first; of equally
/// frequent ones the lower code goes first. Blanks do not count. 0 where there is no other glyph.
[[nodiscard]] std::array<GlyphCode, 3> FrequentGlyphs(Documents documents);

/// The glyph that is chosen after a press on, or a drag to, a pixel of the picker's grid: the one that stands
/// there if it may be picked, otherwise `chosen` as before.
[[nodiscard]] GlyphCode PickedAt(GlyphCode chosen, int x, int y);

/// The nearest glyph that may be picked, `columns` (-1, 0, 1) and `rows` (-1, 0, 1) away from the chosen one
/// or further on the same way; `chosen` when there is none. The first of the grid when none is chosen (0).
[[nodiscard]] GlyphCode PickedTowards(GlyphCode chosen, int columns, int rows);

/// The last one on that way.
[[nodiscard]] GlyphCode PickedAtEnd(GlyphCode chosen, int columns, int rows);

/// The glyph that shows a typed character (ASCII): in the colour of the chosen one, and in the other if it is
/// chosen already. `chosen` where no glyph may be picked for it.
[[nodiscard]] GlyphCode PickedByCharacter(GlyphCode chosen, char character);

} // namespace editing
