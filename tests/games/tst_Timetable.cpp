// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Timetable.h"

#include "Animations.h"

#include <gtest/gtest.h>

namespace {

using games::Family;
using games::Timetable;
using games_test::Animation;

Timetable Plays(Family family, const Animation& animation) {
    return games::TimetableOf(family, animation.names());
}

} // namespace

TEST(Timetable, ATickTakesAsLongAsTheFamilyMakesIt) {
    const Animation oneName = Animation().add("a", 15);
    EXPECT_EQ(Plays(Family::Quake, oneName).milliseconds, 210);
    EXPECT_EQ(Plays(Family::QuakeWorld, oneName).milliseconds, 195);
    EXPECT_EQ(Plays(Family::Quake2, oneName).milliseconds, 255);

    const Animation many(15, 2);
    EXPECT_EQ(Plays(Family::Quake, many).ticks, 30);
    EXPECT_EQ(Plays(Family::Quake, many).milliseconds, 420);
    EXPECT_EQ(Plays(Family::Quake, many).changes, 15);
    EXPECT_EQ(Plays(Family::Quake, Animation()).changes, 0);
    EXPECT_EQ(Plays(Family::Quake2, Animation(90, 32767)).milliseconds, 90 * 32767 * 17);
}

TEST(Timetable, QuakeWorldKicksAtTheSeventhName) {
    const Timetable table = Plays(Family::QuakeWorld, Animation(15, 10));
    EXPECT_EQ(table.kicked.name, 7);
    EXPECT_EQ(table.kicked.milliseconds, 60 * 13);
    EXPECT_EQ(Plays(Family::QuakeWorld, Animation(7, 0)).kicked.name, 7);
    EXPECT_EQ(Plays(Family::QuakeWorld, Animation(6, 0)).kicked.name, 0);
    EXPECT_EQ(Plays(Family::Quake, Animation(15, 10)).kicked.name, 0);
    EXPECT_EQ(Plays(Family::Quake2, Animation(15, 10)).kicked.name, 0);
}

TEST(Timetable, ANameThatRepeatsTheOneBeforeItIsNoChange) {
    Animation animation;
    for (int name = 0; name < 5; ++name) {
        for (int row = 0; row < 3; ++row) {
            animation.add("n" + std::to_string(name), 10);
        }
    }
    const Timetable table = Plays(Family::QuakeWorld, animation);
    EXPECT_EQ(table.changes, 5);
    EXPECT_EQ(table.kicked.name, 0);
    EXPECT_EQ(table.cutOff.name, 0);
    EXPECT_EQ(table.ticks, 150);

    Animation blinking;
    for (int row = 0; row < 4; ++row) {
        blinking.add("a", 1).add("b", 1);
    }
    EXPECT_EQ(Plays(Family::QuakeWorld, blinking).kicked.name, 7) << "a name that comes back is a change";

    Animation late;
    late.add("a", 1).add("a", 1).add("b", 1).add("c", 1).add("d", 1).add("e", 1).add("f", 1).add("g", 1);
    EXPECT_EQ(Plays(Family::QuakeWorld, late).kicked.name, 8) << "the row, not the change";
    EXPECT_EQ(Plays(Family::QuakeWorld, late).kicked.milliseconds, 7 * 13);
}

TEST(Timetable, QuakeWorldRunsNothingBehindTwoSecondsOfWaits) {
    Animation animation;
    animation.add("a", 100).add("b", 54).add("c", 1).add("d", 1);
    const Timetable table = Plays(Family::QuakeWorld, animation);
    EXPECT_EQ(table.cutOff.name, 4);
    EXPECT_EQ(table.cutOff.milliseconds, 155 * 13);
    EXPECT_EQ(Plays(Family::QuakeWorld, Animation().add("a", 154).add("b", 200)).cutOff.name, 0)
        << "nothing stands behind the last name's waits";
    EXPECT_EQ(Plays(Family::QuakeWorld, Animation().add("a", 155).add("b", 0)).cutOff.name, 2);
    EXPECT_EQ(Plays(Family::Quake, animation).cutOff.name, 0);

    Animation unrun;
    unrun.add("a", 200);
    for (int name = 0; name < 10; ++name) {
        unrun.add("n" + std::to_string(name), 0);
    }
    EXPECT_EQ(Plays(Family::QuakeWorld, unrun).cutOff.name, 2);
    EXPECT_EQ(Plays(Family::QuakeWorld, unrun).kicked.name, 0) << "what is not run kicks nobody";
}

TEST(Timetable, ADarkPlacesServerTakesANameInFiveSeconds) {
    EXPECT_EQ(Plays(Family::Quake, Animation(15, 2)).taken, 1);
    EXPECT_EQ(Plays(Family::Quake, Animation(3, 360)).taken, 3);
    EXPECT_EQ(Plays(Family::Quake, Animation(3, 359)).taken, 2);
    EXPECT_EQ(Plays(Family::Quake, Animation(16, 72)).taken, 4) << "one each 5 seconds, within 16";
    EXPECT_EQ(Plays(Family::Quake, Animation(15, 81)).taken, 3) << "the first after 5 seconds, not at once";
    EXPECT_EQ(Plays(Family::QuakeWorld, Animation(16, 72)).taken, 0);
}

TEST(Timetable, Quake2NeverSendsANameWithoutTicks) {
    Animation animation;
    animation.add("a", 6).add("b", 0).add("c", 5).add("d", 0).add("e", 1).add("f", 0);
    const Timetable table = Plays(Family::Quake2, animation);
    EXPECT_EQ(table.unsent.count, 2) << "the last name stays";
    EXPECT_EQ(table.unsent.first, 2);
    EXPECT_EQ(table.doubtful.count, 2);
    EXPECT_EQ(table.doubtful.first, 3);
    EXPECT_EQ(Plays(Family::Quake, animation).unsent.count, 0);
    EXPECT_EQ(Plays(Family::QuakeWorld, animation).doubtful.count, 0);
    EXPECT_EQ(Plays(Family::Quake2, Animation(15, 6)).doubtful.count, 0);
    EXPECT_EQ(Plays(Family::Quake2, Animation().add("a", 0).add("a", 6).add("b", 1)).unsent.count, 0)
        << "the row below shows the same name";
}

TEST(Timetable, LimitsSayWhereTheyWereSeen) {
    EXPECT_EQ(games::SightingText(games::KickLimit.seen), "MVDSV 0.35, run");
    EXPECT_EQ(games::SightingText(games::WaitLimit.seen), "ezQuake 3.6.1, run");
    EXPECT_EQ(games::SightingText(games::TakeLimit.seen), "DarkPlaces 2018-09-08, run");
    EXPECT_EQ(games::SightingText(games::SkipLimit.seen), "Yamagi Quake II 8.20, run");
    EXPECT_EQ(games::KickLimit.ticks, 385);
    EXPECT_EQ(games::WaitLimit.ticks, 154);
    EXPECT_EQ(games::TakeLimit.ticks, 360);
}
