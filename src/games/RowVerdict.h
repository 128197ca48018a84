// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/CodeRules.h"

#include <array>
#include <span>

namespace games {

/// Who looks at a name.
enum class Audience : std::uint8_t {
    Player, ///< the player himself: what his own game makes of the script
    Others  ///< those who play with him
};

/// What becomes of a cell.
enum class Fate : std::uint8_t {
    Kept,
    Dropped, ///< left out
    Changed, ///< shows another glyph
    Lost,    ///< stands behind the end of the text, or is that end
    Refused  ///< is why the whole row does not arrive
};

/// What becomes of a row.
enum class Outcome : std::uint8_t {
    Kept,     ///< arrives glyph by glyph
    Changed,  ///< arrives as `shown` says
    Replaced, ///< another name, which `shown` holds, takes its place
    Refused   ///< does not arrive; what is seen in its place cannot be told
};

/// What a family makes of a row.
struct RowVerdict {
    /// The longest row that can be judged, in cells.
    static constexpr std::size_t MaxCells = 31;

    Family family{};
    Station station{}; ///< the last one that it was judged at
    Outcome outcome = Outcome::Kept;
    Reason reason = Reason::None;
    Sighting seen{};                               ///< of the rule that decided
    int column = 0;                                ///< of the first cell that is to blame, from 1; 0: none
    std::size_t shownCount = 0;                    ///< glyphs in `shown` that count
    std::array<GlyphCode, MaxCells> shown{};       ///< the row as it is seen
    std::array<Fate, MaxCells> fates{};            ///< of every cell; of blanks at the right end, Kept
    std::array<std::uint8_t, MaxCells> columnOf{}; ///< for every glyph of `shown` its cell, from 1; 0: none

    [[nodiscard]] std::span<const GlyphCode> shownRow() const { return std::span(shown).first(shownCount); }

    [[nodiscard]] bool arrives() const { return outcome == Outcome::Kept; }
};

/// What a family makes of a name, of which blanks (32) at the right end are no part. Rows have at most
/// RowVerdict::MaxCells cells.
[[nodiscard]] RowVerdict JudgeName(Family family, Audience audience, std::span<const GlyphCode> row);

/// What a family makes of a message, for all players.
[[nodiscard]] RowVerdict JudgeMessage(Family family, std::span<const GlyphCode> row);

} // namespace games
