// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniServer.h"

#include "animation/AnimationDesk.h"

#include <gtest/gtest.h>

namespace animation {
namespace {

/// Ninety different names, of which the first `count` are in use.
class ServerDesk : public testing::Test {
protected:
    ServerDesk() { desk.fillNames(90); }

    void use(int count, int ticks) {
        animation().nameCount = count;
        animation().nameTicks.fill(static_cast<std::int16_t>(ticks));
    }

    AnimationDocument& animation() { return desk.animation(); }

    [[nodiscard]] int ticksInUse() {
        int ticks = 0;
        for (int name = 1; name <= animation().nameCount; ++name) {
            ticks += animation().ticks(name);
        }
        return ticks;
    }

    support::AnimationDesk desk;
};

} // namespace

TEST_F(ServerDesk, ShowsFiveOfFifteenNames) {
    use(15, 2);
    EXPECT_FALSE(IsSafeForServers(animation()));
    MakeSafeForServers(animation(), 1);
    for (int name = 1; name <= 15; ++name) {
        EXPECT_EQ(desk.name(name), "name " + std::to_string((name + 2) / 3 * 3));
        EXPECT_EQ(animation().ticks(name), 2);
    }
    EXPECT_EQ(desk.name(16), "name 16");
    EXPECT_TRUE(IsSafeForServers(animation()));
}

TEST_F(ServerDesk, CutsWaitsToWhatAScriptMayWait) {
    for (int ticks = 0; ticks <= 40; ++ticks) {
        use(15, ticks);
        desk.fillNames(15);
        MakeSafeForServers(animation(), 1);
        EXPECT_TRUE(IsSafeForServers(animation())) << ticks;
        EXPECT_EQ(animation().ticks(1), std::min(ticks, 10)) << "of 154 ticks for fifteen names";
    }
    use(15, 5);
    animation().ticks(15) = 200;
    MakeSafeForServers(animation(), 1);
    EXPECT_EQ(animation().ticks(14), 5) << "shorter waits stay";
    EXPECT_EQ(animation().ticks(15), 154 - 14 * 5);
    EXPECT_EQ(ticksInUse(), 154);
}

TEST_F(ServerDesk, LeavesTheOtherNamesAsTheyAre) {
    use(30, 4);
    const AnimationDocument before = animation();
    MakeSafeForServers(animation(), 10);
    for (int name = 1; name <= 90; ++name) {
        if (name < 10 || name > 24) {
            EXPECT_EQ(animation().ticks(name), 4);
            EXPECT_EQ(desk.name(name), "name " + std::to_string(name));
        }
    }
    EXPECT_EQ(desk.name(10), "name 12");
    EXPECT_EQ(desk.name(24), "name 24");
    EXPECT_EQ(animation().nameCount, before.nameCount);
    EXPECT_EQ(animation().currentName, before.currentName);
    EXPECT_FALSE(IsSafeForServers(animation())) << "the others are different names as well";
}

TEST_F(ServerDesk, CutsNoWaitsWhereTheOthersLeaveNoTime) {
    use(15, 100);
    MakeSafeForServers(animation(), 76);
    EXPECT_EQ(desk.name(76), "name 78");
    EXPECT_EQ(desk.name(90), "name 90");
    EXPECT_EQ(animation().ticks(76), 100);
    use(30, 10);
    MakeSafeForServers(animation(), 16);
    EXPECT_EQ(animation().ticks(16), 10) << "4 ticks for fifteen names";
}

TEST_F(ServerDesk, CountsBuiltNamesThatAreNotInUseYet) {
    use(15, 4);
    animation().ticks(80) = 20;
    MakeSafeForServers(animation(), 76);
    EXPECT_EQ(animation().ticks(80), 20);
    animation().ticks(80) = 50;
    MakeSafeForServers(animation(), 76);
    EXPECT_EQ(animation().ticks(80), 154 - 15 * 4 - 14 * 4);
    EXPECT_EQ(animation().ticks(76), 4);
}

TEST_F(ServerDesk, IsSafeWithSixNamesWithinTwoSeconds) {
    use(15, 10);
    for (int name = 6; name <= 15; ++name) {
        desk.setName(name, "rest");
    }
    EXPECT_TRUE(IsSafeForServers(animation())) << "six names";
    desk.setName(15, "last");
    EXPECT_FALSE(IsSafeForServers(animation())) << "seven";
    desk.setName(15, "rest");
    animation().ticks(15) = 15;
    EXPECT_FALSE(IsSafeForServers(animation())) << "155 ticks";
}

TEST_F(ServerDesk, TheNamesInUseArePlayed) {
    use(20, 3);
    const games::TimedNames names = TimedNamesOf(animation());
    EXPECT_EQ(names.count(), 20U);
    EXPECT_EQ(glyphs::RowText(names.name(19)), "name 20");
    EXPECT_EQ(games::TimetableOf(games::Family::Quake, names).ticks, 60);
}

} // namespace animation
