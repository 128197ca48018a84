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
    std::size_t line = 1;
    for (; line <= map.size(); ++line) {
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
    for (; !lines.atEnd(); ++line) {
        if (!glyphs::FieldReader(lines.next()).atEnd()) {
            return LineFailure(line, "is one too many");
        }
    }
    return map;
}

ui::Result<KeyMap> ReadKeyMap(const ui::Files& files, const ui::Path& path) {
    const auto bytes = files.read(path);
    if (!bytes) {
        return bytes.failure();
    }
    auto map = ParseKeyMap(bytes.value());
    if (!map) {
        return ui::Failure{
            "The key map \"" + ui::PathText(path) + "\" is damaged: " + map.failure().message + "."};
    }
    return map;
}

LoadedKeyMap LoadKeyMap(const ui::Files& files, const ui::ProgramDirectory& directory) {
    const ui::Path path = directory.toRead(std::string(KeyMapName));
    if (!files.exists(path)) {
        return {DefaultKeyMap(), {}};
    }
    const auto map = ReadKeyMap(files, path);
    if (!map) {
        return {DefaultKeyMap(), map.failure()};
    }
    return {map.value(), {}};
}

ui::Status WriteKeyMap(ui::Files& files, const ui::ProgramDirectory& directory, const KeyMap& map) {
    return ui::WriteFile(files, directory.toWrite(std::string(KeyMapName)), KeyMapText(map));
}

} // namespace editing
