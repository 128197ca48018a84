// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/BindHints.h"

#include "games/Script.h"
#include "glyphs/RowText.h"
#include "scripts/ConfigRewrite.h"
#include "scripts/Lines.h"
#include "scripts/Texts.h"

#include <algorithm>

namespace scripts {

namespace {

/// The name of a byte that keeps `exec` from running a script with it in its file name.
std::string NameOfByte(char byte) {
    if (byte == ' ') {
        return "a blank";
    }
    const auto code = static_cast<unsigned char>(byte);
    if (code < 32 || code == 127) {
        return "a control character";
    }
    return code > 127 ? "an accented or foreign letter" : std::string("a ") + byte;
}

/// The key that a line binds without quotes around its name, as some games write it.
std::optional<int> UnquotedKey(std::string_view line) {
    constexpr std::string_view Blanks = " \t";
    constexpr std::string_view Command = "bind";
    const auto withoutBlanks = [Blanks](std::string_view text) {
        return text.substr(std::min(text.find_first_not_of(Blanks), text.size()));
    };
    line = withoutBlanks(line);
    if (line.size() <= Command.size() || !HoldsAnyCase(line.substr(0, Command.size()), Command) ||
        Blanks.find(line[Command.size()]) == std::string_view::npos) {
        return {};
    }
    line = withoutBlanks(line.substr(Command.size()));
    return FindKey(line.substr(0, line.find_first_of(Blanks)));
}

} // namespace

std::string ScriptNameHint(const ui::Path& script, std::span<const games::Family> families) {
    const games::NameTrouble trouble = games::TroubleOfScriptName(ui::PathText(script.filename()), families);
    switch (trouble.kind) {
    case games::NameTrouble::Kind::EveryGame:
        return texts::NoGameRuns(NameOfByte(trouble.byte));
    case games::NameTrouble::Kind::SomeGames:
        return texts::SomeGamesRun(NameOfByte(trouble.byte));
    case games::NameTrouble::Kind::TooLong:
        return texts::LongScriptName;
    case games::NameTrouble::Kind::None:
        break;
    }
    return {};
}

std::string ScriptHint(const ui::Files& files, const ui::Path& script) {
    if (script.empty()) {
        return {};
    }
    switch (files.kindOf(script)) {
    case ui::PathKind::Nothing:
        return texts::ScriptNotThere;
    case ui::PathKind::Folder:
        return texts::IsFolder;
    case ui::PathKind::Device:
        return texts::IsDevice;
    case ui::PathKind::File:
        break;
    }
    return ScriptNameHint(script);
}

std::string BindingForecast(std::string_view config, const BoundKeys& bound, int key) {
    const BindingLine replaced = LineToReplace(config, bound, key);
    if (replaced.number > 0) {
        return LineToBeReplacedText(replaced.number, replaced.text);
    }
    glyphs::ByteLines lines(config);
    int binding = 0;
    for (int number = 1; !lines.atEnd(); ++number) {
        if (UnquotedKey(lines.next()) == key) {
            binding = number;
        }
    }
    const std::string text = texts::LineIsAdded;
    return binding == 0 ? text : text + "; line " + std::to_string(binding) + " binds this key too and stays";
}

std::string UnquotedKeysText(std::string_view config, const BoundKeys& bound) {
    BoundKeys unlisted{};
    for (glyphs::ByteLines lines(config); !lines.atEnd();) {
        if (const auto key = UnquotedKey(lines.next())) {
            const auto index = static_cast<std::size_t>(*key);
            unlisted[index] = !bound[index];
        }
    }
    const auto count = std::ranges::count(unlisted, true);
    if (count == 0) {
        return {};
    }
    return "This file writes keys without quotes: its " +
           (count == 1 ? "bound key is" : std::to_string(count) + " bound keys are") + " listed as free";
}

std::string ConfigKeys::forecast(std::optional<int> key) const {
    return config && key ? BindingForecast(*config, bound, *key) : std::string();
}

ConfigKeys ReadBoundKeys(const ui::Files& files, const ui::Path& config) {
    ConfigKeys keys;
    if (config.empty()) {
        return keys;
    }
    const ui::Status changeable = MayBeChanged(files, config);
    switch (files.kindOf(config)) {
    case ui::PathKind::Nothing:
        keys.hint = texts::ConfigNotThere;
        if (changeable) {
            keys.config.emplace();
        } else {
            keys.reason = changeable.failure().message;
            keys.hint = texts::ConfigNotToBeChanged;
        }
        return keys;
    case ui::PathKind::Folder:
        keys.hint = texts::IsFolder;
        return keys;
    case ui::PathKind::Device:
        keys.hint = texts::IsDevice;
        return keys;
    case ui::PathKind::File:
        break;
    }
    auto bytes = files.read(config);
    if (!bytes) {
        keys.hint = texts::ConfigNotReadable;
        keys.reason = bytes.failure().message;
        return keys;
    }
    keys.bound = GetBoundKeys(bytes.value());
    const bool isScript = Holds(glyphs::ByteLines(bytes.value()).next(), "File Created by Vortigo");
    keys.hint = isScript ? texts::ConfigIsScript : UnquotedKeysText(bytes.value(), keys.bound);
    if (changeable) {
        keys.config = std::move(bytes).value();
    } else {
        keys.hint = texts::ConfigNotToBeChanged;
        keys.reason = changeable.failure().message;
    }
    return keys;
}

} // namespace scripts
