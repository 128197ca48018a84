// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Kinds.h"
#include "ui/Files.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace shell {

/// A script file that the command line names.
struct CommandLineFile {
    editing::Page kind = editing::Page::Name;  ///< whose script it is
    ui::Path folder;                           ///< to be made the current folder; empty: none
    ui::Path file;                             ///< what to load, relative to `folder`
    editing::Page shown = editing::Page::Name; ///< the page to show afterwards: not that of the kind
};

/// What to load at start.
struct StartFiles {
    bool intro = false; ///< load the intro files that exist
    std::optional<CommandLineFile> file;
};

/// How a command line is written that loads a script, for people who wrote one that loads nothing.
constexpr std::string_view HowToLoad =
    "The command line names no script. Write it like this: vtm \" /name my.vtn\"";

/// Which page holds the script that the command line named; another may be shown.
[[nodiscard]] std::string ReadAtStartText(const std::string& name, editing::Page kind);

/// What the program prints when `--help` or `--version` is its only argument, in place of everything else;
/// nothing for other arguments.
[[nodiscard]] std::optional<std::string> TextToPrint(std::span<const std::string> arguments);

/// The arguments (without the program's own name and the toolkit's options) as one text, a blank between any
/// two.
[[nodiscard]] std::string JoinArguments(std::span<const std::string> arguments);

/// The file that a command line asks for; nothing when it holds none of the switches. If there are two double
/// quotes, only what stands between the first two counts.
[[nodiscard]] std::optional<CommandLineFile> ParseCommandLine(std::string_view commandLine);

/// What the arguments ask for. A switch that is an argument of its own and the only other argument, a path,
/// need no quotes; nor does it matter if the switch comes in two pieces with its quotes.
[[nodiscard]] StartFiles ReadArguments(std::span<const std::string> arguments);

} // namespace shell
