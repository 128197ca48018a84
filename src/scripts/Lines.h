// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string_view>

namespace scripts {

/// What ends every line that is written.
constexpr std::string_view LineEnd = "\r\n";

/// Whether `line` holds `word` anywhere, letter for letter.
[[nodiscard]] inline bool Holds(std::string_view line, std::string_view word) {
    return line.find(word) != std::string_view::npos;
}

/// The byte with A to Z made small. Glyphs of colour 2 are no letters here, so no locale is asked.
[[nodiscard]] constexpr char FoldCase(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// Whether `line` holds `word` anywhere, whatever the case of the letters A to Z.
[[nodiscard]] inline bool HoldsAnyCase(std::string_view line, std::string_view word) {
    const auto same = [](char a, char b) {
        return FoldCase(a) == FoldCase(b);
    };
    return std::search(line.begin(), line.end(), word.begin(), word.end(), same) != line.end() ||
           word.empty();
}

} // namespace scripts
