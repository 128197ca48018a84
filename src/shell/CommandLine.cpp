// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"

#include "shell/Product.h"

#include <algorithm>

namespace shell {

namespace {

struct Switch {
    std::string_view text;
    editing::Page kind;
    editing::Page shown;
};

// Tried in this order. An animation file is followed by the Name page and a name file by the Animation page,
// which is meant.
constexpr std::array<Switch, 3> Switches{{
    {" /animation ", editing::Page::Animation, editing::Page::Name},
    {" /name ", editing::Page::Name, editing::Page::Animation},
    {" /macro ", editing::Page::Messages, editing::Page::Messages},
}};

constexpr auto Usage =
    R"(Usage: vtm
       vtm " /name FILE"
       vtm " /animation FILE"
       vtm " /macro FILE"

Edits the names, name animations and messages of Quake and Quake2 players. A FILE
that is given is loaded: a name script, an animation or messages. The blank before
the switch is a part of the argument.

  --help     print this, and end
  --version  print the version, and end
)";

/// The switch that an argument of its own is: with the blank before it, the blank after it being the one that
/// arguments are joined by.
const Switch* SwitchOf(std::string_view argument) {
    const auto* const found =
        std::find_if(Switches.begin(), Switches.end(), [argument](const Switch& candidate) {
            return candidate.text.substr(0, candidate.text.size() - 1) == argument;
        });
    return found == Switches.end() ? nullptr : found;
}

CommandLineFile FileOf(const Switch& given, std::string_view path) {
    const auto slash = path.rfind('/');
    if (slash == std::string_view::npos) {
        return {given.kind, {}, ui::Path(path), given.shown};
    }
    const std::string_view folder = slash == 0 ? std::string_view("/") : path.substr(0, slash);
    return {given.kind, ui::Path(folder), ui::Path(path.substr(slash + 1)), given.shown};
}

std::string_view BetweenQuotes(std::string_view text) {
    const auto first = text.find('"');
    if (first == std::string_view::npos) {
        return text;
    }
    const auto second = text.find('"', first + 1);
    return second == std::string_view::npos ? text : text.substr(first + 1, second - first - 1);
}

} // namespace

std::optional<std::string> TextToPrint(std::span<const std::string> arguments) {
    if (arguments.size() == 1 && arguments[0] == "--help") {
        return Usage;
    }
    if (arguments.size() == 1 && arguments[0] == "--version") {
        return std::string("vtm ") + ProductVersion + '\n';
    }
    return {};
}

std::string ReadAtStartText(const std::string& name, editing::Page kind) {
    constexpr std::array<const char*, 3> Pages{"Name", "Animation", "Messages"};
    return ui::PathText(name) + " was read and is on the page " + Pages.at(static_cast<std::size_t>(kind)) +
           '.';
}

std::string JoinArguments(std::span<const std::string> arguments) {
    std::string text;
    for (const auto& argument : arguments) {
        if (&argument != &arguments.front()) {
            text += ' ';
        }
        text += argument;
    }
    return text;
}

std::optional<CommandLineFile> ParseCommandLine(std::string_view commandLine) {
    const std::string_view text = BetweenQuotes(commandLine);
    for (const auto& given : Switches) {
        const auto place = text.find(given.text);
        if (place != std::string_view::npos) {
            std::string path(text.substr(0, place));
            path += text.substr(place + given.text.size());
            return FileOf(given, path);
        }
    }
    return std::nullopt;
}

StartFiles ReadArguments(std::span<const std::string> arguments) {
    // The desktop starts the program with two arguments. The path is taken as it is: its name may hold quotes
    // or even a switch.
    if (arguments.size() == 2) {
        if (const auto* given = SwitchOf(arguments[0])) {
            return {false, FileOf(*given, arguments[1])};
        }
    }
    // Where there is no desktop, its opener splits the quoted switch at its blank and leaves the quotes in.
    if (arguments.size() == 3 && arguments[0] == "\"" && arguments[1].ends_with('"')) {
        if (const auto* given = SwitchOf(" " + arguments[1].substr(0, arguments[1].size() - 1))) {
            return {false, FileOf(*given, arguments[2])};
        }
    }
    const std::string commandLine = JoinArguments(arguments);
    if (commandLine.empty()) {
        return {true, std::nullopt};
    }
    return {false, ParseCommandLine(commandLine)};
}

} // namespace shell
