// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/RowVerdict.h"

#include "Rows.h"

#include <gtest/gtest.h>

namespace {

using games::Family;
using games::Fate;
using games::Outcome;
using games::Reason;
using games::RowVerdict;
using games_test::ForOthers;
using games_test::ForPlayer;
using games_test::Row;
using games_test::Shown;

void ExpectRefused(const RowVerdict& verdict, Reason reason, int column) {
    EXPECT_EQ(verdict.outcome, Outcome::Refused);
    EXPECT_EQ(verdict.reason, reason);
    EXPECT_EQ(verdict.column, column);
    EXPECT_EQ(Shown(verdict), "");
}

void ExpectUnnamed(const RowVerdict& verdict, Reason reason) {
    EXPECT_EQ(verdict.outcome, Outcome::Replaced);
    EXPECT_EQ(verdict.reason, reason);
    EXPECT_EQ(Shown(verdict), "unnamed");
}

} // namespace

TEST(RowVerdict, ANameOfLettersArrivesEverywhere) {
    for (const Family family : games::Families) {
        for (const RowVerdict& verdict : {ForOthers(family, "Bob A"), ForPlayer(family, "Bob A")}) {
            EXPECT_TRUE(verdict.arrives());
            EXPECT_EQ(Shown(verdict), "Bob A");
            EXPECT_EQ(verdict.column, 0);
        }
    }
}

TEST(RowVerdict, BlanksAtTheRightEndAreNoPartOfARow) {
    EXPECT_EQ(Shown(ForOthers(Family::Quake, " a b   ")), " a b");
    EXPECT_EQ(Shown(ForOthers(Family::Quake2, "a\xA0  ")), "a ");
    EXPECT_TRUE(ForOthers(Family::QuakeWorld, "ab   ").arrives());
    EXPECT_TRUE(ForOthers(Family::Quake, "               ").arrives());
    EXPECT_TRUE(games::JudgeMessage(Family::QuakeWorld, Row(std::string(31, ' '))).arrives());
}

TEST(RowVerdict, CommentsBracesAndPercentsAreKept) {
    for (const std::string_view name : {"a//b/*c*/", "{ } ( ) : '", "%s %d", "a  b"}) {
        for (const Family family : games::Families) {
            EXPECT_TRUE(ForOthers(family, name).arrives()) << name;
        }
    }
}

TEST(RowVerdict, QuakeRunsWhatStandsBehindALineFeed) {
    const RowVerdict verdict = ForOthers(Family::Quake, "ab\nquit");
    EXPECT_EQ(verdict.outcome, Outcome::Changed);
    EXPECT_EQ(verdict.reason, Reason::RestIsRun);
    EXPECT_EQ(Shown(verdict), "ab");
    EXPECT_EQ(verdict.fates[1], Fate::Kept);
    EXPECT_EQ(verdict.fates[2], Fate::Lost);
    EXPECT_EQ(verdict.fates[6], Fate::Lost);
    EXPECT_EQ(verdict.fates[7], Fate::Kept) << "a cell without a glyph";
    EXPECT_EQ(ForOthers(Family::Quake, std::string_view("a\0b", 3)).reason, Reason::None);
}

TEST(RowVerdict, WhateverEndsTheTextFirstCounts) {
    EXPECT_EQ(ForOthers(Family::Quake, "ab\n\"").outcome, Outcome::Changed);
    ExpectRefused(ForOthers(Family::Quake, "a\"b\n"), Reason::EndsQuotes, 2);
    EXPECT_EQ(Shown(ForOthers(Family::QuakeWorld, "ab\n#")), "ab");
}

