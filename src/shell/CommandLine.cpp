// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"

#include <algorithm>

namespace shell {

namespace {

struct Switch {
    std::string_view text;
    editing::Page kind;
    editing::Page shown;
};

// Tried in this order. An animation file is followed by the Name page and a name file by the Animation page:
// people who start the program with a file have always been shown these.
constexpr std::array<Switch, 3> Switches{{
    {" /animation ", editing::Page::Animation, editing::Page::Name},
    {" /name ", editing::Page::Name, editing::Page::Animation},
    {" /macro ", editing::Page::Messages, editing::Page::Messages},
}};

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
    if (arguments.size() == 2) {
        // The desktop starts the program like this. The path is taken as it is: its name may hold quotes or
        // even a switch.
        const auto given = std::find_if(Switches.begin(), Switches.end(), [&](const Switch& candidate) {
            return arguments[0] + ' ' == candidate.text;
        });
        if (given != Switches.end()) {
            return {false, FileOf(*given, arguments[1])};
        }
    }
    const std::string commandLine = JoinArguments(arguments);
    if (commandLine.empty()) {
        return {true, std::nullopt};
    }
    return {false, ParseCommandLine(commandLine)};
}

} // namespace shell
