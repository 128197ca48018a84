// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/mdlKey.h"
#include "ui/Files.h"
#include "ui/Platform.h"

#include <string_view>

namespace editing {

constexpr std::string_view KeyMapName = "vtmkeys.ini";

/// The 83 lines of a key-map file, and back. Malformed lines are not guessed at: the failure says which line
/// is wrong and why, without a file name.
[[nodiscard]] ui::Bytes KeyMapText(const KeyMap& map);
[[nodiscard]] ui::Result<KeyMap> ParseKeyMap(std::string_view bytes);

[[nodiscard]] ui::Result<KeyMap> ReadKeyMap(const ui::Files& files, const ui::Path& path);

/// A key map to work with, and why it is not the one in the file if it had to be given up.
struct LoadedKeyMap {
    KeyMap map;
    ui::Status status;
};

/// The program's key map from its file; the defaults when there is none or when it cannot be used. Writes
/// nothing.
[[nodiscard]] LoadedKeyMap LoadKeyMap(const ui::Files& files, const ui::ProgramDirectory& directory);

/// Replaces the program's key-map file as a whole.
[[nodiscard]] ui::Status
WriteKeyMap(ui::Files& files, const ui::ProgramDirectory& directory, const KeyMap& map);

} // namespace editing
