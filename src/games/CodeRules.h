// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Engines.h"
#include "glyphs/GlyphCode.h"

#include <span>
#include <string_view>

/// What games do to single glyphs, as data. RowVerdict.h puts it together.
namespace games {

using glyphs::GlyphCode;

/// Where a glyph passes on its way from a script to a player's eyes.
enum class Station : std::uint8_t {
    Own,    ///< a name: the player's own game runs the script
    Others, ///< a name that has passed there: the server hands it to the other players
    Message ///< a message, from the script to all players
};

inline constexpr std::size_t StationCount = 3;

/// What becomes of a glyph at a station.
enum class Action : std::uint8_t {
    Keep,
    Drop,
    DropAtEnds,  ///< dropped where only its like stand before or behind it
    StripColour, ///< becomes the one 128 below
    ColourNext,  ///< goes, and the next one becomes the one 128 above
    EndText,     ///< the text ends before it
    Refuse       ///< the whole name is refused or gets another in its place
};

/// Why a row does not arrive as it is.
enum class Reason : std::uint8_t {
    None,
    RestIsRun,     ///< what stands behind the glyph is run as a command
    EndsQuotes,    ///< the glyph ends the quotes: the name is another one, or none
    Unnamed,       ///< the server gives the name "unnamed"
    BadInfo,       ///< the server gives the name "badinfo"
    ServerRefuses, ///< the server refuses the name or gives another
    UnlessTurned,  ///< as ServerRefuses, unless the player's engine makes another glyph of it before
    GameRefuses,   ///< the player's own game refuses it: the old name stays
    NotSent,       ///< the player's own game keeps it from the server
    ColourCode,    ///< a colour code is not allowed: the old name stays
    NoName,        ///< as Unnamed, because nothing is left of the name
    ReservedName   ///< as Unnamed, because the name is the server's own
};

/// What becomes of the glyphs `first` to `last`.
struct CodeRule {
    Family family;
    Station station;
    std::uint8_t first;
    std::uint8_t last;
    Action action;
    Reason reason;
    Sighting seen;
};

/// All rules. Where several speak of a glyph, the last one holds.
[[nodiscard]] std::span<const CodeRule> CodeRules();

/// The rule that holds for a glyph (0 to 255).
[[nodiscard]] const CodeRule& RuleOf(Family family, Station station, GlyphCode code);

/// A glyph with the one behind it that no name may hold: '&', `second`, and so many hexadecimal digits.
struct PairRule {
    Family family;
    Station station;
    char second;
    std::size_t digits;
    Reason reason;
    Sighting seen;
};

[[nodiscard]] std::span<const PairRule> PairRules();

/// A glyph that one engine makes another of, together with the sign behind it, before a server sees it.
struct TurnRule {
    Family family;
    std::uint8_t code;
    Sighting seen;
};

/// What turns the glyph at a place of a row; nothing where it stays.
[[nodiscard]] const TurnRule* TurnOf(Family family, std::span<const GlyphCode> row, std::size_t place);

/// A name, as it comes out of the rules for glyphs, that gets another in its place.
struct WholeNameRule {
    Family family;
    std::string_view name;
    Reason reason;
    Sighting seen;
};

[[nodiscard]] std::span<const WholeNameRule> WholeNameRules();

/// The name that a reason puts in the place of the player's; empty: none.
[[nodiscard]] constexpr std::string_view ReplacementOf(Reason reason) {
    switch (reason) {
    case Reason::Unnamed:
    case Reason::NoName:
    case Reason::ReservedName:
        return "unnamed";
    case Reason::BadInfo:
        return "badinfo";
    default:
        return {};
    }
}

} // namespace games
