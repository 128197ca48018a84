// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/ScriptFlow.h"
#include "games/Folders.h"

#include <span>
#include <string>

namespace shell {

/// Where the games of a player are looked for.
struct GameWorld {
    std::span<const games::Family> families; ///< that are played
    games::GamesHere here;
};

/// How a script that was written is run, and the weightiest thing that stands in its way: two short sentences
/// at most, for the status line. Of a folder in which a known game looks only that game counts. Empty when no
/// family is played.
[[nodiscard]] std::string RunText(const editing::SaveOutcome& written, const GameWorld& world);

} // namespace shell
