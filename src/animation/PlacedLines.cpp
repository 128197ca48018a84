// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/PlacedLines.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace animation {

namespace {

/// More than any picture has pixels.
constexpr int FarthestLine = 1'000'000;

bool IsNear(int place) {
    return place > -FarthestLine && place < FarthestLine;
}

} // namespace

std::optional<BoardLine> LineOn(const PlacedLines& lines, const std::string& screenShot) {
    const auto found = std::ranges::find(lines, screenShot, &PlacedLine::screenShot);
    return found == lines.end() ? std::nullopt : std::optional(found->line);
}

void KeepLine(PlacedLines& lines, const std::string& screenShot, const std::optional<BoardLine>& line) {
    if (LineOn(lines, screenShot) == line) {
        return;
    }
    std::erase_if(lines, [&screenShot](const PlacedLine& placed) { return placed.screenShot == screenShot; });
    if (line) {
        lines.insert(lines.begin(), {screenShot, *line});
        lines.resize(std::min(lines.size(), MaxPlacedLines));
    }
}

std::string PlacedLinesText(const PlacedLines& lines) {
    std::string text;
    for (const PlacedLine& placed : lines) {
        text += (text.empty() ? "" : "\n") + std::to_string(placed.line.x) + ' ' +
                std::to_string(placed.line.y) + ' ' + placed.screenShot;
    }
    return text;
}

PlacedLines PlacedLinesOf(const std::string& text) {
    PlacedLines lines;
    std::istringstream rows(text);
    for (std::string row; lines.size() < MaxPlacedLines && std::getline(rows, row);) {
        std::istringstream words(row);
        PlacedLine placed;
        if (words >> placed.line.x >> placed.line.y && words.get() == ' ' &&
            std::getline(words, placed.screenShot) && IsNear(placed.line.x) && IsNear(placed.line.y)) {
            lines.push_back(std::move(placed));
        }
    }
    return lines;
}

} // namespace animation
