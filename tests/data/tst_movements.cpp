// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "data/Patterns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using support::AtRest;
using support::Pattern;
using support::PatternNamed;
using support::PatternPositions;
using support::PatternSteps;
using support::PositionalFile;
using support::ReadPatternsOf;
using support::Row;
using support::ShownIn;

namespace {

/// The row's cells that are not blank, in their order.
std::vector<int> letters(const Row& row) {
    std::vector<int> result;
    std::copy_if(row.begin(), row.end(), std::back_inserter(result), [](int cell) { return cell != 0; });
    return result;
}

/// The place of a glyph in a row; 0 where it is not.
int placeOf(int letter, const Row& row) {
    const auto at = std::find(row.begin(), row.end(), letter);
    return at == row.end() ? 0 : static_cast<int>(at - row.begin()) + 1;
}

/// What changes between two rows: how far the glyph goes that goes furthest, and how many come or go.
struct Change {
    int distance = 0;
    int others = 0;
};

Change changeOf(const Row& before, const Row& after) {
    Change change;
    for (const int letter : AtRest) {
        const int from = placeOf(letter, before);
        const int to = placeOf(letter, after);
        if (from != 0 && to != 0) {
            change.distance = std::max(change.distance, std::abs(to - from));
        } else if (from != to) {
            ++change.others;
        }
    }
    return change;
}

Pattern movement(const std::string& title) {
    return PatternNamed(ReadPatternsOf(PositionalFile()), title);
}

} // namespace

TEST(PositionalPatterns, StillMoveWhenOnlyTheirOddRowsPlay) {
    for (const Pattern& pattern : ReadPatternsOf(PositionalFile())) {
        std::set<Row> played;
        int changes = 0;
        Row before = AtRest;
        for (std::size_t step = 0; step < PatternSteps; step += 2) {
            played.insert(pattern.rows[step]);
            changes += pattern.rows[step] != before ? 1 : 0;
            before = pattern.rows[step];
        }
        played.erase(Row());
        // A flash has but one row to show, and so has to come and go.
        EXPECT_GE(pattern.flashes() ? changes : static_cast<int>(played.size()), pattern.flashes() ? 4 : 3)
            << pattern.title;
    }
}

TEST(PositionalPatterns, BringInAllButAFewGlyphsBeforeTheNameRests) {
    for (const Pattern& pattern : ReadPatternsOf(PositionalFile())) {
        std::set<int> shown;
        for (const Row& row : pattern.rows) {
            shown.insert(row.begin(), row.end());
        }
        shown.erase(0);
        EXPECT_GE(shown.size(), 12U) << pattern.title;
    }
}

TEST(PositionalPatterns, LeaveInManyWays) {
    const std::vector<Pattern> patterns = ReadPatternsOf(PositionalFile());
    EXPECT_GE(
        std::count_if(patterns.begin(), patterns.end(), [](const Pattern& p) { return p.leaves(); }), 8);
    for (const Pattern& pattern : patterns) {
        if (!pattern.leaves()) {
            continue;
        }
        SCOPED_TRACE(pattern.title);
        EXPECT_EQ(pattern.rows[12], Row()) << "the last row that is played when two are combined";
        EXPECT_GE(ShownIn(pattern.rows[0]), 13) << "begins with the name";
        for (std::size_t step = 1; step < PatternSteps; ++step) {
            EXPECT_LE(ShownIn(pattern.rows[step]), ShownIn(pattern.rows[step - 1]) + 1) << step;
        }
    }
}

TEST(PositionalPatterns, EndWithoutAJump) {
    for (const Pattern& pattern : ReadPatternsOf(PositionalFile())) {
        if (ShownIn(pattern.rows.back()) <= 1) {
            continue; // then the name is there at once, after nothing or its last letter
        }
        Change own;
        for (std::size_t step = 1; step < PatternSteps; ++step) {
            const Change change = changeOf(pattern.rows[step - 1], pattern.rows[step]);
            own.distance = std::max(own.distance, change.distance);
            own.others = std::max(own.others, change.others);
        }
        const Change last = changeOf(pattern.rows.back(), AtRest);
        EXPECT_LE(last.distance, own.distance) << pattern.title;
        EXPECT_LE(last.others, own.others) << pattern.title;
    }
}

