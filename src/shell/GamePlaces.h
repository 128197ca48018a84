// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Folders.h"
#include "ui/Dialogs.h"

#include <vector>

/// Where games look on this computer.
namespace shell {

struct Workspace;

/// Where the user's folders are, in which games have their own, and the folders that games were put into, as
/// far as the files tell that the user works with. Looks at the disk.
[[nodiscard]] games::GamesHere FindGames(const Workspace& workspace);

/// The folders of games that are there, for file dialogs: named after an engine that looks in them, the one
/// with the newest settings first. Looks at the disk.
[[nodiscard]] std::vector<ui::NamedFolder> GameFolders(const Workspace& workspace);

} // namespace shell
