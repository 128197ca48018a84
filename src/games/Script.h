// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Timetable.h"
#include "glyphs/RowText.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Whether games run a script: its commands, its size, its name and the key that is to run it.
namespace games {

using glyphs::NameCommand;

/// What a family makes of a command that sets the name.
struct CommandRule {
    Family family;
    NameCommand command;
    bool runs;
    std::string_view text; ///< what becomes of it, or when it does not run after all; may be empty
    Sighting seen;
};

[[nodiscard]] const CommandRule& RuleOf(Family family, NameCommand command);

/// The families that run a command: "Quake, QuakeWorld and Quake2".
[[nodiscard]] std::string FamiliesThatRun(NameCommand command);

/// The command and who runs it, in lines without a full stop at their end: "writes "set name": runs in
/// QuakeWorld and Quake2 only".
[[nodiscard]] std::string CommandText(NameCommand command);

/// What of a script its size depends on.
struct ScriptSize {
    std::size_t bytes = 0;
    std::size_t longestLine = 0; ///< in bytes, without its end
    bool hasZero = false;        ///< whether a byte is 0
    bool hasCrLf = false;        ///< whether lines end with CR LF
    bool lacksEnd = false;       ///< whether its last line has no end

    friend bool operator==(const ScriptSize&, const ScriptSize&) = default;
};

[[nodiscard]] ScriptSize SizeOf(std::string_view script);

/// The size that the script of an animation is going to have.
[[nodiscard]] ScriptSize SizeOfAnimation(const TimedNames& names, NameCommand command);

/// What scripts an engine takes, in bytes.
struct ScriptLimit {
    std::size_t sure; ///< the largest that runs whatever else the game has to do
    std::size_t most; ///< the largest that may run
    std::size_t line; ///< its longest line
    bool takesZero;   ///< whether it may hold a byte 0
    bool takesCrLf;   ///< whether a message is shown without the carriage return at its line's end
    bool needsEnd;    ///< whether it does not run a last line without an end
    Sighting seen;
};

/// One row an engine that runs scripts.
[[nodiscard]] std::span<const ScriptLimit> ScriptLimits();

enum class Fit : std::uint8_t {
    Fits,
    MayNotFit, ///< with what else waits in the game's buffer
    TooLong,
    LineTooLong
};

[[nodiscard]] Fit FitOf(const ScriptLimit& limit, const ScriptSize& size);

/// Why the command that a key is bound to does not run a script.
struct NameTrouble {
    enum class Kind : std::uint8_t {
        None,
        EveryGame, ///< `byte` stands in the way of every engine
        SomeGames, ///< `byte` stands in the way of the engine that it was seen in
        TooLong    ///< for that engine
    };

    Kind kind = Kind::None;
    char byte = 0;
    Sighting seen{};
};

/// What is wrong with a script's file name, without folders, for any of the families, of which there is
/// at least one.
[[nodiscard]] NameTrouble
TroubleOfScriptName(std::string_view name, std::span<const Family> families = Families);

/// A key that an engine does not know, or has another use for.
struct KeyRule {
    std::string_view key;
    bool canBeBound;
    std::string_view text; ///< goes on behind the engine's name
    Sighting seen;
};

/// What stands in the way of a key, by its name in any case, in one of the engines; none: in any engine.
/// Nothing when all of them let it be bound.
[[nodiscard]] const KeyRule* TroubleOfKey(std::span<const Engine> engines, std::string_view key);

[[nodiscard]] std::span<const KeyRule> KeyRules();

} // namespace games
