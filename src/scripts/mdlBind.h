// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "scripts/Outcome.h"
#include "ui/Platform.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace scripts {

constexpr std::size_t KeyCount = 82;

/// What CheckStrForKey() finds in a line without a key.
constexpr int NoKeyFound = 100;

/// The keys by the names that the games give them, index 0 to 81.
constexpr std::array<std::string_view, KeyCount> KeyNames = {
    "LEFTARROW", "DOWNARROW", "UPARROW", "RIGHTARROW", "*",         "+",     "INS",   "DEL",    "HOME",
    "END",       "PGUP",      "PGDN",    "CTRL",       "ALT",       "SHIFT", "ENTER", "TAB",    "BACKSPACE",
    "SPACE",     "a",         "b",       "c",          "d",         "e",     "f",     "g",      "h",
    "i",         "j",         "k",       "l",          "m",         "n",     "o",     "p",      "q",
    "r",         "s",         "t",       "u",          "v",         "w",     "x",     "y",      "z",
    "0",         "1",         "2",       "3",          "4",         "5",     "6",     "7",      "8",
    "9",         ",",         ".",       "/",          "SEMICOLON", "'",     "[",     "]",      "\\",
    "-",         "=",         "~",       "F1",         "F2",        "F3",    "F4",    "F5",     "F6",
    "F7",        "F8",        "F9",      "F10",        "F11",       "F12",   "ESC",   "MOUSE1", "MOUSE2",
    "MOUSE3"};

/// For every key of the table whether a configuration file binds it.
using BoundKeys = std::array<bool, KeyCount>;

/// The key (index) of that name, in any case.
[[nodiscard]] std::optional<int> FindKey(std::string_view name);

/// The index of the key that a line binds: it holds "bind" and the key's name in double quotes, in any case.
/// Of several keys the last one of the table; NoKeyFound when there is none.
[[nodiscard]] int CheckStrForKey(std::string_view line);

/// The keys that the lines of a configuration file bind, comments among them.
[[nodiscard]] BoundKeys GetBoundKeys(std::string_view config);

/// The line, without its end, that makes a key (index) run a script. Only the script's file name is used: the
/// game looks for it in its own folder.
[[nodiscard]] std::string BindLine(int key, const ui::Path& script);

/// The line that a new binding of a key takes the place of.
struct BindingLine {
    int number = 0;      ///< 1-based; 0: there is none
    ui::Bytes text = {}; ///< the line without its end
};

/// The first line that holds the key's name in double quotes, in any case, and no "//". It need not be a
/// binding.
[[nodiscard]] BindingLine FindBindingLine(std::string_view config, int key);

/// The line that a new binding takes the place of: the one of FindBindingLine(), if the key is among those
/// that the file binds.
[[nodiscard]] BindingLine LineToReplace(std::string_view config, const BoundKeys& bound, int key);

/// What is added to a configuration file to bind a key: the bind line, on a line of its own.
[[nodiscard]] ui::Bytes AppendedBinding(std::string_view config, int key, const ui::Path& script);

/// What the file dialogs of the binding wizard are opened with.
[[nodiscard]] ui::FileDialogRequest BindConfigRequest();
[[nodiscard]] ui::FileDialogRequest BindScriptRequest();

/// What the wizard was filled in with. Empty paths and no key are what the user has not given.
struct BindChoice {
    ui::Path config;
    ui::Path script;
    std::optional<int> key; ///< index into KeyNames
};

/// Binds the key in the configuration file, asking first if it is bound already, and tells the user. Not
/// written: the wizard stays open.
ConfigOutcome BindKey(
    ui::Dialogs& dialogs, ui::Files& files, const ui::ProgramDirectory& directory, const BindChoice& choice);

} // namespace scripts
