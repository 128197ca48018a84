// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/FieldReader.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr std::size_t Steps = 14;
constexpr std::size_t Positions = 15;

using Row = std::array<int, Positions>;

struct Pattern {
    std::string title;
    std::vector<Row> rows;

    [[nodiscard]] bool blank() const {
        return std::all_of(rows.begin(), rows.end(), [](const Row& row) {
            return std::all_of(row.begin(), row.end(), [](int cell) { return cell == 0; });
        });
    }
};

std::string positionalFile() {
    return support::FileContent(PROGRAM_DIR "/vtmani01.dat");
}

std::string colourCaseFile() {
    return support::FileContent(PROGRAM_DIR "/vtmani02.dat");
}

// Lines without their CR LF; fails when the file does not consist of such lines.
std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::size_t end = bytes.find("\r\n", at);
        if (end == std::string::npos) {
            ADD_FAILURE() << "the last line has no end";
            break;
        }
        lines.push_back(bytes.substr(at, end - at));
        EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos);
        at = end + 2;
    }
    return lines;
}

std::vector<Pattern> readPatterns(const std::string& bytes) {
    glyphs::FieldReader fields(bytes);
    std::vector<Pattern> patterns(static_cast<std::size_t>(std::max<int>(fields.number().value_or(0), 0)));
    for (Pattern& pattern : patterns) {
        pattern.title = fields.text().value_or("");
        pattern.rows.resize(Steps);
        for (Row& row : pattern.rows) {
            for (int& cell : row) {
                cell = fields.number().value_or(-1);
            }
        }
    }
    EXPECT_TRUE(fields.atEnd());
    return patterns;
}

void expectExactLines(const std::string& bytes) {
    const std::vector<std::string> lines = linesOf(bytes);
    ASSERT_FALSE(lines.empty());
    const auto count = static_cast<std::size_t>(std::stoi(lines[0]));
    EXPECT_EQ(lines[0], std::to_string(count));
    ASSERT_EQ(lines.size(), 1 + count * (1 + Steps));
    for (std::size_t index = 0; index < count; ++index) {
        const std::size_t first = 1 + index * (1 + Steps);
        const std::string& title = lines[first];
        SCOPED_TRACE(title);
        ASSERT_GT(title.size(), 2U);
        EXPECT_EQ(title.front(), '"');
        EXPECT_EQ(title.back(), '"');
        EXPECT_EQ(std::count(title.begin(), title.end(), '"'), 2);
        for (std::size_t step = 1; step <= Steps; ++step) {
            const std::string& row = lines[first + step];
            EXPECT_EQ(std::count(row.begin(), row.end(), ','), 14) << row;
            EXPECT_EQ(row.find_first_not_of("0123456789,"), std::string::npos) << row;
        }
    }
}

void expectDistinct(const std::vector<Pattern>& patterns) {
    std::set<std::string> titles;
    std::set<std::vector<Row>> grids;
    for (const Pattern& pattern : patterns) {
        EXPECT_FALSE(pattern.title.empty());
        EXPECT_TRUE(titles.insert(pattern.title).second) << pattern.title;
        EXPECT_TRUE(grids.insert(pattern.rows).second) << pattern.title;
        EXPECT_FALSE(pattern.blank()) << pattern.title;
    }
}

void expectCellsUpTo(const std::vector<Pattern>& patterns, int highest) {
    for (const Pattern& pattern : patterns) {
        for (const Row& row : pattern.rows) {
            for (const int cell : row) {
                EXPECT_GE(cell, 0) << pattern.title;
                EXPECT_LE(cell, highest) << pattern.title;
            }
        }
    }
}

} // namespace

TEST(PositionalPatterns, ComeInLinesOfTheFileFormat) {
    expectExactLines(positionalFile());
}

TEST(PositionalPatterns, AreManyAndDistinct) {
    const std::vector<Pattern> patterns = readPatterns(positionalFile());
    EXPECT_GE(patterns.size(), 24U);
    expectDistinct(patterns);
}

TEST(PositionalPatterns, NameBlanksAndPositionsOfTheName) {
    expectCellsUpTo(readPatterns(positionalFile()), 15);
}

TEST(PositionalPatterns, StillMoveWhenOnlyTheirOddRowsPlay) {
    for (const Pattern& pattern : readPatterns(positionalFile())) {
        std::set<Row> played;
        for (std::size_t step = 0; step < Steps; step += 2) {
            played.insert(pattern.rows[step]);
        }
        played.erase(Row());
        EXPECT_GE(played.size(), 3U) << pattern.title;
    }
}

TEST(PositionalPatterns, BringInAllButAFewGlyphsBeforeTheNameRests) {
    for (const Pattern& pattern : readPatterns(positionalFile())) {
        std::set<int> shown;
        for (const Row& row : pattern.rows) {
            shown.insert(row.begin(), row.end());
        }
        shown.erase(0);
        EXPECT_GE(shown.size(), 12U) << pattern.title;
    }
}

TEST(ColourCasePatterns, ComeInLinesOfTheFileFormat) {
    expectExactLines(colourCaseFile());
}

TEST(ColourCasePatterns, AreManyAndDistinct) {
    const std::vector<Pattern> patterns = readPatterns(colourCaseFile());
    EXPECT_GE(patterns.size(), 16U);
    expectDistinct(patterns);
}

TEST(ColourCasePatterns, OnlyMarkCells) {
    expectCellsUpTo(readPatterns(colourCaseFile()), 1);
}

TEST(ColourCasePatterns, ReachAllButOneGlyphOfTheName) {
    for (const Pattern& pattern : readPatterns(colourCaseFile())) {
        Row marked = {};
        for (const Row& row : pattern.rows) {
            for (std::size_t at = 0; at < Positions; ++at) {
                marked[at] += row[at];
            }
        }
        EXPECT_LE(std::count(marked.begin(), marked.end(), 0), 1) << pattern.title;
    }
}

TEST(ColourCasePatterns, Change) {
    for (const Pattern& pattern : readPatterns(colourCaseFile())) {
        EXPECT_GE(std::set<Row>(pattern.rows.begin(), pattern.rows.end()).size(), 2U) << pattern.title;
    }
}