TEST(PositionalPatterns, MakeALoopOfTheNameThatLeavesAndArrives) {
    for (const auto& [out, in] :
         {std::pair("Slide out to the left", "Slide in from the right"),
          std::pair("Slide out to the right", "Slide in from the left"),
          std::pair("Erase from the end", "Typewriter"), std::pair("Curtain closes over it", "Curtain opens"),
          std::pair("Two halves part", "Two halves meet"), std::pair("Blinds shut", "Blinds open"),
          std::pair("Fall out", "Rain"), std::pair("Spiral away", "Spiral outward")}) {
        SCOPED_TRACE(out);
        EXPECT_EQ(movement(out).rows[12], Row());
        EXPECT_LE(ShownIn(movement(in).rows[0]), 5) << in;
        EXPECT_GE(ShownIn(movement(in).rows[12]), 12) << in;
    }
}

TEST(PositionalPatterns, ScrollWithABlankBetweenTheNamesEnds) {
    for (const auto& [title, step, cells] :
         {std::tuple("Marquee to the left", 1, 16), std::tuple("Marquee to the right", 15, 16),
          std::tuple("Ticker with a gap", 2, 30)}) {
        SCOPED_TRACE(title);
        // The name and blanks go round; a marquee, which has one place too many, starts with a double step.
        const auto turned = [cells = cells](int by) {
            Row row = {};
            for (int at = 0; at < static_cast<int>(PatternPositions); ++at) {
                const int from = (at + by) % cells;
                row[static_cast<std::size_t>(at)] = from < static_cast<int>(PatternPositions) ? from + 1 : 0;
            }
            return row;
        };
        const Pattern pattern = movement(title);
        for (int row = 1; row <= static_cast<int>(PatternSteps); ++row) {
            const int steps = cells == 16 ? row + 1 : row;
            EXPECT_EQ(pattern.rows[static_cast<std::size_t>(row - 1)], turned(steps * step)) << row;
        }
        EXPECT_EQ(turned(static_cast<int>(cells == 16 ? PatternSteps + 2 : PatternSteps + 1) * step), AtRest);
    }
}

TEST(PositionalPatterns, LetLettersFallAslantTillTheyLie) {
    for (const std::string title : {"Rain", "Fall out"}) {
        const Pattern pattern = movement(title);
        std::set<int> flying;
        for (std::size_t step = 1; step < PatternSteps; ++step) {
            for (const int letter : AtRest) {
                const int from = placeOf(letter, pattern.rows[step - 1]);
                const int to = placeOf(letter, pattern.rows[step]);
                if (from == 0 || to == 0 || from == to) {
                    continue;
                }
                flying.insert(letter);
                EXPECT_EQ((from - to) % 2, 0) << title << step << ' ' << letter;
                EXPECT_GE(from - to, 2) << title << step << ' ' << letter;
                if (from == letter) {
                    EXPECT_EQ(title, "Fall out") << letter << " lay already";
                }
            }
        }
        EXPECT_GE(flying.size(), 10U) << title;
    }
}

TEST(PositionalPatterns, StretchWithoutLeavingLettersOut) {
    for (const std::string title :
         {"Stretch from the left", "Stretch from the right", "Stretch from the middle", "Spring", "Gather"}) {
        const Pattern pattern = movement(title);
        for (const Row& row : pattern.rows) {
            std::vector<int> read = letters(row);
            read.erase(std::unique(read.begin(), read.end()), read.end());
            for (std::size_t at = 1; at < read.size(); ++at) {
                EXPECT_EQ(read[at], read[at - 1] + 1) << title;
            }
        }
    }
    // The letters that a spring pulls apart are together, and have one blank each between them.
    for (const Row& row : movement("Spring").rows) {
        const std::size_t apart = static_cast<std::size_t>(
            std::count(row.begin(), row.begin() + placeOf(letters(row).back(), row), 0));
        for (std::size_t letter = 1; letter <= apart; ++letter) {
            EXPECT_EQ(row[2 * letter - 2], static_cast<int>(letter));
            EXPECT_EQ(row[2 * letter - 1], 0);
        }
    }
}

TEST(PositionalPatterns, OpenBlindsLetterByLetter) {
    const Pattern blinds = movement("Blinds open");
    for (std::size_t step = 0; step < PatternSteps; ++step) {
        EXPECT_EQ(ShownIn(blinds.rows[step]), static_cast<std::ptrdiff_t>(step + 1));
    }
}

TEST(PositionalPatterns, SpellOneLetterAtATime) {
    const Pattern spelling = movement("Spell letter by letter");
    for (std::size_t step = 0; step < PatternSteps; ++step) {
        EXPECT_EQ(letters(spelling.rows[step]), std::vector<int>{static_cast<int>(step) + 1});
    }
}
