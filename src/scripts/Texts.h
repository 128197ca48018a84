// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <string>
#include <string_view>

/// The fixed texts of the room, as they are shown. Lines end with '\n'.
namespace scripts::texts {

inline std::string NameNotRead(const ui::Path& path) {
    return "Error reading name from " + ui::PathText(path) + ".";
}

constexpr auto IsQuake2Name = "Is this name to be used in Quake2?";
constexpr auto BindNow = "Would you like to use the Binding Wizard to bind the script file you just saved?";
constexpr auto NameCopied = "Your name is now in the Windows Clipboard.\n"
                            "Place the cursor anywhere you can Paste or\n"
                            "Shift-Insert to use your new name.\n"
                            "Like the Profile Name of GameSpy.";

constexpr auto NameTooLong = "The name is longer than 15 glyphs; the first 15 were read.";
constexpr auto NoNameInConfig = "This config file does not contain a name.";
constexpr auto NameReadFromConfig = "Done! The name was read from the config file.";
constexpr auto AddNameToConfig = "This config file does not contain a name. Do you wish to add it?";

inline std::string NameUpdatedInConfig(const ui::Path& path) {
    return "Done! The config file, " + ui::PathText(path) + ", was updated with your new name.";
}

inline std::string NameAddedToConfig(const ui::Path& path) {
    return "Done! Your name was added to the config file, " + ui::PathText(path) + ".";
}

inline std::string TooManyLines(const ui::Path& path) {
    return "The config file, " + ui::PathText(path) + ", has more than 32,767 lines. VTM cannot handle it.";
}

constexpr auto TooManyLinesToChange = "This file has more than 32,767 lines and cannot be changed";
constexpr auto IsNoName = ", though it is not the name";
constexpr auto LineIsAdded = "A line will be added";
constexpr auto FileIsMade = "A file with one line will be made";

constexpr auto MessagesNotRead = "Error retrieving Macro from script file.";
constexpr auto MessageTooLong = "A message is longer than 31 glyphs; its first 31 were read.";
constexpr auto NoMessageSelected = "You need to select at least 1 message to display!";

constexpr auto NoConfigFile = "Please select a config file!";
constexpr auto NoScriptFile = "Please select a script file!";
constexpr auto NoKey = "Please select a key!";
constexpr auto KeyIsBound = "You have selected a key that is already bound!\n"
                            "VTM will now replace it with your binding, OK?";
constexpr auto ConfigNotThere = "There is no such file yet.";
constexpr auto ConfigNotReadable = "This file cannot be read.";
constexpr auto ConfigNotToBeChanged = "This file cannot be changed.";
constexpr auto ConfigIsScript = "This is a script, not a config file.";
constexpr auto ScriptNotThere = "There is no such file.";
constexpr auto IsFolder = "This is a folder.";
constexpr auto IsDevice = "This is not a file.";
constexpr auto LongScriptName = "Some games run no script with more than 27 characters before its extension.";

constexpr auto QuitGameFirst =
    "Quit the game first: it writes this file when it quits. Safer: type autoexec.cfg for its name.";

/// An engine at the beginning of a sentence, where some names keep their small letter.
inline std::string Beginning(std::string_view engine) {
    return (engine.starts_with("original ") ? "The " : "") + std::string(engine);
}

inline std::string ReadsInstead(std::string_view engine, const std::string& path) {
    return Beginning(engine) + " reads " + path + ", not this file.";
}

inline std::string LookedAtInMod(std::string_view engine, const std::string& mod) {
    return Beginning(engine) + " looks in this folder only while " + mod + " is played.";
}

inline std::string NotLookedAt(std::string_view engine) {
    return Beginning(engine) + " does not look for scripts in this folder.";
}

inline std::string NoGameRuns(const std::string& what) {
    return "Games cannot run a script with " + what + " in its file name.";
}

inline std::string SomeGamesRun(const std::string& what) {
    return "Some games cannot run a script with " + what + " in its file name.";
}

inline std::string BindingUpdatedInConfig(const ui::Path& path) {
    return "Done! The config file, " + ui::PathText(path) + ", was updated with your new binding.";
}

} // namespace scripts::texts
