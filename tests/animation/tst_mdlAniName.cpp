// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniName.h"

#include "animation/AnimationDesk.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace animation {
namespace {

using support::AnimationDesk;

constexpr editing::CellBlock NoDamage{};

/// Gives every row ticks of its own.
void numberTicks(AnimationDocument& animation) {
    for (int name = 1; name <= editing::MaxNames; ++name) {
        animation.ticks(name) = static_cast<std::int16_t>(100 + name);
    }
}

void expectTicksInPlace(const AnimationDocument& animation) {
    for (int name = 1; name <= editing::MaxNames; ++name) {
        EXPECT_EQ(animation.ticks(name), 100 + name) << "row " << name;
    }
}

} // namespace

TEST(AnimationDocument, StartsWithFifteenBlankNamesOfTwoTicks) {
    const AnimationDocument animation;
    EXPECT_EQ(animation.nameCount, 15);
    EXPECT_EQ(animation.currentName, 15);
    EXPECT_EQ(animation.cursorPos, 1);
    for (int name = 1; name <= 90; ++name) {
        EXPECT_EQ(animation.ticks(name), 2);
        for (const glyphs::GlyphCode code : animation.name(name)) {
            EXPECT_EQ(code, 32);
        }
    }
}

TEST(NewDocument, BlanksAllNamesAndLeavesNumberAndCursor) {
    AnimationDesk desk;
    desk.fillNames(90);
    numberTicks(desk.animation());
    desk.animation().nameCount = 40;
    desk.animation().currentName = 33;
    desk.animation().cursorPos = 7;
    editing::NewDocument(desk.documents, editing::Page::Animation);
    for (int name = 1; name <= 90; ++name) {
        EXPECT_EQ(desk.name(name), "") << "row " << name;
        EXPECT_EQ(desk.animation().ticks(name), 2) << "row " << name;
    }
    EXPECT_EQ(desk.animation().nameCount, 40);
    EXPECT_EQ(desk.animation().currentName, 33);
    EXPECT_EQ(desk.animation().cursorPos, 7);
}

TEST(SwapNames, ExchangesGlyphsAndLeavesTicks) {
    AnimationDesk desk;
    desk.fillNames(90);
    numberTicks(desk.animation());
    SwapNames(desk.animation(), 1, 90);
    EXPECT_EQ(desk.name(1), "name 90");
    EXPECT_EQ(desk.name(90), "name 1");
    EXPECT_EQ(desk.name(2), "name 2");
    expectTicksInPlace(desk.animation());
}

TEST(SwapNames, OfARowWithItselfChangesNothing) {
    AnimationDesk desk;
    desk.fillNames(15);
    SwapNames(desk.animation(), 8, 8);
    EXPECT_EQ(desk.name(8), "name 8");
}

TEST(CopyName, CopiesGlyphsAndLeavesTicks) {
    AnimationDesk desk;
    desk.fillNames(15);
    numberTicks(desk.animation());
    CopyName(desk.animation(), 3, 11);
    EXPECT_EQ(desk.name(11), "name 3");
    EXPECT_EQ(desk.name(3), "name 3");
    CopyName(desk.animation(), 5, 5);
    EXPECT_EQ(desk.name(5), "name 5");
    expectTicksInPlace(desk.animation());
}

TEST(SetTicks, SetsOneRow) {
    AnimationDocument animation;
    SetTicks(animation, 90, 0);
    SetTicks(animation, 1, 15);
    EXPECT_EQ(animation.ticks(90), 0);
    EXPECT_EQ(animation.ticks(1), 15);
    EXPECT_EQ(animation.ticks(2), 2);
    EXPECT_EQ(animation.ticks(89), 2);
}

TEST(SetAllTicks, ChangesRowsInUseAndTheOthersComeBackWithTheirOwn) {
    AnimationDocument animation;
    SetNameCount(animation, 20);
    SetTicks(animation, 21, 9);
    SetAllTicks(animation, 4);
    for (int name = 1; name <= 20; ++name) {
        EXPECT_EQ(animation.ticks(name), 4) << "row " << name;
    }
    SetNameCount(animation, 22);
    EXPECT_EQ(animation.ticks(21), 9);
    EXPECT_EQ(animation.ticks(22), 2);
}

TEST(SetNameCount, KeepsTheCurrentNameWithinTheNames) {
    AnimationDocument animation;
    SetNameCount(animation, 90);
    EXPECT_EQ(animation.currentName, 15);
    animation.currentName = 80;
    SetNameCount(animation, 16);
    EXPECT_EQ(animation.nameCount, 16);
    EXPECT_EQ(animation.currentName, 16);
    SetNameCount(animation, 90);
    EXPECT_EQ(animation.currentName, 16);
}

