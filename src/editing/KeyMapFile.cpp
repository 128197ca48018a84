// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/KeyMapFile.h"

#include "glyphs/FieldReader.h"
#include "glyphs/RowText.h"
#include "ui/FileWriter.h"

#include <string>

namespace editing {

namespace {

ui::Failure LineFailure(std::size_t line, std::string_view what) {
    return {"line " + std::to_string(line) + " " + std::string(what)};
}

ui::Result<KeyGlyphs> ParseKeyLine(std::string_view text, std::size_t line) {
    glyphs::FieldReader fields(text);
    if (fields.atEnd()) {
        return LineFailure(line, "is empty");
    }
    KeyGlyphs row{};
    for (std::size_t column = 0; column < row.size(); ++column) {
        if (column > 0 && !fields.endedAtComma()) {
            return LineFailure(line, "has fewer than three numbers");
        }
        const auto number = fields.number();
        if (!number || *number < 0 || *number >= glyphs::GlyphCount) {
            return LineFailure(
                line, "does not have a glyph number from 0 to 255 as number " + std::to_string(column + 1));
        }
        row[column] = *number;
    }
    if (fields.endedAtComma()) {
        return LineFailure(line, "has more than three numbers");
    }
    return row;
}

/// Keeps a copy of an unusable file that is to be replaced.
ui::Status KeepDamaged(ui::Files& files, const ui::Path& path, std::string_view bytes) {
    const ui::Path kept = ui::DamagedCopyName(files, path);
    if (files.exists(kept)) {
        return ui::Failure{
            "The damaged key map \"" + ui::PathText(path) + "\" is not replaced: too many others are kept."};
    }
    return ui::WritePrivateCopy(files, kept, bytes);
}

/// The stored key map with the glyphs that were changed here.
KeyMap Merged(const KeyMaps& keys, KeyMap stored) {
    for (std::size_t key = 0; key < stored.size(); ++key) {
        for (std::size_t column = 0; column < stored[key].size(); ++column) {
            if (keys.used[key][column] != keys.inFile[key][column]) {
                stored[key][column] = keys.used[key][column];
            }
        }
    }
    return stored;
}

} // namespace

ui::Bytes KeyMapText(const KeyMap& map) {
    ui::Bytes bytes;
    for (const auto& [plain, shifted, ctrl] : map) {
        bytes += std::to_string(plain) + ',' + std::to_string(shifted) + ',' + std::to_string(ctrl) + "\r\n";
    }
    return bytes;
}

ui::Result<KeyMap> ParseKeyMap(std::string_view bytes) {
    glyphs::ByteLines lines(bytes);
    KeyMap map{};
    for (std::size_t line = 1; line <= map.size(); ++line) {
        if (lines.atEnd()) {
            return ui::Failure{
                "it ends after line " + std::to_string(line - 1) + " of " + std::to_string(map.size())};
        }
        const auto row = ParseKeyLine(lines.next(), line);
        if (!row) {
            return row.failure();
        }
        map[line - 1] = row.value();
    }
    return map;
}

LoadedKeyMap LoadKeyMap(const ui::Files& files, const ui::ProgramDirectory& directory) {
    const ui::Path path = directory.toRead(std::string(KeyMapName));
    if (!files.exists(path)) {
        return {DefaultKeyMap(), {}};
    }
    const auto bytes = files.read(path);
    const auto map = bytes ? ParseKeyMap(bytes.value()) : bytes.failure();
    if (map) {
        return {map.value(), {}};
    }
    std::string told = "Every key types its default glyph, because the key map cannot be used.\n";
    std::string cause = map.failure().message;
    if (bytes) {
        const bool isReplaced = path == directory.toWrite(std::string(KeyMapName));
        if (const ui::Path kept = ui::DamagedCopyName(files, path); isReplaced && !files.exists(kept)) {
            told += "Before the options replace it, it is kept as \"" + ui::PathText(kept) + "\".\n";
        }
        cause = "The key map \"" + ui::PathText(path) + "\" is damaged: " + cause + ".";
    }
    return {DefaultKeyMap(), ui::Failure{told + '\n' + cause}};
}

ui::Status WriteKeyMap(ui::Files& files, const ui::ProgramDirectory& directory, KeyMaps& keys) {
    const ui::Path path = directory.toWrite(std::string(KeyMapName));
    const auto lock = files.lockFolder(ui::FolderOf(path));
    if (!lock) {
        return lock.failure();
    }
    KeyMap written = keys.used;
    if (files.exists(path)) {
        const auto bytes = files.read(path);
        if (!bytes) {
            return bytes.failure();
        }
        if (const auto stored = ParseKeyMap(bytes.value())) {
            written = Merged(keys, stored.value());
        } else if (auto kept = KeepDamaged(files, path, bytes.value()); !kept) {
            return kept;
        }
    }
    if (auto done = ui::WriteFile(files, path, KeyMapText(written)); !done) {
        return done;
    }
    keys = {written, written};
    return {};
}

} // namespace editing
