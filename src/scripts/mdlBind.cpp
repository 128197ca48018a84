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

/// The same as FindKey(); -1: none.
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

std::optional<int> FindKey(std::string_view name) {
    const int key = KeyOf(name);
    return key < 0 ? std::nullopt : std::optional(key);
}

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
    line += ui::PathText(script.filename());
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

BindingLine LineToReplace(std::string_view config, const BoundKeys& bound, int key) {
    // A key may be bound by comments alone. They stay, and the binding is added.
    return bound[static_cast<std::size_t>(key)] ? FindBindingLine(config, key) : BindingLine{};
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
    const BoundKeys bound = GetBoundKeys(config);
    if (bound[static_cast<std::size_t>(key)] && !dialogs.askYesNo(texts::KeyIsBound)) {
        return {};
    }
    const BindingLine old = LineToReplace(config, bound, key);
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
