// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Folders.h"
#include "ui/Dialogs.h"

#include <vector>

/// Where games look on this computer.
namespace shell {

inline constexpr games::System HereSystem = games::System::Linux;

/// Where the user's folders are, in which games have their own. No game that lies elsewhere is known.
[[nodiscard]] games::Places PlacesHere();

/// The folders of games that are there, for file dialogs: named after the engine that looks in them, the one
/// with the newest settings first. Looks at the disk.
[[nodiscard]] std::vector<ui::NamedFolder> GameFolders();

} // namespace shell
