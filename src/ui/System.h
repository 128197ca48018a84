// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ui {

enum class System : std::uint8_t { Linux, Windows, MacOs };

/// The system that the program is built for.
[[nodiscard]] System ThisSystem();

/// The arguments of main() without the program's own name, as UTF-8 where they are text.
[[nodiscard]] std::vector<std::string> Arguments(int argc, const char* const* argv);

/// The program's command line as whatever started the program wrote it, in one piece; where the system hands
/// it over in pieces, these are the arguments of main() without the program's own name. Nothing if it is
/// blank.
[[nodiscard]] std::vector<std::string> CommandLine(int argc, const char* const* argv);

/// The name of a program's file.
[[nodiscard]] std::string ProgramFile(std::string_view program);

/// The running program's own file; empty where the system does not tell.
[[nodiscard]] Path ExecutableFile();

/// The user's own folder; empty: there is none.
[[nodiscard]] Path HomeFolder();

/// The folders that the user keeps documents and the saved games of programs in; empty: the system has none
/// of these for all programs.
[[nodiscard]] Path DocumentsFolder();
[[nodiscard]] Path SavedGamesFolder();

/// The folder that the user's programs keep their settings in.
[[nodiscard]] Path ConfigHome();

/// The folder that the user's programs keep their data in; empty: there is none.
[[nodiscard]] Path DataHome();

/// The folder that the user's programs keep their state in from one run to the next; empty: there is none.
[[nodiscard]] Path StateHome();

/// The folder that a variable of the user's environment names by a full path; empty: none.
[[nodiscard]] Path FolderVariable(const char* name);

/// Whether files can be made in a folder.
[[nodiscard]] bool IsWritableFolder(const Path& folder);

/// Lets the terminal that the program's output goes to show it: it is UTF-8, with colours as terminals take
/// them.
void PrepareTerminal();

/// The width of the terminal that the program's output goes to; nothing where it goes elsewhere.
[[nodiscard]] std::optional<int> TerminalColumns();

} // namespace ui
