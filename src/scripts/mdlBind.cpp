// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlBind.h"

#include "glyphs/RowText.h"
#include "scripts/ConfigRewrite.h"
#include "scripts/Lines.h"
#include "scripts/Texts.h"

#include <algorithm>
#include <cassert>

namespace scripts {

namespace {

std::string_view NameOf(int key) {
    assert(key >= 0 && static_cast<std::size_t>(key) < KeyCount);
    return KeyNames[static_cast<std::size_t>(key)];
}

bool IsSameName(std::string_view text, std::string_view name) {
    return std::equal(text.begin(), text.end(), name.begin(), name.end(), [](char a, char b) {
        return FoldCase(a) == FoldCase(b);
    });
}

/// The keys by the first byte of their names, letters made small: the last one of the table, and for every
/// key the one before it with the same first byte. -1: none.
struct KeysByFirstByte {
    std::array<int, 256> last{};
    std::array<int, KeyCount> before{};
};

constexpr std::size_t FirstByte(std::string_view name) {
    return static_cast<unsigned char>(FoldCase(name.front()));
}

constexpr KeysByFirstByte SortKeys() {
    KeysByFirstByte keys;
    keys.last.fill(-1);
    for (std::size_t key = 0; key < KeyCount; ++key) {
        int& last = keys.last[FirstByte(KeyNames[key])];
        keys.before[key] = last;
        last = static_cast<int>(key);
    }
    return keys;
}

/// The key of that name, in any case; -1: none.
int KeyOf(std::string_view name) {
    static constexpr KeysByFirstByte Keys = SortKeys();
    int key = name.empty() ? -1 : Keys.last[FirstByte(name)];
    while (key >= 0 && !IsSameName(name, NameOf(key))) {
        key = Keys.before[static_cast<std::size_t>(key)];
    }
    return key;
}

/// The last key of the table whose quoted name is in the line. A quote may end one word and begin the next.
int LastQuotedKey(std::string_view line) {
    int last = -1;
    const char* quote = nullptr;
    // A plain loop: find() calls a function for every word.
    for (const char& byte : line) {
        if (byte != '"') {
            continue;
        }
        if (quote != nullptr) {
            last = std::max(last, KeyOf({quote + 1, &byte}));
        }
        quote = &byte;
    }
    return last < 0 ? NoKeyFound : last;
}

} // namespace

int CheckStrForKey(std::string_view line) {
    return HoldsAnyCase(line, "bind") ? LastQuotedKey(line) : NoKeyFound;
}

BoundKeys GetBoundKeys(std::string_view config) {
    BoundKeys bound{};
    for (glyphs::ByteLines lines(config); !lines.atEnd();) {
        if (const int key = CheckStrForKey(lines.next()); key != NoKeyFound) {
            bound[static_cast<std::size_t>(key)] = true;
        }
    }
    return bound;
}

std::string BindLine(int key, const ui::Path& script) {
    std::string line = "bind \"";
    line += NameOf(key);
    line += "\" \"exec ";
    line += script.filename().native();
    line += '"';
    return line;
}

BindingLine FindBindingLine(std::string_view config, int key) {
    const std::string quoted = '"' + std::string(NameOf(key)) + '"';
    glyphs::ByteLines lines(config);
    for (int number = 1; !lines.atEnd(); ++number) {
        const std::string_view line = lines.next();
        if (HoldsAnyCase(line, quoted) && !Holds(line, "//")) {
            return {number, ui::Bytes(line)};
        }
    }
    return {};
}

ui::Bytes AppendedBinding(std::string_view config, int key, const ui::Path& script) {
    ui::Bytes added;
    // A bind line that ran on from the line before it would bind nothing.
    if (!config.empty() && config.back() != '\n' && config.back() != '\r') {
        added += LineEnd;
    }
    added += BindLine(key, script);
    added += LineEnd;
    return added;
}

std::string ScriptHint(const ui::Path& script) {
    const bool isOneWord = script.filename().native().find_first_of(" ;\"\r\n") == std::string::npos;
    return isOneWord ? "" : texts::AwkwardScriptName;
}

ConfigKeys ReadBoundKeys(const ui::Files& files, const ui::Path& config) {
    ConfigKeys keys;
    if (config.empty()) {
        return keys;
    }
    if (const auto bytes = files.read(config)) {
        keys.bound = GetBoundKeys(bytes.value());
    } else {
        keys.hint = files.exists(config) ? texts::ConfigNotReadable : texts::ConfigNotThere;
        keys.reason = bytes.failure().message;
    }
    return keys;
}

ui::FileDialogRequest BindConfigRequest() {
    ui::FileDialogRequest request;
    request.title = "Select the CFG file to alter";
    request.initialName = "*.cfg";
    request.filters = {{"Config File (*.cfg)", {"*.cfg"}}};
    return request;
}

ui::FileDialogRequest BindScriptRequest() {
    ui::FileDialogRequest request;
    request.title = "Select the Script file to Bind to";
    request.initialName = "*.scr";
    request.filters = {
        {"VTM Name Script (*.vtn)", {"*.vtn"}},
        {"Script File (*.scr)", {"*.scr"}},
        {"VTM Animation Script (*.vta)", {"*.vta"}},
        {"VTM Message Script (*.vtm)", {"*.vtm"}}};
    return request;
}

ConfigOutcome BindKey(
    ui::Dialogs& dialogs, ui::Files& files, const ui::ProgramDirectory& directory, const BindChoice& choice) {
    if (choice.config.empty()) {
        dialogs.inform(texts::NoConfigFile);
        return {};
    }
    if (!choice.script.has_filename()) {
        dialogs.inform(texts::NoScriptFile);
        return {};
    }
    if (!choice.key) {
        dialogs.inform(texts::NoKey);
        return {};
    }
    const int key = *choice.key;
    ui::Bytes config;
    const bool isThere = files.exists(choice.config);
    if (isThere) {
        auto bytes = files.read(choice.config);
        if (!bytes) {
            dialogs.warn(bytes.failure().message);
            return {};
        }
        config = std::move(bytes).value();
    }
    const bool isBound = GetBoundKeys(config)[static_cast<std::size_t>(key)];
    if (isBound && !dialogs.askYesNo(texts::KeyIsBound)) {
        return {};
    }
    // A key may be bound by comments alone. They stay, and the binding is added.
    const BindingLine old = isBound ? FindBindingLine(config, key) : BindingLine{};
    ConfigOutcome outcome;
    ui::Status done;
    if (old.number == 0) {
        done = AppendToConfig(
            files, directory, choice.config, isThere ? std::optional(config) : std::nullopt,
            AppendedBinding(config, key, choice.script));
    } else if (
        const auto rewritten = RewriteConfig(
            files, directory, choice.config, config,
            ReplaceLine(config, old.number, BindLine(key, choice.script)))) {
        outcome.statusText = ReplacedLineText(old.number, old.text, rewritten.value().leftover);
    } else {
        done = rewritten.failure();
    }
    if (!done) {
        dialogs.warn(done.failure().message);
        return {};
    }
    outcome.written = true;
    dialogs.inform(texts::BindingUpdatedInConfig(choice.config));
    return outcome;
}

} // namespace scripts
