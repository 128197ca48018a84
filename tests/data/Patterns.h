// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/FieldReader.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace support {

constexpr std::size_t PatternSteps = 14;
constexpr std::size_t PatternPositions = 15;

using Row = std::array<int, PatternPositions>;

/// The name itself.
constexpr Row AtRest = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};

/// A pattern of the animation wizard, as its file has it.
struct Pattern {
    std::string title;
    std::vector<Row> rows;

    [[nodiscard]] bool blank() const {
        return std::all_of(rows.begin(), rows.end(), [](const Row& row) { return row == Row(); });
    }

    /// Whether it ends with nothing left of the name, until that is there again as the fifteenth.
    [[nodiscard]] bool leaves() const { return rows.back() == Row(); }

    /// Whether it shows nothing but the whole name.
    [[nodiscard]] bool flashes() const {
        return std::all_of(
            rows.begin(), rows.end(), [](const Row& row) { return row == Row() || row == AtRest; });
    }
};

inline std::string PositionalFile() {
    return FileContent(PROGRAM_DIR "/vtmani01.dat");
}

inline std::string ColourCaseFile() {
    return FileContent(PROGRAM_DIR "/vtmani02.dat");
}

inline std::vector<Pattern> ReadPatternsOf(const std::string& bytes) {
    glyphs::FieldReader fields(bytes);
    std::vector<Pattern> patterns(static_cast<std::size_t>(std::max<int>(fields.number().value_or(0), 0)));
    for (Pattern& pattern : patterns) {
        pattern.title = fields.text().value_or("");
        pattern.rows.resize(PatternSteps);
        for (Row& row : pattern.rows) {
            for (int& cell : row) {
                cell = fields.number().value_or(-1);
            }
        }
    }
    EXPECT_TRUE(fields.atEnd());
    return patterns;
}

/// Glyphs that a row shows.
inline std::ptrdiff_t ShownIn(const Row& row) {
    return std::count_if(row.begin(), row.end(), [](int cell) { return cell != 0; });
}

inline Pattern PatternNamed(const std::vector<Pattern>& patterns, const std::string& title) {
    const auto found = std::find_if(patterns.begin(), patterns.end(), [&title](const Pattern& pattern) {
        return pattern.title == title;
    });
    if (found == patterns.end()) {
        ADD_FAILURE() << "no " << title;
        return {title, std::vector<Row>(PatternSteps)};
    }
    return *found;
}

} // namespace support
