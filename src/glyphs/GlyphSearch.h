// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "ui/TextCharacter.h"

#include <span>
#include <string_view>
#include <vector>

namespace glyphs {

/// The glyphs that fit what is looked for, in order of their codes: a number of a glyph ("29"), a character
/// ("g", in either colour) or the beginnings of words that its description holds ("gold dig"), in any order
/// and case. Common names of signs stand for the ones used here ("hash" for number sign). None fits a blank
/// text.
[[nodiscard]] std::vector<GlyphCode> FindGlyphs(std::string_view wanted);

/// The same for any text: a single character that is not ASCII is looked for by its looks, in either colour.
[[nodiscard]] std::vector<GlyphCode> FindGlyphs(std::span<const ui::TextCharacter> wanted);

} // namespace glyphs
