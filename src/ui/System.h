// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <optional>

namespace ui {

/// The running program's own file; empty where the system does not tell.
[[nodiscard]] Path ExecutableFile();

/// The user's own folder; empty: there is none.
[[nodiscard]] Path HomeFolder();

/// The folder that the user's programs keep their data in; empty: there is none.
[[nodiscard]] Path DataHome();

/// The folder that the user's programs keep their state in from one run to the next; empty: there is none.
[[nodiscard]] Path StateHome();

/// The folder that a variable of the user's environment names by a full path; empty: none.
[[nodiscard]] Path FolderVariable(const char* name);

/// Whether files can be made in a folder.
[[nodiscard]] bool IsWritableFolder(const Path& folder);

/// The width of the terminal that the program's output goes to; nothing where it goes elsewhere.
[[nodiscard]] std::optional<int> TerminalColumns();

} // namespace ui
