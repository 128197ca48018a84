// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"

#include "shell/Product.h"

#include <algorithm>

namespace shell {

using editing::Kind;

namespace {

constexpr auto UsageText =
    R"(
Edits the names, name animations and messages of Quake and Quake2 players. A FILE
that is given is loaded: a name script, an animation or messages. The blank before
the switch is a part of the argument.

  --help     print this, and end
  --version  print the version, and end
)";

std::string Usage() {
    std::string text = "Usage: vtm\n";
    for (const Kind& kind : editing::Kinds) {
        text.append("       vtm \"").append(kind.commandSwitch).append("FILE\"\n");
    }
    return text + UsageText;
}

/// The kind whose switch is the whole argument, which begins with the blank before the switch; the blank
/// after it comes from joining the arguments.
const Kind* KindOfSwitch(std::string_view argument) {
    const auto* const found =
        std::find_if(editing::Kinds.begin(), editing::Kinds.end(), [argument](const Kind& kind) {
            return kind.commandSwitch.substr(0, kind.commandSwitch.size() - 1) == argument;
        });
    return found == editing::Kinds.end() ? nullptr : found;
}

CommandLineFile FileOf(const Kind& kind, std::string_view path) {
    const ui::Path whole = ui::PathFromText(path);
    return {kind.page, whole.parent_path(), whole.filename(), kind.shownAfterSwitch};
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
        return Usage();
    }
    if (arguments.size() == 1 && arguments[0] == "--version") {
        return std::string("vtm ") + ProductVersion + '\n';
    }
    return {};
}

std::string ReadAtStartText(const std::string& name, editing::Page kind) {
    return name + " was read and is on the page " + editing::KindOf(kind).caption + '.';
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
    for (const editing::Page page : editing::StartOrder) {
        const Kind& kind = editing::KindOf(page);
        const auto place = text.find(kind.commandSwitch);
        if (place != std::string_view::npos) {
            std::string path(text.substr(0, place));
            path += text.substr(place + kind.commandSwitch.size());
            return FileOf(kind, path);
        }
    }
    return std::nullopt;
}

StartFiles ReadArguments(std::span<const std::string> arguments) {
    // The desktop starts the program with two arguments. The path is taken as it is: its name may hold quotes
    // or even a switch.
    if (arguments.size() == 2) {
        if (const Kind* kind = KindOfSwitch(arguments[0])) {
            return {false, FileOf(*kind, arguments[1])};
        }
    }
    // Where there is no desktop, its opener splits the quoted switch at its blank and leaves the quotes in.
    if (arguments.size() == 3 && arguments[0] == "\"" && arguments[1].ends_with('"')) {
        if (const Kind* kind = KindOfSwitch(" " + arguments[1].substr(0, arguments[1].size() - 1))) {
            return {false, FileOf(*kind, arguments[2])};
        }
    }
    const std::string commandLine = JoinArguments(arguments);
    if (commandLine.empty()) {
        return {true, std::nullopt};
    }
    return {false, ParseCommandLine(commandLine)};
}

} // namespace shell
