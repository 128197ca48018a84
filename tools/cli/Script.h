// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "ui/Result.h"

#include <string_view>
#include <variant>

namespace cli {

/// A script of any kind. Names of an animation that the script does not time have no ticks, as in the game.
using Script = std::variant<editing::NameDocument, editing::AnimationDocument, editing::MessageDocument>;

/// Reads a script by its header, whatever its file is called. Fails when it is none or cannot be read to its
/// end; the failure says why, without a file name.
[[nodiscard]] ui::Result<Script> ReadScript(std::string_view bytes);

} // namespace cli
