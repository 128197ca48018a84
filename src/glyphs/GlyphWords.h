// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"

#include <optional>
#include <span>
#include <string>

namespace glyphs {

/// What a glyph shows: "a, second color". ASCII.
[[nodiscard]] std::string GlyphWords(GlyphCode code);

/// A glyph in words, for those who cannot see it: "code 225, a, second color". The ordinary blank is just
/// "blank". ASCII.
[[nodiscard]] std::string GlyphName(GlyphCode code);

/// The glyph that shows the same in the other colour; nothing for blanks and for the slider, which have one.
[[nodiscard]] std::optional<GlyphCode> OtherColourOf(GlyphCode code);

/// A row as it reads aloud, whatever the colours: letters, digits and signs as characters, other glyphs as
/// the signs that resemble them, without the blanks at its right end; "blank" when nothing is left. ASCII.
[[nodiscard]] std::string ReadableRow(std::span<const GlyphCode> row);

} // namespace glyphs
