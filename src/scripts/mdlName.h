// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/ScriptFlow.h"
#include "ui/Platform.h"

#include <string>
#include <string_view>

namespace scripts {

using editing::ScriptEnd;
using glyphs::NameCommand;

/// The name's cells as bytes, without the blanks at its right end.
[[nodiscard]] std::string NameText(const editing::NameDocument& name);

/// The line, without its end, that sets the name: the command, a blank and the quoted name text.
[[nodiscard]] std::string NameLine(NameCommand command, const editing::NameDocument& name);

/// A whole name script.
[[nodiscard]] ui::Bytes WriteNameScript(NameCommand command, const editing::NameDocument& name);

/// Reads a name script. The name is unchanged unless the script is recognised; the cursor never moves.
[[nodiscard]] ScriptEnd ReadNameScript(std::string_view script, editing::NameDocument& name);

/// How a name is saved, and loaded from `path`. The name outlives both.
[[nodiscard]] editing::ScriptWriter NameWriter(const editing::NameDocument& name);
[[nodiscard]] editing::ScriptReader NameReader(editing::NameDocument& name, const ui::Path& path);

/// Puts the name text on the clipboard and says so.
void CopyNameToClipboard(ui::Clipboard& clipboard, ui::Dialogs& dialogs, const editing::NameDocument& name);

/// Whether a save command is followed by the question of AskToBind(): written or cancelled, but not failed.
[[nodiscard]] bool OffersBinding(const editing::SaveOutcome& outcome);

/// Asks whether to open the binding wizard; true for Yes. Asked only while the setting for it is on.
[[nodiscard]] bool AskToBind(ui::Dialogs& dialogs);

} // namespace scripts
