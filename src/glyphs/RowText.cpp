// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/RowText.h"

#include <algorithm>
#include <utility>

namespace glyphs {

std::string RowText(std::span<const GlyphCode> row) {
    std::string text;
    text.reserve(row.size());
    for (const GlyphCode code : row) {
        text.push_back(static_cast<char>(static_cast<unsigned char>(code)));
    }
    // find_last_not_of() + 1 is 0 for a row of blanks only.
    text.resize(text.find_last_not_of(' ') + 1);
    return text;
}

bool BreaksScriptLine(GlyphCode code) {
    return code == '\n' || code == '\r' || code == '"';
}

std::string NameLine(NameCommand command, std::span<const GlyphCode> row) {
    std::string line(CommandWord(command));
    line += " \"";
    line += RowText(row);
    line += '"';
    return line;
}

bool ParseQuotedLine(std::string_view line, std::span<GlyphCode> row) {
    std::fill(row.begin(), row.end(), BlankGlyph);
    const std::size_t quote = line.find('"');
    const std::size_t first = quote == std::string_view::npos ? 0 : quote + 1;
    const std::size_t end = line.empty() ? 0 : line.size() - 1;
    if (first >= end) {
        return true;
    }
    const std::string_view text = line.substr(first, end - first);
    const std::size_t count = std::min(text.size(), row.size());
    for (std::size_t i = 0; i < count; ++i) {
        row[i] = static_cast<unsigned char>(text[i]);
    }
    return text.size() <= row.size();
}

std::string_view ByteLines::next() {
    // A plain loop: find_first_of() calls a function for every byte.
    const auto isEnd = [](char byte) {
        return byte == '\r' || byte == '\n';
    };
    const auto found = std::find_if(m_rest.begin(), m_rest.end(), isEnd);
    if (found == m_rest.end()) {
        return std::exchange(m_rest, {});
    }
    const auto end = static_cast<std::size_t>(found - m_rest.begin());
    const std::string_view line = m_rest.substr(0, end);
    const bool isPair = m_rest[end] == '\r' && end + 1 < m_rest.size() && m_rest[end + 1] == '\n';
    m_rest.remove_prefix(end + (isPair ? 2U : 1U));
    return line;
}

} // namespace glyphs