TEST(RowVerdict, QuakeWorldGivesAnotherNameForOneThatItDoesNotTake) {
    const RowVerdict verdict = ForOthers(Family::QuakeWorld, "abc#d#");
    ExpectUnnamed(verdict, Reason::Unnamed);
    EXPECT_EQ(verdict.column, 4);
    EXPECT_EQ(verdict.fates[3], Fate::Refused);
    EXPECT_EQ(verdict.fates[5], Fate::Refused) << "every such glyph is marked";
    EXPECT_EQ(verdict.fates[4], Fate::Kept);
    EXPECT_TRUE(ForPlayer(Family::QuakeWorld, "abc#d#").arrives()) << "the player sees his own name";

    ExpectUnnamed(ForOthers(Family::QuakeWorld, ""), Reason::NoName);
    ExpectUnnamed(ForOthers(Family::QuakeWorld, "   "), Reason::NoName);
    ExpectUnnamed(ForOthers(Family::QuakeWorld, "\xA0 \xA0"), Reason::NoName);
    ExpectUnnamed(ForOthers(Family::QuakeWorld, "\1\2\xFF"), Reason::NoName);
    ExpectUnnamed(ForOthers(Family::QuakeWorld, "console"), Reason::ReservedName);
    ExpectUnnamed(ForOthers(Family::QuakeWorld, " console\xA0"), Reason::ReservedName);
    EXPECT_EQ(ForOthers(Family::QuakeWorld, "console").column, 0);
    EXPECT_TRUE(ForOthers(Family::QuakeWorld, "consoles").arrives());
    EXPECT_TRUE(ForOthers(Family::Quake, "console").arrives());
    EXPECT_TRUE(ForOthers(Family::Quake2, "console").arrives());
}

TEST(RowVerdict, QuakeWorldRefusesColourCodes) {
    ExpectRefused(ForOthers(Family::QuakeWorld, "rock&roll"), Reason::ColourCode, 5);
    ExpectRefused(ForPlayer(Family::QuakeWorld, "rock&roll"), Reason::ColourCode, 5);
    ExpectRefused(ForOthers(Family::QuakeWorld, "Tom&cat"), Reason::ColourCode, 4);
    EXPECT_TRUE(ForPlayer(Family::QuakeWorld, "Tom&cat").arrives()) << "no color stands behind it";
    ExpectRefused(ForPlayer(Family::QuakeWorld, "Tom&cF0a"), Reason::ColourCode, 4);
    EXPECT_EQ(ForOthers(Family::QuakeWorld, "Tom&cat").fates[4], Fate::Refused);
    for (const std::string_view name : {"Tom & Rob", "a&b", "c&", "&", "r&d"}) {
        EXPECT_TRUE(ForOthers(Family::QuakeWorld, name).arrives()) << name;
    }
    EXPECT_TRUE(ForOthers(Family::Quake, "rock&roll").arrives());
    EXPECT_TRUE(ForOthers(Family::Quake2, "Tom&cat").arrives());
    EXPECT_TRUE(games::JudgeMessage(Family::QuakeWorld, Row("rock&roll &cfff")).arrives());
}

TEST(RowVerdict, QuakeWorldCutsBlanksAtBothEnds) {
    const RowVerdict verdict = ForOthers(Family::QuakeWorld, " \xA0 a b\xA0 ");
    EXPECT_EQ(verdict.outcome, Outcome::Changed);
    EXPECT_EQ(Shown(verdict), "a b");
    EXPECT_EQ(verdict.column, 1);
    EXPECT_EQ(verdict.columnOf[0], 4);
    EXPECT_EQ(verdict.columnOf[2], 6);
    EXPECT_EQ(verdict.fates[4], Fate::Kept);
    EXPECT_EQ(verdict.fates[6], Fate::Dropped);
    EXPECT_EQ(verdict.fates[7], Fate::Kept) << "the script does not hold it";
}

TEST(RowVerdict, QuakeWorldTurnsACaretIntoAColour) {
    const RowVerdict verdict = ForOthers(Family::QuakeWorld, "x^ay");
    EXPECT_EQ(Shown(verdict), "x\xE1y");
    EXPECT_EQ(verdict.fates[1], Fate::Dropped);
    EXPECT_EQ(verdict.fates[2], Fate::Changed);
    EXPECT_EQ(verdict.columnOf[1], 3);
    EXPECT_TRUE(ForOthers(Family::QuakeWorld, "xy^").arrives()) << "nothing stands behind it";
    EXPECT_EQ(ForPlayer(Family::QuakeWorld, "x^ay").outcome, Outcome::Kept);
}

