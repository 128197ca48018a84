// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/RowVerdict.h"

#include <string>
#include <string_view>
#include <vector>

namespace games_test {

/// The bytes of a text as a row of glyphs.
inline std::vector<glyphs::GlyphCode> Row(std::string_view bytes) {
    std::vector<glyphs::GlyphCode> row;
    for (const char byte : bytes) {
        row.push_back(static_cast<unsigned char>(byte));
    }
    return row;
}

/// A row of glyphs as bytes.
inline std::string Text(std::span<const glyphs::GlyphCode> row) {
    std::string text;
    for (const glyphs::GlyphCode code : row) {
        text += static_cast<char>(static_cast<unsigned char>(code));
    }
    return text;
}

/// What of a row is seen in the end.
inline std::string Shown(const games::RowVerdict& verdict) {
    return Text(verdict.shownRow());
}

inline games::RowVerdict ForOthers(games::Family family, std::string_view name) {
    return games::JudgeName(family, games::Audience::Others, Row(name));
}

inline games::RowVerdict ForPlayer(games::Family family, std::string_view name) {
    return games::JudgeName(family, games::Audience::Player, Row(name));
}

} // namespace games_test
