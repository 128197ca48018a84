// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "glyphs/RowText.h"
#include "scripts/Outcome.h"
#include "ui/Platform.h"

#include <optional>
#include <string>
#include <string_view>

namespace scripts {

constexpr std::string_view NameScriptHeader = "Name File Created by Vortigo";

using glyphs::NameCommand;

/// The name's cells as bytes, without the blanks at its right end.
[[nodiscard]] std::string NameText(const editing::NameDocument& name);

/// The line, without its end, that sets the name: the command, a blank and the quoted name text.
[[nodiscard]] std::string NameLine(NameCommand command, const editing::NameDocument& name);

/// A whole name script.
[[nodiscard]] ui::Bytes WriteNameScript(NameCommand command, const editing::NameDocument& name);

/// Reads a name script. The name is unchanged unless the script is recognised; the cursor never moves.
[[nodiscard]] ReadOutcome ReadNameScript(std::string_view script, editing::NameDocument& name);

/// What the file dialogs of the name script are opened with. Saving starts in `folder`: the program's own, if
/// it is writable.
[[nodiscard]] ui::FileDialogRequest SaveNameScriptRequest(const ui::Path& folder);
[[nodiscard]] ui::FileDialogRequest LoadNameScriptRequest();

/// Asks for the path, starting in `folder`, and for the game; writes the script and says so, or why not.
[[nodiscard]] SaveOutcome SaveNameScript(
    ui::Dialogs& dialogs, ui::Files& files, const ui::Path& folder, const editing::NameDocument& name);

/// The name script to load; nothing when cancelled.
[[nodiscard]] std::optional<ui::Path> ChooseNameScript(ui::Dialogs& dialogs);

/// Reads the name script `path` into the name, repaints what changed and tells the user. `quiet` leaves out
/// the message of success, never that of a failure.
LoadOutcome LoadNameScript(
    ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, bool quiet,
    editing::NameDocument& name, const Repaint& repaint);

/// Puts the name text on the clipboard and says so.
void CopyNameToClipboard(ui::Clipboard& clipboard, ui::Dialogs& dialogs, const editing::NameDocument& name);

/// Whether a save command is followed by the question of AskToBind(): written or cancelled, but not failed.
[[nodiscard]] bool OffersBinding(const SaveOutcome& outcome);

/// Asks whether to open the binding wizard; true for Yes. Asked only while the setting for it is on.
[[nodiscard]] bool AskToBind(ui::Dialogs& dialogs);

} // namespace scripts
