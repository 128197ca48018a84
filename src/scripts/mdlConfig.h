// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "scripts/GameHints.h"
#include "scripts/Outcome.h"
#include "ui/Platform.h"

#include <optional>
#include <string>
#include <string_view>

namespace scripts {

/// No more lines than this are looked at: a longer file is refused.
constexpr int MaxConfigLines = 32767;

/// The line of a configuration file that sets the name.
struct ConfigNameLine {
    int number = 0;         ///< 1-based; 0: there is none
    bool isSetName = false; ///< whether the line holds "set name"
    ui::Bytes text = {};    ///< the line without its end
};

/// The last line that holds "name", in any case and anywhere, and no "//". Nothing when the file has more
/// than MaxConfigLines lines.
[[nodiscard]] std::optional<ConfigNameLine> FindNameLine(std::string_view config);

/// What writing the name is going to do to a file that holds `config`.
[[nodiscard]] std::string NameForecast(std::string_view config);

/// The same of a file; empty of one that cannot be read.
[[nodiscard]] std::string NameForecast(const ui::Files& files, const ui::Path& path);

/// What the file dialogs of the configuration file are opened with. The one to save tells what is going to
/// happen to the file, and whether a game writes it too; `files` outlives it.
[[nodiscard]] ui::FileDialogRequest LoadConfigRequest();
[[nodiscard]] ui::FileDialogRequest SaveConfigRequest(const ui::Files& files, const GamesHere& games = {});

/// The configuration file to read the name from, and the one to write it into; nothing when cancelled. The
/// caller remembers the path for the binding wizard, whatever comes of the command.
[[nodiscard]] std::optional<ui::Path> ChooseConfigToLoad(ui::Dialogs& dialogs);
[[nodiscard]] std::optional<ui::Path>
ChooseConfigToAlter(ui::Dialogs& dialogs, const ui::Files& files, const GamesHere& games = {});

/// Reads the name out of the configuration file `path`, repaints what changed and tells the user.
LoadOutcome LoadNameFromConfig(
    ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, editing::NameDocument& name,
    const Repaint& repaint);

/// Writes the name into the configuration file `path`: in place of the line that sets it, or, if the user
/// wishes so, after its last byte.
ConfigOutcome SaveNameToConfig(
    ui::Dialogs& dialogs, ui::Files& files, const ui::ProgramDirectory& directory, const ui::Path& path,
    const editing::NameDocument& name);

} // namespace scripts
