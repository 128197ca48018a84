// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Engines.h"
#include "glyphs/GlyphCode.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace games {

using glyphs::GlyphCode;

/// Cells of a name.
inline constexpr std::size_t CellsOfName = 15;

/// The names of an animation, row by row, with the ticks that each is shown for.
struct TimedNames {
    std::span<const GlyphCode> cells;    ///< CellsOfName for each name
    std::span<const std::int16_t> ticks; ///< one for each name

    [[nodiscard]] std::size_t count() const { return ticks.size(); }

    /// The cells of a name, counted from 0.
    [[nodiscard]] std::span<const GlyphCode> name(std::size_t place) const {
        return cells.subspan(place * CellsOfName, CellsOfName);
    }
};

/// How fast a family plays.
struct Pace {
    int tick;   ///< milliseconds that one `wait;` takes
    int second; ///< frames that a second has, for limits that are told in seconds
    Sighting seen;
};

[[nodiscard]] constexpr Pace PaceOf(Family family) {
    switch (family) {
    case Family::QuakeWorld:
        return {13, 77, {Engine::EzQuake, Evidence::Read}};
    case Family::Quake2:
        return {17, 60, {Engine::Yamagi, Evidence::Run}};
    case Family::Quake:
        break;
    }
    return {14, 72, {Engine::QuakeSpasm, Evidence::Run}};
}

/// What a game or its server allows to scripts that change the name.
struct TimeLimit {
    int count; ///< what the limit counts: names, or ticks
    int ticks; ///< of its family's pace; 0: none
    Sighting seen;
};

/// QuakeWorld: at so many changes of the name within so many ticks the server kicks the player.
inline constexpr TimeLimit KickLimit{
    7, 5 * PaceOf(Family::QuakeWorld).second, {Engine::Mvdsv, Evidence::Run}};

/// QuakeWorld: waits in a script; what stands behind more of them is never run.
inline constexpr TimeLimit WaitLimit{
    0, 2 * PaceOf(Family::QuakeWorld).second, {Engine::EzQuake, Evidence::Run}};

/// Quake: a DarkPlaces server takes one name in so many ticks and ignores the others.
inline constexpr TimeLimit TakeLimit{
    1, 5 * PaceOf(Family::Quake).second, {Engine::DarkPlaces, Evidence::Run}};

/// Quake2: a name that others follow within so many ticks may be skipped; with none at all it is never sent.
inline constexpr TimeLimit SkipLimit{1, 6, {Engine::Yamagi, Evidence::Run}};

/// A name and when it comes.
struct Moment {
    int name = 0;         ///< counted from 1; 0: never
    int milliseconds = 0; ///< since the start
};

/// Several names.
struct NameCount {
    int count = 0;
    int first = 0; ///< the first of them, counted from 1
};

/// How an animation plays in a family. A name that repeats the one before it is no change and counts as part
/// of it.
struct Timetable {
    Family family{};
    int ticks = 0;        ///< of all names
    int milliseconds = 0; ///< from the first name to the end of the last
    int changes = 0;      ///< how often the name changes, the first name among them
    Moment kicked;        ///< QuakeWorld: the name at which the server kicks the player
    Moment cutOff;        ///< QuakeWorld: the first name that is never run
    NameCount unsent;     ///< Quake2: names that are never sent
    NameCount doubtful;   ///< Quake2: names that may be skipped
    int taken = 0;        ///< Quake: names that a DarkPlaces server takes
};

[[nodiscard]] Timetable TimetableOf(Family family, const TimedNames& names);

} // namespace games
