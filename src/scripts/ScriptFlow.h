// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "scripts/Outcome.h"
#include "ui/Platform.h"

#include <functional>
#include <string>
#include <string_view>

namespace scripts {

/// Asks for the path with `request`; asks again if a file lies there whose first line does not hold `header`;
/// then writes what `content` returns and says so, or why not. `content` may ask the user something itself.
[[nodiscard]] SaveOutcome SaveScript(
    ui::Dialogs& dialogs, ui::Files& files, const ui::FileDialogRequest& request, std::string_view header,
    const std::function<ui::Bytes()>& content);

/// What tells one kind of script from another when it is loaded.
struct ScriptReader {
    std::function<ReadOutcome(std::string_view)> read; ///< from a script's bytes into the document
    std::string failureText;                           ///< the message when it cannot be read
    std::string tooLongText;                           ///< the reason of ReadOutcome::TooLong
};

/// Reads the script `path`, repaints what changed and tells the user. `quiet` leaves out the message of
/// success, never that of a failure.
LoadOutcome LoadScript(
    ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, bool quiet,
    const ScriptReader& reader, const Repaint& repaint);

} // namespace scripts
