// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"

namespace glyphs {

/// What a case operation does with glyphs that are not letters: the setting "casechoice".
enum class CaseChoice {
    LettersOnly,   ///< they stay
    AllCharacters, ///< they change as the keys of a US keyboard do with Shift
};

/// The case and colour of single glyphs. Each returns its input where no rule applies.

[[nodiscard]] GlyphCode ToUpperGlyph(GlyphCode code, CaseChoice choice);
[[nodiscard]] GlyphCode ToLowerGlyph(GlyphCode code, CaseChoice choice);
[[nodiscard]] GlyphCode SwitchCaseGlyph(GlyphCode code, CaseChoice choice);

/// Codes 139 and 161 to 255 move to colour 1.
[[nodiscard]] GlyphCode ToColor1Glyph(GlyphCode code);
/// Codes 11 and 33 to 127 move to colour 2.
[[nodiscard]] GlyphCode ToColor2Glyph(GlyphCode code);
[[nodiscard]] GlyphCode SwitchColorGlyph(GlyphCode code);

/// Digits and punctuation of colour 1: from a key's unshifted to its shifted symbol.
[[nodiscard]] GlyphCode ShiftPunctuation(GlyphCode code);
/// The other way round.
[[nodiscard]] GlyphCode UnshiftPunctuation(GlyphCode code);
/// Both ways; in addition 39 becomes 126, which never comes back.
[[nodiscard]] GlyphCode SwitchPunctuation(GlyphCode code);

/// A glyph picked on a grid, before it is used: 0 if it may not stand in a name, 141 for 13, otherwise
/// itself.
[[nodiscard]] GlyphCode FilterPickedGlyph(GlyphCode code);

} // namespace glyphs
