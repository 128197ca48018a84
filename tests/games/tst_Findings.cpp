// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Findings.h"

#include "Animations.h"
#include "Rows.h"

#include <gtest/gtest.h>

namespace {

using games::Family;
using games::Finding;
using games::NameCommand;
using games_test::Animation;
using games_test::Row;

/// Findings, one a line: the row and cell, whether it is a loss, the text and what is shown.
std::string Lines(const std::vector<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        const bool isLoss = finding.weight == games::Weight::Loss;
        // A row that the text names stands in brackets.
        const std::string row = std::to_string(finding.row);
        text += (finding.namesRow ? "(" + row + ")" : row) + "," + std::to_string(finding.column) + " ";
        text += isLoss ? "" : std::string(games::FactsOf(finding.seen.engine).name) + " ";
        text += finding.text + (finding.shown ? " " + games_test::Text(*finding.shown) : "") +
                (isLoss ? "!" : "") + "\n";
        EXPECT_NE(games::VersionOf(finding.seen), "") << text;
    }
    return text;
}

} // namespace

TEST(Findings, OnANameAreItsVerdictAndWhatEnginesDo) {
    EXPECT_EQ(Lines(games::FindingsOnName(Family::Quake, Row("Bob"))), "");
    EXPECT_EQ(Lines(games::FindingsOnName(Family::Quake2, Row("B\xC1 "))), "1,2 others see: BA!\n");
    EXPECT_EQ(
        Lines(games::FindingsOnName(Family::QuakeWorld, Row("x$b"))),
        "1,2 refused, except from ezQuake: $ in cell 2!\n"
        "1,2 ezQuake makes one glyph of $ and the next\n");
    EXPECT_EQ(Lines(games::FindingsOnMessage(Family::QuakeWorld, Row("a\xFF"), 3)), "3,2 players see: a!\n");
}

TEST(Findings, OnAnAnimationBeginWithItsTimes) {
    EXPECT_EQ(
        Lines(games::FindingsOnAnimation(Family::Quake, Animation(15, 2).names())),
        "0,0 DarkPlaces servers take one name in 5 seconds: 1 of 15\n");
    EXPECT_EQ(Lines(games::FindingsOnAnimation(Family::Quake, Animation(1, 2).names())), "");
    EXPECT_EQ(
        Lines(games::FindingsOnAnimation(Family::QuakeWorld, Animation(15, 12).names())),
        "(7),0 kicked at name 7, after 0.9 s!\n"
        "(14),0 name 14 and what follows is never run: a script may wait 2.0 s!\n"
        "0,0 FTE servers mute the player for 5 minutes instead\n"
        "0,0 ezQuake runs no more than 10 waits under the ruleset qcon\n");
    EXPECT_EQ(Lines(games::FindingsOnAnimation(Family::QuakeWorld, Animation(5, 2).names())), "");
    EXPECT_EQ(
        Lines(games::FindingsOnAnimation(
            Family::Quake2,
            Animation().add("a", 0).add("b;", 2).add("c", 0).add("d", 3).add("e", 0).names())),
        "(1),0 name 1 and 1 other are never sent: no ticks!\n"
        "2,2 the game refuses the name: ; in cell 2!\n"
        "(2),0 Yamagi Quake II may skip name 2 and 1 other: fewer than 6 ticks\n");
    EXPECT_EQ(
        Lines(games::FindingsOnAnimation(Family::Quake2, Animation().add("a", 0).add("b", 2).names())),
        "(1),0 name 1 is never sent: no ticks!\n");
}

TEST(Findings, OnAScriptTellWhetherItRuns) {
    const games::ScriptSize small{500, 60};
    EXPECT_EQ(Lines(games::FindingsOnScript(Family::Quake, small, NameCommand::Name)), "");
    EXPECT_EQ(
        Lines(games::FindingsOnScript(Family::Quake, small, NameCommand::SetName)),
        "0,0 the command \"set\" is unknown: the old name stays!\n");
    EXPECT_EQ(Lines(games::FindingsOnScript(Family::Quake2, small, NameCommand::Name)), "");
    EXPECT_EQ(Lines(games::FindingsOnScript(Family::Quake, small, std::nullopt)), "");
    EXPECT_EQ(
        Lines(games::FindingsOnScript(Family::Quake, {500, 60, false, true}, std::nullopt)),
        "0,0 original Quake shows a closing quote behind each message\n");
    EXPECT_EQ(
        Lines(games::FindingsOnScript(Family::Quake2, {500, 60, false, true, true}, NameCommand::Name)),
        "0,0 original Quake II does not run the last line: it has no end\n");
    EXPECT_EQ(
        Lines(games::FindingsOnScript(Family::Quake, {10517, 90}, NameCommand::Name)),
        "0,0 original Quake does not run 10,517 bytes: it takes 8,191 bytes at most\n");
    EXPECT_EQ(
        Lines(games::FindingsOnScript(Family::Quake2, {8000, 2000, true}, NameCommand::SetName)),
        "0,0 original Quake II does not run a line of 2,000 bytes: it takes 1,023 bytes at most\n"
        "0,0 Yamagi Quake II does not run a line of 2,000 bytes: it takes 1,023 bytes at most\n"
        "0,0 Q2PRO does not run a line of 2,000 bytes: it takes 1,023 bytes at most\n"
        "0,0 Q2PRO does not run a script with glyph 0\n");
    EXPECT_EQ(
        Lines(games::FindingsOnScript(Family::Quake, {8000, 90}, NameCommand::Name)),
        "0,0 original Quake may not run 8,000 bytes: 7,965 bytes are sure\n");
}

TEST(Findings, CountTimesAndBytesAsPeopleDo) {
    EXPECT_EQ(games::TimeText(0), "0.0 s");
    EXPECT_EQ(games::TimeText(780), "0.8 s");
    EXPECT_EQ(games::TimeText(749), "0.7 s");
    EXPECT_EQ(games::TimeText(12350), "12.4 s");
    EXPECT_EQ(games::BytesText(1), "1 byte");
    EXPECT_EQ(games::BytesText(999), "999 bytes");
    EXPECT_EQ(games::BytesText(10517), "10,517 bytes");
    EXPECT_EQ(games::BytesText(17000000), "17,000,000 bytes");
}
