// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/CodeRules.h"

#include "Rows.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using games::Family;
using games::Outcome;
using games::RowVerdict;
using games_test::Row;
using games_test::Shown;

/// What is known of the glyphs `first` to `last`, a letter each for: names in Quake, in QuakeWorld for the
/// player and for others, in Quake2 for the player and for others; messages in Quake, QuakeWorld, Quake2.
///
///   K kept           T the text ends there    R the row is refused or replaced
///   D dropped        E dropped at both ends   S turned into the one 128 below
///   N goes, and turns the next one into the one 128 above
///   P as R, unless one engine makes another glyph of it and the sign behind it
struct Fact {
    int first;
    int last;
    const char* letters;
};

constexpr std::array Facts{
    Fact{0, 0, "TTTRRTTT"},     Fact{1, 9, "KKDKDKKK"},     Fact{10, 10, "TTTRRTTT"},
    Fact{11, 12, "KKDKDKKK"},   Fact{13, 13, "KDDKDKDD"},   Fact{14, 31, "KKKKDKKK"},
    Fact{32, 32, "KKEKKKKK"},   Fact{33, 33, "KKKKKKKK"},   Fact{34, 34, "RRRRRTTT"},
    Fact{35, 35, "KKRKKKKK"},   Fact{36, 36, "KKPKKKKK"},   Fact{37, 58, "KKKKKKKK"},
    Fact{59, 59, "KKRRRKKK"},   Fact{60, 91, "KKKKKKKK"},   Fact{92, 92, "KKRRRKKK"},
    Fact{93, 93, "KKKKKKKK"},   Fact{94, 94, "KKNKKKKK"},   Fact{95, 126, "KKKKKKKK"},
    Fact{127, 159, "KKKKDKKK"}, Fact{160, 160, "KKEKSKKK"}, Fact{161, 161, "KKKKSKKK"},
    Fact{162, 162, "KKKKRKKK"}, Fact{163, 186, "KKKKSKKK"}, Fact{187, 187, "KKKKRKKK"},
    Fact{188, 219, "KKKKSKKK"}, Fact{220, 220, "KKRKTKKK"}, Fact{221, 254, "KKKKSKKK"},
    Fact{255, 255, "KKDKDKDK"},
};

constexpr std::size_t Columns = 8;

RowVerdict JudgeAs(std::size_t column, std::string_view bytes) {
    using games::Audience;
    const auto row = Row(bytes);
    switch (column) {
    case 0:
        EXPECT_EQ(
            Shown(games::JudgeName(Family::Quake, Audience::Player, row)),
            Shown(games::JudgeName(Family::Quake, Audience::Others, row)))
            << "in Quake others see what the player sees";
        return games::JudgeName(Family::Quake, Audience::Others, row);
    case 1:
        return games::JudgeName(Family::QuakeWorld, Audience::Player, row);
    case 2:
        return games::JudgeName(Family::QuakeWorld, Audience::Others, row);
    case 3:
        return games::JudgeName(Family::Quake2, Audience::Player, row);
    case 4:
        return games::JudgeName(Family::Quake2, Audience::Others, row);
    case 5:
        return games::JudgeMessage(Family::Quake, row);
    case 6:
        return games::JudgeMessage(Family::QuakeWorld, row);
    default:
        return games::JudgeMessage(Family::Quake2, row);
    }
}

bool IsRefused(const RowVerdict& verdict) {
    return verdict.outcome == Outcome::Refused || verdict.outcome == Outcome::Replaced;
}

/// What is seen of `ab`, the glyph and `de` when the letter holds for the glyph.
std::string ExpectedText(char letter, char glyph) {
    switch (letter) {
    case 'T':
        return "ab";
    case 'D':
        return "abde";
    case 'S':
        return std::string("ab") + static_cast<char>(glyph & 127) + "de";
    case 'N':
        return "ab\xE4"
               "e";
    default:
        return std::string("ab") + glyph + "de";
    }
}

games::Fate ExpectedFate(char letter) {
    switch (letter) {
    case 'T':
        return games::Fate::Lost;
    case 'D':
    case 'N':
    case 'P':
        return games::Fate::Dropped;
    case 'S':
        return games::Fate::Changed;
    case 'R':
        return games::Fate::Refused;
    default:
        return games::Fate::Kept;
    }
}

void ExpectFact(int code, std::size_t column, char letter) {
    SCOPED_TRACE("code " + std::to_string(code) + ", column " + std::to_string(column));
    const char glyph = static_cast<char>(code);
    const RowVerdict middle = JudgeAs(column, std::string("ab") + glyph + "de");
    EXPECT_EQ(middle.fates[2], ExpectedFate(letter));
    EXPECT_EQ(middle.arrives(), letter == 'K' || letter == 'E');
    EXPECT_EQ(middle.column, middle.arrives() ? 0 : 3);
    EXPECT_EQ(IsRefused(middle), letter == 'R' || letter == 'P');
    EXPECT_EQ(middle.reason == games::Reason::UnlessTurned, letter == 'P');
    if (letter == 'P') {
        EXPECT_EQ(middle.fates[3], games::Fate::Changed);
        EXPECT_EQ(JudgeAs(column, std::string("ab") + glyph).fates[2], games::Fate::Refused);
    }
    if (!IsRefused(middle)) {
        EXPECT_EQ(Shown(middle), ExpectedText(letter, glyph));
    }
    if (letter == 'E') {
        EXPECT_EQ(Shown(JudgeAs(column, std::string(1, glyph) + "ab")), "ab");
        EXPECT_EQ(Shown(JudgeAs(column, std::string("ab") + glyph)), "ab");
    } else if (letter == 'K') {
        EXPECT_EQ(Shown(JudgeAs(column, std::string(1, glyph) + "ab")), std::string(1, glyph) + "ab");
    }
}

} // namespace

TEST(CodeRules, SayOfEveryGlyphWhatIsKnownOfIt) {
    int next = 0;
    for (const Fact& fact : Facts) {
        ASSERT_EQ(fact.first, next) << "every glyph once";
        ASSERT_EQ(std::string_view(fact.letters).size(), Columns);
        for (int code = fact.first; code <= fact.last; ++code) {
            for (std::size_t column = 0; column < Columns; ++column) {
                ExpectFact(code, column, fact.letters[column]);
            }
        }
        next = fact.last + 1;
    }
    EXPECT_EQ(next, 256);
}

TEST(CodeRules, SayWhereTheyWereSeen) {
    for (const games::CodeRule& rule : games::CodeRules()) {
        EXPECT_NE(games::VersionOf(rule.seen), "") << games::SightingText(rule.seen);
        EXPECT_EQ(games::FactsOf(rule.seen.engine).family, rule.family);
        EXPECT_LE(rule.first, rule.last);
    }
    for (const games::PairRule& rule : games::PairRules()) {
        EXPECT_NE(games::VersionOf(rule.seen), "");
    }
    for (const games::WholeNameRule& rule : games::WholeNameRules()) {
        EXPECT_NE(games::VersionOf(rule.seen), "");
    }
}

TEST(Engines, AreInTheOrderOfTheirNumbers) {
    for (std::size_t i = 0; i < games::Engines.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(games::Engines.at(i).engine), i);
        EXPECT_NE(games::Engines.at(i).versionRun.size() + games::Engines.at(i).versionRead.size(), 0U);
    }
    EXPECT_EQ(games::SightingText({games::Engine::EzQuake, games::Evidence::Run}), "ezQuake 3.6.1, run");
    EXPECT_EQ(games::SightingText({games::Engine::Q2Pro, games::Evidence::Read}), "Q2PRO 2025/26, read");
}
