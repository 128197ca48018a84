// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <string>

/// The fixed texts of the room, as they are shown. Lines end with '\n'.
namespace scripts::texts {

inline std::string ScriptWritten(const ui::Path& path) {
    return "Done! The script file, " + ui::PathText(path) + ", was written.";
}

inline std::string ScriptRead(const ui::Path& path) {
    return "Done! " + ui::PathText(path) + " was read succesfully.";
}

inline std::string NameNotRead(const ui::Path& path) {
    return "Error reading name from " + ui::PathText(path) + ".";
}

constexpr auto IsQuake2Name = "Is this name to be used in Quake2?";
constexpr auto BindNow = "Would you like to use the Binding Wizard to bind the script file you just saved?";
constexpr auto NameCopied = "Your name is now in the Windows Clipboard.\n"
                            "Place the cursor anywhere you can Paste or\n"
                            "Shift-Insert to use your new name.\n"
                            "Like the Profile Name of GameSpy.";

constexpr auto MessagesNotRead = "Error retrieving Macro from script file.";
constexpr auto NoMessageSelected = "You need to select at least 1 message to display!";

} // namespace scripts::texts