TEST(InsertName, PutsABlankRowAtTheCursorAndShiftsTheRestDown) {
    AnimationDesk desk;
    desk.fillNames(17);
    numberTicks(desk.animation());
    desk.animation().currentName = 4;
    desk.animation().cursorPos = 6;
    desk.shown.follow(InsertName(desk.animation()));
    EXPECT_EQ(desk.animation().nameCount, 16);
    EXPECT_EQ(desk.animation().currentName, 4);
    EXPECT_EQ(desk.animation().cursorPos, 6);
    EXPECT_EQ(desk.name(3), "name 3");
    EXPECT_EQ(desk.name(4), "");
    EXPECT_EQ(desk.name(5), "name 4");
    EXPECT_EQ(desk.name(16), "name 15") << "the row that was out of use is overwritten";
    EXPECT_EQ(desk.name(17), "name 17");
    expectTicksInPlace(desk.animation());
    EXPECT_TRUE(desk.isShown());
    EXPECT_EQ(desk.damage(), AnimationDesk::rows(4, 16));
}

TEST(InsertName, AtTheLastNameMovesItToTheNewRow) {
    AnimationDesk desk;
    desk.fillNames(15);
    desk.shown.follow(InsertName(desk.animation()));
    EXPECT_EQ(desk.name(15), "");
    EXPECT_EQ(desk.name(16), "name 15");
    EXPECT_EQ(desk.animation().currentName, 15);
    EXPECT_TRUE(desk.isShown());
    EXPECT_EQ(desk.damage(), AnimationDesk::rows(15, 16));
}

TEST(InsertName, FillsUpToNinetyNames) {
    AnimationDesk desk;
    desk.animation().nameCount = 89;
    desk.fillNames(90);
    desk.animation().currentName = 1;
    desk.shown.follow(InsertName(desk.animation()));
    EXPECT_EQ(desk.animation().nameCount, 90);
    EXPECT_EQ(desk.name(1), "");
    EXPECT_EQ(desk.name(90), "name 89");
    EXPECT_TRUE(desk.isShown());
}

TEST(InsertName, WithNinetyNamesDoesNothingAtAll) {
    AnimationDesk desk;
    desk.animation().nameCount = 90;
    desk.animation().currentName = 3;
    desk.fillNames(90);
    const AnimationDocument before = desk.animation();
    EXPECT_EQ(InsertName(desk.animation()), Change());
    EXPECT_EQ(desk.animation(), before);
    EXPECT_EQ(desk.animation().nameCount, 90);
    for (int name = 1; name <= 90; ++name) {
        EXPECT_EQ(desk.name(name), "name " + std::to_string(name));
    }
}

TEST(DeleteName, RemovesTheCurrentNameAndGoesToPositionOne) {
    AnimationDesk desk;
    desk.animation().nameCount = 20;
    desk.fillNames(21);
    numberTicks(desk.animation());
    desk.animation().currentName = 6;
    desk.animation().cursorPos = 9;
    desk.shown.follow(DeleteName(desk.animation()));
    EXPECT_EQ(desk.animation().nameCount, 19);
    EXPECT_EQ(desk.animation().currentName, 6);
    EXPECT_EQ(desk.animation().cursorPos, 1);
    EXPECT_EQ(desk.name(5), "name 5");
    EXPECT_EQ(desk.name(6), "name 7");
    EXPECT_EQ(desk.name(19), "name 20");
    EXPECT_EQ(desk.name(20), "");
    EXPECT_EQ(desk.name(21), "name 21");
    expectTicksInPlace(desk.animation());
    EXPECT_TRUE(desk.isShown());
    EXPECT_EQ(desk.damage(), AnimationDesk::rows(6, 20));
}

TEST(DeleteName, OfTheLastNameGoesToTheOneBefore) {
    AnimationDesk desk;
    desk.animation().nameCount = 16;
    desk.animation().currentName = 16;
    desk.fillNames(16);
    desk.shown.follow(DeleteName(desk.animation()));
    EXPECT_EQ(desk.animation().nameCount, 15);
    EXPECT_EQ(desk.animation().currentName, 15);
    EXPECT_EQ(desk.name(15), "name 15");
    EXPECT_EQ(desk.name(16), "");
    EXPECT_TRUE(desk.isShown());
}

TEST(DeleteName, WithFifteenNamesBlanksTheLastRowAndKeepsFifteen) {
    AnimationDesk desk;
    desk.fillNames(16);
    desk.animation().currentName = 2;
    desk.shown.follow(DeleteName(desk.animation()));
    EXPECT_EQ(desk.animation().nameCount, 15);
    EXPECT_EQ(desk.animation().currentName, 2);
    EXPECT_EQ(desk.name(1), "name 1");
    EXPECT_EQ(desk.name(2), "name 3");
    EXPECT_EQ(desk.name(14), "name 15");
    EXPECT_EQ(desk.name(15), "");
    EXPECT_EQ(desk.name(16), "name 16");
    EXPECT_TRUE(desk.isShown());
    EXPECT_EQ(desk.damage(), AnimationDesk::rows(2, 15));
}

