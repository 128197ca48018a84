// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/ScriptFlow.h"

#include <array>
#include <string>
#include <string_view>

namespace scripts {

using editing::ScriptEnd;

/// The console command that sends a message: `say` to everyone, `say_team` to the team.
enum class SayCommand { Say, SayTeam };

/// Which messages go into a script, and the one command for all of them.
struct MessageChoice {
    std::array<bool, editing::MessageCount> selected{}; ///< the top message first
    SayCommand command = SayCommand::Say;
};

/// The cells of a message (1 to 3) as bytes, without the blanks at its right end.
[[nodiscard]] std::string MessageText(const editing::MessageDocument& messages, int number);

/// A whole message script.
[[nodiscard]] ui::Bytes
WriteMessageScript(const MessageChoice& choice, const editing::MessageDocument& messages);

/// How many messages a script holds: at most three, whatever follows them; 0 when it is not such a script or
/// when one of its first three lines is not a message.
[[nodiscard]] int CountMessages(std::string_view script);

/// Reads a script's messages into messages 1, 2, 3 in order; the others stay as they are. Nothing changes
/// unless the script is recognised. Reading ends with a message that is too long.
[[nodiscard]] ScriptEnd ReadMessageScript(std::string_view script, editing::MessageDocument& messages);

/// How the messages are loaded from `path`. They outlive it.
[[nodiscard]] editing::ScriptReader MessageReader(editing::MessageDocument& messages, const ui::Path& path);

/// Asks for the path, writes the script and says so, or why not. A choice of no message is refused with a
/// message and counts as cancelled.
[[nodiscard]] editing::SaveOutcome SaveMessageScript(
    ui::Dialogs& dialogs, ui::Files& files, const MessageChoice& choice,
    const editing::MessageDocument& messages);

} // namespace scripts
