// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "ui/TextCharacter.h"

#include <span>
#include <string>
#include <vector>

namespace glyphs {

/// The character of Unicode that looks most like a glyph, whatever its colour; a blank for the blanks.
[[nodiscard]] char32_t LookAlikeOf(GlyphCode code);

/// A row as text in UTF-8 that looks like it, without the blanks at its right end.
[[nodiscard]] std::string LookAlikeText(std::span<const GlyphCode> row);

/// A text as glyphs of colour 1.
struct FittedText {
    std::vector<GlyphCode> glyphs;
    std::string unlike;        ///< in UTF-8: the first characters that no glyph looks like, each once
    bool isMoreUnlike = false; ///< whether there are others than these
};

/// How many characters FittedText::unlike holds at most.
constexpr std::size_t MostUnlike = 8;

/// The glyphs that look most like a text: ASCII as it is, the look-alikes of glyphs as these, other letters
/// as those that they resemble. Line ends and all other white space are blanks, and the text ends before
/// those at its end. Of the glyphs that cannot be typed, 0, 13, 34 and 127, others stand in their place.
[[nodiscard]] FittedText FitText(std::span<const ui::TextCharacter> text);

} // namespace glyphs