TEST(RowVerdict, QuakeWorldDropsCarriageReturnsBeforeAnybodySees) {
    EXPECT_EQ(Shown(ForPlayer(Family::QuakeWorld, "a\rb\1")), "ab\1");
    EXPECT_EQ(Shown(ForOthers(Family::QuakeWorld, "a\rb\1")), "ab");
    const RowVerdict refused = ForOthers(Family::QuakeWorld, "\ra#");
    ExpectUnnamed(refused, Reason::Unnamed);
    EXPECT_EQ(refused.column, 3) << "the glyph to blame, not the first one dropped";
}

TEST(RowVerdict, Quake2ShowsOthersCharactersAlone) {
    const RowVerdict seen = ForOthers(
        Family::Quake2, "01 \x80\x81\x90\xC1"
                        "a\x10"
                        "b\x11");
    EXPECT_EQ(Shown(seen), "01 Aab");
    EXPECT_EQ(seen.column, 4);
    for (int code = 1; code < 256; ++code) {
        const auto glyph = static_cast<char>(code);
        const RowVerdict verdict = ForOthers(Family::Quake2, std::string("a") + glyph + "b");
        if (verdict.outcome != Outcome::Kept && verdict.outcome != Outcome::Changed) {
            continue;
        }
        const int seven = code & 127;
        const std::string between =
            seven >= 32 && seven <= 126 ? std::string(1, static_cast<char>(seven)) : "";
        EXPECT_EQ(Shown(verdict), code == 220 ? "a" : "a" + between + "b") << code;
    }
    EXPECT_EQ(Shown(ForOthers(Family::Quake2, "\x10\x11")), "");
    EXPECT_EQ(ForOthers(Family::Quake2, "\x10\x11").outcome, Outcome::Changed);
}

TEST(RowVerdict, Quake2CallsSomeNamesBadInfo) {
    for (const char* name : {"ab\xA2", "ab\xBB", "a\xDC\xA2"}) {
        const RowVerdict verdict = ForOthers(Family::Quake2, name);
        EXPECT_EQ(verdict.outcome, Outcome::Replaced);
        EXPECT_EQ(verdict.reason, Reason::BadInfo);
        EXPECT_EQ(Shown(verdict), "badinfo");
        EXPECT_EQ(verdict.column, 3);
        EXPECT_TRUE(ForPlayer(Family::Quake2, name).arrives());
    }
    EXPECT_EQ(
        Shown(ForOthers(
            Family::Quake2, "ab\xDC"
                            "cd")),
        "ab");
    ExpectRefused(ForOthers(Family::Quake2, "a;b"), Reason::GameRefuses, 2);
    ExpectRefused(ForPlayer(Family::Quake2, "ab\\"), Reason::GameRefuses, 3);
}

TEST(RowVerdict, MessagesKeepEveryGlyphThatTheLineCanHold) {
    for (const Family family : games::Families) {
        const std::string text = "\1\2 #;\\^a$x &c &r \x80\xA2\xBB\xDC\x10 ";
        EXPECT_EQ(Shown(games::JudgeMessage(family, Row(text))), text.substr(0, text.size() - 1));
        EXPECT_EQ(Shown(games::JudgeMessage(family, Row("say \"it\""))), "say ");
        EXPECT_EQ(games::JudgeMessage(family, Row("a\nb")).reason, Reason::RestIsRun);
    }
    EXPECT_EQ(Shown(games::JudgeMessage(Family::QuakeWorld, Row("a\xFF\rb"))), "ab");
    EXPECT_EQ(Shown(games::JudgeMessage(Family::Quake, Row("a\xFF\rb"))), "a\xFF\rb");
}

TEST(RowVerdict, TellsWhereItWasSeen) {
    EXPECT_EQ(games::SightingText(ForOthers(Family::Quake2, "\xC1").seen), "Yamagi Quake II 8.20, run");
    EXPECT_EQ(games::SightingText(ForOthers(Family::QuakeWorld, "rock&roll").seen), "ezQuake 3.6.1, run");
    EXPECT_EQ(games::SightingText(ForOthers(Family::QuakeWorld, "Tom&cat").seen), "MVDSV 0.35, run");
    EXPECT_EQ(games::SightingText(ForOthers(Family::QuakeWorld, "a#").seen), "MVDSV 2025/26, read");
    EXPECT_EQ(games::SightingText(ForOthers(Family::Quake, "ab").seen), "QuakeSpasm 0.95.1, run");
}
