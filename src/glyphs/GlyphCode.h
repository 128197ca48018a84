// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace glyphs {

/// A glyph of the game's character set: 0 to 255. Codes 128 to 255 show the artwork of 0 to 127 in colour 2.
using GlyphCode = std::int16_t;

/// The glyph that fills every unused cell.
constexpr GlyphCode BlankGlyph = 32;

constexpr int GlyphCount = 256;

/// How far a glyph of colour 2 lies behind the one that shows the same in colour 1.
constexpr GlyphCode ColourDistance = 128;

} // namespace glyphs
