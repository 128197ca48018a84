// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Folders.h"

#include <string>
#include <string_view>

/// What the binding wizard says of games beside its fields: short sentences, or nothing.
namespace scripts {

using games::GamesHere;

/// Which games read another file in the place of a configuration; that a game writes this one itself, and
/// which file is safer.
[[nodiscard]] std::string ConfigAdvice(const ui::Path& config, const GamesHere& here);

/// That a script lies where the configuration's game does not look, or only while a mod is played. Empty too
/// where the game is not known.
[[nodiscard]] std::string
ScriptPlaceHint(const ui::Path& script, const ui::Path& config, const GamesHere& here);

/// What the configuration's game makes of a key, by its name; of any game where that one is not known.
[[nodiscard]] std::string KeyHint(std::string_view key, const ui::Path& config, const GamesHere& here);

} // namespace scripts
