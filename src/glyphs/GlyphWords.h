// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"

#include <span>
#include <string>

namespace glyphs {

/// A glyph in words, for those who cannot see it: "code 225, a, second color". The ordinary blank is just
/// "blank". ASCII.
[[nodiscard]] std::string GlyphName(GlyphCode code);

/// A row as it reads aloud, whatever the colours: letters, digits and signs as characters, other glyphs as
/// the signs that resemble them, without the blanks at its right end; "blank" when nothing is left. ASCII.
[[nodiscard]] std::string ReadableRow(std::span<const GlyphCode> row);

} // namespace glyphs