TEST(DeleteName, OfTheLastOfFifteenBlanksIt) {
    AnimationDesk desk;
    desk.fillNames(15);
    desk.shown.follow(DeleteName(desk.animation()));
    EXPECT_EQ(desk.animation().nameCount, 15);
    EXPECT_EQ(desk.animation().currentName, 15);
    EXPECT_EQ(desk.name(14), "name 14");
    EXPECT_EQ(desk.name(15), "");
    EXPECT_EQ(desk.damage(), AnimationDesk::rows(15, 15));
}

TEST(MoveNameUp, SwapsWithTheNameBeforeAndFollowsIt) {
    AnimationDesk desk;
    desk.fillNames(15);
    numberTicks(desk.animation());
    desk.animation().cursorPos = 5;
    desk.shown.follow(MoveNameUp(desk.animation()));
    EXPECT_EQ(desk.name(14), "name 15");
    EXPECT_EQ(desk.name(15), "name 14");
    EXPECT_EQ(desk.animation().currentName, 14);
    EXPECT_EQ(desk.animation().cursorPos, 5);
    expectTicksInPlace(desk.animation());
    EXPECT_TRUE(desk.isShown());
    EXPECT_EQ(desk.damage(), AnimationDesk::rows(14, 15));
}

TEST(MoveNameUp, OnTheFirstNameDoesNothing) {
    AnimationDesk desk;
    desk.fillNames(15);
    desk.animation().currentName = 1;
    desk.shown.follow(MoveNameUp(desk.animation()));
    EXPECT_EQ(desk.animation().currentName, 1);
    EXPECT_EQ(desk.name(1), "name 1");
    EXPECT_EQ(desk.name(2), "name 2");
    EXPECT_EQ(desk.damage(), NoDamage);
}

TEST(MoveNameDown, SwapsGlyphsWhileTheRowsKeepTheirTicks) {
    AnimationDesk desk;
    desk.fillNames(15);
    numberTicks(desk.animation());
    desk.animation().currentName = 3;
    desk.shown.follow(MoveNameDown(desk.animation()));
    EXPECT_EQ(desk.name(3), "name 4");
    EXPECT_EQ(desk.name(4), "name 3");
    EXPECT_EQ(desk.animation().currentName, 4);
    expectTicksInPlace(desk.animation());
    EXPECT_TRUE(desk.isShown());
    EXPECT_EQ(desk.damage(), AnimationDesk::rows(3, 4));
}

TEST(MoveNameDown, OnTheLastNameInUseDoesNothing) {
    AnimationDesk desk;
    desk.fillNames(16);
    desk.shown.follow(MoveNameDown(desk.animation()));
    EXPECT_EQ(desk.animation().currentName, 15);
    EXPECT_EQ(desk.name(15), "name 15");
    EXPECT_EQ(desk.name(16), "name 16");
    EXPECT_EQ(desk.damage(), NoDamage);
}

TEST(NameList, TellsOfAllThatItChangesAndIsNeverHeard) {
    const std::vector<std::function<Change(AnimationDocument&)>> operations = {
        InsertName, DeleteName, MoveNameUp, MoveNameDown};
    std::mt19937 random(20031);
    const auto pick = [&random](int first, int last) {
        return std::uniform_int_distribution<int>(first, last)(random);
    };
    for (int round = 0; round < 8; ++round) {
        AnimationDesk desk;
        for (glyphs::GlyphCode& code : desk.animation().nameGlyphs) {
            code = static_cast<glyphs::GlyphCode>(pick(0, 255));
        }
        numberTicks(desk.animation());
        desk.animation().nameCount = pick(15, 90);
        desk.paint();
        for (int step = 0; step < 40; ++step) {
            SCOPED_TRACE("round " + std::to_string(round) + ", step " + std::to_string(step));
            AnimationDocument& animation = desk.animation();
            animation.currentName = pick(1, animation.nameCount);
            animation.cursorPos = pick(1, 15);
            desk.shown.follow(operations[static_cast<std::size_t>(pick(0, 3))](animation));

            ASSERT_TRUE(desk.isShown());
            ASSERT_GE(animation.nameCount, 15);
            ASSERT_LE(animation.nameCount, 90);
            ASSERT_GE(animation.currentName, 1);
            ASSERT_LE(animation.currentName, animation.nameCount);
            expectTicksInPlace(animation);
        }
        EXPECT_TRUE(desk.shown.kinds.empty());
    }
}

} // namespace animation
