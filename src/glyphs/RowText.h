// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"

#include <span>
#include <string>
#include <string_view>

namespace glyphs {

/// The cells of a row as bytes, one a cell, without the blanks (byte 32) at its right end.
[[nodiscard]] std::string RowText(std::span<const GlyphCode> row);

/// Whether a glyph ends the line or the quoted name that it is written into: 10, 13 and 34.
[[nodiscard]] bool BreaksScriptLine(GlyphCode code);

/// The console command that sets a name.
enum class NameCommand {
    Name,   ///< name "..."
    SetName ///< set name "..."
};

/// The command as it is typed.
[[nodiscard]] constexpr std::string_view CommandWord(NameCommand command) {
    return command == NameCommand::SetName ? "set name" : "name";
}

/// The line, without its end, that sets the name in a row: the command, a blank and the quoted row text.
[[nodiscard]] std::string NameLine(NameCommand command, std::span<const GlyphCode> row);

/// Reads the quoted text of a script line into a row. All cells become blank; then the bytes after the line's
/// first double quote (the whole line, if there is none) up to but not including its last byte, whatever that
/// is, go into the cells in order. Returns false when there are more bytes than cells; the cells then hold
/// the first of them.
[[nodiscard]] bool ParseQuotedLine(std::string_view line, std::span<GlyphCode> row);

/// Takes a file's bytes apart into lines. A line ends at CR LF, CR or LF; what follows the last line end is a
/// line of its own unless it is empty.
class ByteLines {
public:
    explicit ByteLines(std::string_view bytes)
        : m_rest(bytes) {}

    [[nodiscard]] bool atEnd() const { return m_rest.empty(); }

    /// The next line without its end. At the end of the bytes: an empty line.
    std::string_view next();

private:
    std::string_view m_rest;
};

} // namespace glyphs
