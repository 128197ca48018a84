// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace glyphs {

/// Takes the fields of a sequential data file one after the other: each ends at a comma or at a line end (CR
/// LF, CR or LF). Blanks, tabs and empty lines before a field are skipped. The bytes may be anything.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes)
        : m_bytes(bytes) {}

    /// Whether nothing but blanks and line ends is left. After a trailing comma: true as well.
    [[nodiscard]] bool atEnd();

    /// The next field as text: what stands between its double quotes, which may be commas, or all of the
    /// field if it does not begin with one. Nothing at the end, when the closing quote is missing on its
    /// line, or when more than blanks follows the closing quote.
    std::optional<std::string_view> text();

    /// The next field as a decimal whole number of 16 bits, blanks around it ignored. Nothing at the end or
    /// when the field is anything else; the field is then passed all the same.
    std::optional<std::int16_t> number();

    /// The 1-based line of the field last taken; of the last line when there was no field left.
    [[nodiscard]] int line() const { return m_fieldLine; }

    /// Whether a comma ended the field last taken.
    [[nodiscard]] bool endedAtComma() const { return m_endedAtComma; }

private:
    void skipBlanks();
    void skipBlanksAndLineEnds();
    bool skipLineEnd();
    std::string_view restOfField();
    void passFieldEnd();

    std::string_view m_bytes;
    std::size_t m_at = 0;
    int m_line = 1;
    int m_fieldLine = 1;
    bool m_endedAtComma = false;
};

/// A decimal whole number of 16 bits with an optional sign and nothing else; surrounding blanks and tabs are
/// ignored.
[[nodiscard]] std::optional<std::int16_t> ParseNumber(std::string_view text);

} // namespace glyphs
