// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/RowVerdict.h"
#include "games/Script.h"
#include "games/Timetable.h"

#include <optional>
#include <string>
#include <vector>

/// All that is to be said of a row or a script, in words. The first finding is the weightiest.
namespace games {

enum class Weight : std::uint8_t {
    Loss, ///< something does not arrive as it is written
    Note  ///< worth knowing, or so in one engine alone
};

struct Finding {
    Weight weight = Weight::Note;
    std::string text; ///< one short sentence without a full stop; of a note, behind the engine's name
    Sighting seen{};
    int row = 0;           ///< the name or message that it is about, from 1; 0: the whole script
    int column = 0;        ///< its cell, from 1; 0: the whole row
    bool namesRow = false; ///< whether the text says which row it is about
    std::optional<std::vector<GlyphCode>> shown = {}; ///< what is seen in place of the row, behind the text
};

/// What becomes of a name, for others, and what single engines do. Nothing, when it arrives everywhere.
[[nodiscard]] std::vector<Finding> FindingsOnName(Family family, std::span<const GlyphCode> row);

/// What becomes of a message, which has that number.
[[nodiscard]] std::vector<Finding>
FindingsOnMessage(Family family, std::span<const GlyphCode> row, int number = 1);

/// What becomes of an animation: its names, its times.
[[nodiscard]] std::vector<Finding> FindingsOnAnimation(Family family, const TimedNames& names);

/// Whether a script can be run. `command`: what sets its names; nothing for messages.
[[nodiscard]] std::vector<Finding>
FindingsOnScript(Family family, const ScriptSize& size, std::optional<NameCommand> command);

/// A time in words: "0.8 s".
[[nodiscard]] std::string TimeText(int milliseconds);

/// A number of bytes in words: "10,517 bytes".
[[nodiscard]] std::string BytesText(std::size_t bytes);

} // namespace games
