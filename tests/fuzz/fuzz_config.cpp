// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "fuzz/Fuzz.h"
#include "scripts/ConfigRewrite.h"
#include "scripts/mdlBind.h"
#include "scripts/mdlConfig.h"
#include "scripts/mdlName.h"

#include <algorithm>
#include <string>
#include <vector>

// The rules of configuration files once more, written another way and without a thought of speed.
namespace {

/// The lines of a file: every CR LF, CR and LF ends one.
std::vector<std::string> LinesOf(std::string_view config) {
    std::vector<std::string> lines(1);
    for (std::size_t i = 0; i < config.size(); ++i) {
        if (config[i] == '\n' && i > 0 && config[i - 1] == '\r') {
            continue;
        }
        if (config[i] == '\r' || config[i] == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += config[i];
        }
    }
    if (lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

/// Whether each line ends at a CR that is none for the game, since line feeds end the lines of the file: all
/// but the last byte of a file may be one.
std::vector<bool> InnerEndsOf(std::string_view config, std::size_t lines) {
    std::vector<bool> inner;
    const bool hasFeeds = config.find('\n') != std::string_view::npos;
    for (std::size_t i = 0; i < config.size(); ++i) {
        if (config[i] == '\r' && config.substr(i, 2) != "\r\n") {
            inner.push_back(hasFeeds && i + 1 < config.size());
        } else if (config[i] == '\n') {
            inner.push_back(false);
        }
    }
    inner.resize(lines, false);
    return inner;
}

std::string Joined(const std::vector<std::string>& lines, const std::vector<bool>& inner) {
    std::string config;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        config += lines[i] + (inner[i] ? "\r" : "\r\n");
    }
    return config;
}

std::string Small(std::string text) {
    for (char& byte : text) {
        if (byte >= 'A' && byte <= 'Z') {
            byte = static_cast<char>(byte + 32);
        }
    }
    return text;
}

bool Has(const std::string& line, const std::string& word) {
    return Small(line).find(Small(word)) != std::string::npos;
}

std::string Quoted(int key) {
    return '"' + std::string(scripts::KeyNames.at(static_cast<std::size_t>(key))) + '"';
}

int NameLineOf(const std::vector<std::string>& lines) {
    for (std::size_t i = lines.size(); i > 0; --i) {
        if (Has(lines[i - 1], "name") && !Has(lines[i - 1], "//")) {
            return static_cast<int>(i);
        }
    }
    return 0;
}

int BindingLineOf(const std::vector<std::string>& lines, int key) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (Has(lines[i], Quoted(key)) && !Has(lines[i], "//")) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

int KeyOf(const std::string& line) {
    const std::string small = Small(line);
    for (int key = static_cast<int>(scripts::KeyCount) - 1; key >= 0; --key) {
        if (small.find("bind") != std::string::npos && small.find(Small(Quoted(key))) != std::string::npos) {
            return key;
        }
    }
    return scripts::NoKeyFound;
}

/// Replacing a line changes that line, the ends of the others that are lines for the game to CR LF, and
/// nothing else. The new line is one for the game as well.
void RequireReplaced(
    std::string_view config, std::vector<std::string> lines, int number, const std::string& line) {
    const std::string replaced = scripts::ReplaceLine(config, number, line);
    std::vector<bool> inner = InnerEndsOf(config, lines.size());
    if (number > 0) {
        lines.at(static_cast<std::size_t>(number - 1)) = line;
        inner.at(static_cast<std::size_t>(number - 1)) = false;
        if (number > 1) {
            inner.at(static_cast<std::size_t>(number - 2)) = false;
        }
    }
    fuzz::Require(replaced == Joined(lines, inner), "all bytes but those of the line and of line ends stay");
    fuzz::Require(
        scripts::ReplaceLine(replaced, number, line) == replaced, "replacing a line again changes nothing");
}

void RequireNameLine(std::string_view config, const std::vector<std::string>& lines) {
    const auto found = scripts::FindNameLine(config);
    fuzz::Require(
        found.has_value() == (lines.size() <= static_cast<std::size_t>(scripts::MaxConfigLines)),
        "only a file with too many lines is refused");
    if (!found) {
        return;
    }
    fuzz::Require(found->number == NameLineOf(lines), "the last line with a name is the name line");
    editing::NameDocument name;
    name.cells[2] = 200;
    if (found->number > 0) {
        const std::string& text = lines.at(static_cast<std::size_t>(found->number - 1));
        fuzz::Require(found->text == text, "the name line is shown as it is");
        fuzz::Require(found->isSetName == Has(text, "set name"), "the name line's form is seen");
        const auto command = found->isSetName ? scripts::NameCommand::SetName : scripts::NameCommand::Name;
        RequireReplaced(config, lines, found->number, scripts::NameLine(command, name));
    }
}

void RequireBinding(std::string_view config, std::vector<std::string> lines, int key) {
    scripts::BoundKeys bound{};
    for (const std::string& line : lines) {
        const int found = KeyOf(line);
        fuzz::Require(scripts::CheckStrForKey(line) == found, "a line binds the last key that it quotes");
        if (found != scripts::NoKeyFound) {
            bound.at(static_cast<std::size_t>(found)) = true;
        }
    }
    fuzz::Require(scripts::GetBoundKeys(config) == bound, "the keys of all lines are bound");

    const scripts::BindingLine found = scripts::FindBindingLine(config, key);
    fuzz::Require(found.number == BindingLineOf(lines, key), "the first line that quotes the key is found");
    const std::string line = scripts::BindLine(key, "a.vtn");
    RequireReplaced(config, lines, found.number, line);

    const std::string appended = std::string(config) + scripts::AppendedBinding(config, key, "a.vtn");
    lines.push_back(line);
    fuzz::Require(LinesOf(appended) == lines, "an added binding is one more line");
    fuzz::Require(
        appended.ends_with(line + "\r\n") && scripts::GetBoundKeys(appended)[static_cast<std::size_t>(key)],
        "an added binding binds the key");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    // The first byte chooses a key.
    const int key = data[0] % static_cast<int>(scripts::KeyCount);
    const std::string_view config = fuzz::Bytes(data + 1, size - 1);
    const std::vector<std::string> lines = LinesOf(config);
    RequireNameLine(config, lines);
    RequireBinding(config, lines, key);
    return 0;
}
