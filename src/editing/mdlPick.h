// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"

#include <array>

namespace editing {

/// The three glyphs that occur most often in the name, the names in use and the three messages, most frequent
/// first; of equally frequent ones the lower code goes first. Blanks do not count. 0 where there is no other
/// glyph.
[[nodiscard]] std::array<GlyphCode, 3> FrequentGlyphs(const Documents& documents);

} // namespace editing
