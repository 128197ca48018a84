// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/mdlKey.h"

#include <string>

namespace editing {

/// What a glyph is, for those who look for one: a short line each. ASCII.
struct GlyphFacts {
    std::string name; ///< "231: g, second color"
    std::string keys; ///< "Keys: F5, Ctrl+7", or that there is none; its other colour, if that is not noted
    std::string note; ///< why it is not placed, or else its number in the other colour; may be empty
};

/// What is to be said of a glyph in the user's key map and typing colour.
[[nodiscard]] GlyphFacts FactsOf(GlyphCode code, const KeyMap& map, const Modes& modes);

/// The same as one text, a line each.
[[nodiscard]] std::string FactsText(const GlyphFacts& facts);

} // namespace editing
