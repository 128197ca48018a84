// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "data/Patterns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

using support::ColourCaseFile;
using support::Pattern;
using support::PatternNamed;
using support::PatternPositions;
using support::PatternSteps;
using support::PositionalFile;
using support::ReadPatternsOf;
using support::Row;
using support::ShownIn;

namespace {

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

void expectExactLines(const std::string& bytes) {
    const std::vector<std::string> lines = linesOf(bytes);
    ASSERT_FALSE(lines.empty());
    const auto count = static_cast<std::size_t>(std::stoi(lines[0]));
    EXPECT_EQ(lines[0], std::to_string(count));
    ASSERT_EQ(lines.size(), 1 + count * (1 + PatternSteps));
    for (std::size_t index = 0; index < count; ++index) {
        const std::size_t first = 1 + index * (1 + PatternSteps);
        const std::string& title = lines[first];
        SCOPED_TRACE(title);
        ASSERT_GT(title.size(), 2U);
        EXPECT_EQ(title.front(), '"');
        EXPECT_EQ(title.back(), '"');
        EXPECT_EQ(std::count(title.begin(), title.end(), '"'), 2);
        for (std::size_t step = 1; step <= PatternSteps; ++step) {
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

/// How much two patterns look alike, from 0 to 1: the part of their cells that are the same, of those that
/// are not blank in both. A pattern that is another one a step later looks like it.
double likeness(const Pattern& one, const Pattern& other) {
    double most = 0;
    for (const int later : {-1, 0, 1}) {
        int same = 0;
        int all = 0;
        for (int step = 0; step < static_cast<int>(PatternSteps); ++step) {
            if (step + later < 0 || step + later >= static_cast<int>(PatternSteps)) {
                continue;
            }
            const Row& row = one.rows[static_cast<std::size_t>(step)];
            const Row& otherRow = other.rows[static_cast<std::size_t>(step + later)];
            for (std::size_t at = 0; at < PatternPositions; ++at) {
                const bool isSeen = row[at] != 0 || otherRow[at] != 0;
                all += isSeen ? 1 : 0;
                same += isSeen && row[at] == otherRow[at] ? 1 : 0;
            }
        }
        most = std::max(most, all == 0 ? 0 : static_cast<double>(same) / all);
    }
    return most;
}

void expectNoneAlike(const std::vector<Pattern>& patterns) {
    for (std::size_t later = 1; later < patterns.size(); ++later) {
        for (std::size_t earlier = 0; earlier < later; ++earlier) {
            EXPECT_LT(likeness(patterns[earlier], patterns[later]), 0.75)
                << patterns[earlier].title << " and " << patterns[later].title;
        }
    }
}

} // namespace

TEST(PositionalPatterns, ComeInLinesOfTheFileFormat) {
    expectExactLines(PositionalFile());
}

TEST(PositionalPatterns, AreManyAndDistinct) {
    const std::vector<Pattern> patterns = ReadPatternsOf(PositionalFile());
    EXPECT_GE(patterns.size(), 56U);
    expectDistinct(patterns);
}

TEST(PositionalPatterns, NameBlanksAndPositionsOfTheName) {
    expectCellsUpTo(ReadPatternsOf(PositionalFile()), 15);
}

TEST(PositionalPatterns, NeverLookAlike) {
    expectNoneAlike(ReadPatternsOf(PositionalFile()));
}

TEST(ColourCasePatterns, ComeInLinesOfTheFileFormat) {
    expectExactLines(ColourCaseFile());
}

TEST(ColourCasePatterns, AreManyAndDistinct) {
    const std::vector<Pattern> patterns = ReadPatternsOf(ColourCaseFile());
    EXPECT_GE(patterns.size(), 35U);
    expectDistinct(patterns);
}

TEST(ColourCasePatterns, OnlyMarkCells) {
    expectCellsUpTo(ReadPatternsOf(ColourCaseFile()), 1);
}

TEST(ColourCasePatterns, ReachAllButOneGlyphOfTheName) {
    for (const Pattern& pattern : ReadPatternsOf(ColourCaseFile())) {
        Row marked = {};
        for (const Row& row : pattern.rows) {
            for (std::size_t at = 0; at < PatternPositions; ++at) {
                marked[at] += row[at];
            }
        }
        EXPECT_LE(std::count(marked.begin(), marked.end(), 0), 1) << pattern.title;
    }
}

TEST(ColourCasePatterns, Change) {
    for (const Pattern& pattern : ReadPatternsOf(ColourCaseFile())) {
        EXPECT_GE(std::set<Row>(pattern.rows.begin(), pattern.rows.end()).size(), 2U) << pattern.title;
    }
}

TEST(ColourCasePatterns, NeverLookAlike) {
    expectNoneAlike(ReadPatternsOf(ColourCaseFile()));
}

TEST(ColourCasePatterns, SayWhenTheySnapBack) {
    for (const Pattern& pattern : ReadPatternsOf(ColourCaseFile())) {
        const bool onlyFills =
            std::is_sorted(pattern.rows.begin(), pattern.rows.end(), [](const Row& row, const Row& next) {
                return ShownIn(row) < ShownIn(next);
            });
        const bool snapsBack =
            onlyFills && ShownIn(pattern.rows.front()) <= 2 && ShownIn(pattern.rows.back()) >= 14;
        EXPECT_EQ(pattern.title.ends_with(", snap back"), snapsBack) << pattern.title;
    }
}

TEST(ColourCasePatterns, PassThroughManyStatesByThirds) {
    const Pattern thirds = PatternNamed(ReadPatternsOf(ColourCaseFile()), "Thirds");
    EXPECT_GE(std::set<Row>(thirds.rows.begin(), thirds.rows.end()).size(), 9U);
}

TEST(ColourCasePatterns, RunLetterByLetter) {
    const std::vector<Pattern> patterns = ReadPatternsOf(ColourCaseFile());
    const Pattern running = PatternNamed(patterns, "Single running letter");
    const Pattern back = PatternNamed(patterns, "Letter by letter, there and back");
    for (std::size_t step = 0; step < PatternSteps; ++step) {
        EXPECT_EQ(ShownIn(running.rows[step]), 1);
        EXPECT_EQ(running.rows[step][step], 1);
        const Row& row = back.rows[step];
        EXPECT_TRUE(std::is_sorted(row.rbegin(), row.rend())) << "from the first letter on";
        EXPECT_LE(std::abs(ShownIn(row) - (step == 0 ? 0 : ShownIn(back.rows[step - 1]))), 2);
    }
    EXPECT_EQ(ShownIn(back.rows[7]), 15);
    EXPECT_LE(ShownIn(back.rows.back()), 3) << "ends without a jump";
}
