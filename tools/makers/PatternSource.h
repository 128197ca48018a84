// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace makers {

constexpr std::size_t PatternSteps = 14;
constexpr std::size_t PatternPositions = 15;

using PatternRow = std::array<int, PatternPositions>;

/// A pattern of the animation wizard: PatternSteps rows.
struct Pattern {
    int line = 0; ///< of the source, 1-based
    std::string title;
    std::vector<PatternRow> rows;
};

struct PatternSource {
    bool arePositions = false; ///< cells are positions of the name or 0, otherwise 1 where it is marked
    std::vector<Pattern> patterns;
};

/// Reads a source of patterns and refuses it unless every one is whole and different from the others.
[[nodiscard]] PatternSource ReadPatterns(const std::string& file);

} // namespace makers
