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
/// is wrong and why, without a file name. What stands behind the last line does not matter.
[[nodiscard]] ui::Bytes KeyMapText(const KeyMap& map);
[[nodiscard]] ui::Result<KeyMap> ParseKeyMap(std::string_view bytes);

/// A key map to work with. If it is not the one in the file, the failure says what that means for the user,
/// and then why.
struct LoadedKeyMap {
    KeyMap map;
    ui::Status status;
};

/// The program's key map from its file; the defaults when there is none or when it cannot be used. Writes
/// nothing.
[[nodiscard]] LoadedKeyMap LoadKeyMap(const ui::Files& files, const ui::ProgramDirectory& directory);

/// The key map in use, and what its file held when it was last read or written: what differs was changed
/// here.
struct KeyMaps {
    KeyMap used = DefaultKeyMap();
    KeyMap inFile = DefaultKeyMap();
};

/// Replaces the program's key-map file as a whole. Where another instance has written it meanwhile, only what
/// was changed here is changed in it, and the rest of the file comes into use. A file that cannot be used is
/// first kept beside it under a name of its own; one that cannot be read is not replaced.
[[nodiscard]] ui::Status WriteKeyMap(ui::Files& files, const ui::ProgramDirectory& directory, KeyMaps& keys);

} // namespace editing
