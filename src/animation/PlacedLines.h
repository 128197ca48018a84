// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/RankingsLayout.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace animation {

/// The line that was chosen on a screenshot.
struct PlacedLine {
    std::string screenShot; ///< its path as the settings have it
    BoardLine line;
    friend bool operator==(const PlacedLine&, const PlacedLine&) = default;
};

/// Lines on screenshots, the one that was chosen last first.
using PlacedLines = std::vector<PlacedLine>;

/// So many of them are kept.
inline constexpr std::size_t MaxPlacedLines = 20;

/// The line of a screenshot, if one was chosen.
[[nodiscard]] std::optional<BoardLine> LineOn(const PlacedLines& lines, const std::string& screenShot);

/// Keeps the line of a screenshot; none forgets it.
void KeepLine(PlacedLines& lines, const std::string& screenShot, const std::optional<BoardLine>& line);

/// As they are stored: one a line of text, x, y and the path with blanks between them.
[[nodiscard]] std::string PlacedLinesText(const PlacedLines& lines);

/// What such a text holds; lines that cannot be read are left out.
[[nodiscard]] PlacedLines PlacedLinesOf(const std::string& text);

} // namespace animation
