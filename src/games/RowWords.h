// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/RowVerdict.h"

#include <string>
#include <string_view>
#include <vector>

namespace games {

/// One short sentence, without a full stop, of what becomes of a row.
struct RowWords {
    std::string text;
    bool showsRow = false; ///< the row as it is seen stands behind it
};

/// A verdict in words. `row`: what it was made of.
[[nodiscard]] RowWords WordsOf(const RowVerdict& verdict, std::span<const GlyphCode> row);

/// What one engine does, other than its family.
struct EngineNote {
    int column;            ///< of the first glyph that it is about, from 1
    std::string_view text; ///< goes on behind the engine's name
    Sighting seen;
};

/// What engines of a family do to a row on their own. Station::Message: it is a message, else a name.
[[nodiscard]] std::vector<EngineNote> NotesOn(Family family, Station station, std::span<const GlyphCode> row);

} // namespace games
