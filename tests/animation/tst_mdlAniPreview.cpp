// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniPreview.h"

#include "animation/mdlAniName.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>

namespace animation {
namespace {

editing::AnimationDocument withTicks(int names, std::int16_t ticks) {
    editing::AnimationDocument animation;
    SetNameCount(animation, names);
    SetAllTicks(animation, ticks);
    return animation;
}

/// Steps until the preview stops; how many steps it took.
int stepsToEnd(AniPreview& preview) {
    int steps = 0;
    while (preview.playing() && steps < 10'000'000) {
        preview.step();
        ++steps;
    }
    return steps;
}

} // namespace

TEST(AniPreview, OpensOnTheFirstRowWithTheLastNameCurrent) {
    AniPreview preview(withTicks(20, 2));
    EXPECT_EQ(preview.shownName(), 1);
    EXPECT_FALSE(preview.playing());
    preview.forward();
    EXPECT_EQ(preview.shownName(), 1) << "the first step forward goes round to name 1";
    preview.forward();
    EXPECT_EQ(preview.shownName(), 2);
}

TEST(AniPreview, GoesToTheLastButOneOnTheFirstStepBack) {
    AniPreview preview(withTicks(20, 2));
    preview.rewind();
    EXPECT_EQ(preview.shownName(), 19);
}

TEST(AniPreview, GoesRoundAtTheEnds) {
    AniPreview preview(withTicks(15, 2));
    preview.toEnd();
    EXPECT_EQ(preview.shownName(), 15);
    preview.forward();
    EXPECT_EQ(preview.shownName(), 1);
    preview.rewind();
    EXPECT_EQ(preview.shownName(), 15);
    preview.toBegin();
    EXPECT_EQ(preview.shownName(), 1);
    for (int name = 2; name <= 15; ++name) {
        preview.forward();
        EXPECT_EQ(preview.shownName(), name);
    }
    for (int name = 14; name >= 1; --name) {
        preview.rewind();
        EXPECT_EQ(preview.shownName(), name);
    }
}

TEST(AniPreview, PlaysEachNameAfterTheTicksOfTheOneBefore) {
    editing::AnimationDocument animation = withTicks(15, 1);
    SetTicks(animation, 1, 3);
    SetTicks(animation, 2, 2);
    SetTicks(animation, 15, 50);
    AniPreview preview(animation);
    preview.play();
    EXPECT_TRUE(preview.playing());
    EXPECT_EQ(preview.shownName(), 1);
    preview.step();
    preview.step();
    EXPECT_EQ(preview.shownName(), 1);
    preview.step();
    EXPECT_EQ(preview.shownName(), 2);
    preview.step();
    EXPECT_EQ(preview.shownName(), 2);
    preview.step();
    EXPECT_EQ(preview.shownName(), 3);
    EXPECT_EQ(stepsToEnd(preview), 12);
    EXPECT_EQ(preview.shownName(), 15) << "the ticks of the last name are not waited";
}

TEST(AniPreview, ShowsWhatItShowedUntilTheFirstStepOfPlaying) {
    AniPreview preview(withTicks(15, 2));
    preview.toEnd();
    preview.play();
    EXPECT_EQ(preview.shownName(), 15);
    preview.step();
    EXPECT_EQ(preview.shownName(), 15);
    preview.step();
    EXPECT_EQ(preview.shownName(), 2);
}

TEST(AniPreview, RunsThroughNamesWithoutTicksAtOnce) {
    AniPreview preview(withTicks(90, 0));
    preview.play();
    EXPECT_FALSE(preview.playing());
    EXPECT_EQ(preview.shownName(), 90);
}

TEST(AniPreview, PassesNamesWithoutTicksWithinOneStep) {
    editing::AnimationDocument animation = withTicks(15, 0);
    SetTicks(animation, 1, 1);
    SetTicks(animation, 6, 2);
    AniPreview preview(animation);
    preview.play();
    preview.step();
    EXPECT_EQ(preview.shownName(), 6);
    preview.step();
    EXPECT_EQ(preview.shownName(), 6);
    preview.step();
    EXPECT_EQ(preview.shownName(), 15);
    EXPECT_FALSE(preview.playing());
}

TEST(AniPreview, EndsWithTheLastNameAfterTheCurrentWaitWhenStopped) {
    AniPreview preview(withTicks(15, 10));
    preview.play();
    for (int step = 1; step <= 13; ++step) {
        preview.step();
    }
    EXPECT_EQ(preview.shownName(), 2);
    preview.stop();
    EXPECT_TRUE(preview.playing());
    EXPECT_EQ(preview.shownName(), 2);
    EXPECT_EQ(stepsToEnd(preview), 7);
    EXPECT_EQ(preview.shownName(), 15);
}

TEST(AniPreview, OnlyMovesTheCurrentNameWhenStoppedWhileIdle) {
    AniPreview preview(withTicks(15, 2));
    preview.toBegin();
    preview.stop();
    EXPECT_FALSE(preview.playing());
    EXPECT_EQ(preview.shownName(), 1);
    preview.forward();
    EXPECT_EQ(preview.shownName(), 15);
}

TEST(AniPreview, CanPlayAgainAfterTheEndAndAfterAStop) {
    AniPreview preview(withTicks(15, 1));
    preview.play();
    EXPECT_EQ(stepsToEnd(preview), 14);
    preview.play();
    EXPECT_TRUE(preview.playing());
    EXPECT_EQ(preview.shownName(), 15);
    preview.step();
    EXPECT_EQ(preview.shownName(), 2);
    preview.stop();
    EXPECT_EQ(stepsToEnd(preview), 1);
    preview.play();
    EXPECT_EQ(stepsToEnd(preview), 14);
}

TEST(AniPreview, StaysWhereItIsWhenClosed) {
    AniPreview preview(withTicks(15, 1));
    preview.play();
    preview.step();
    preview.close();
    EXPECT_FALSE(preview.playing());
    preview.step();
    EXPECT_EQ(preview.shownName(), 2);
}

TEST(AniPreview, IgnoresTicksWhileIdle) {
    AniPreview preview(withTicks(15, 1));
    for (int step = 0; step < 100; ++step) {
        preview.step();
    }
    EXPECT_EQ(preview.shownName(), 1);
    preview.play();
    EXPECT_EQ(stepsToEnd(preview), 14);
}

TEST(AniPreview, ShowsTheAnimationAsItWasWhenItOpened) {
    editing::AnimationDocument animation = withTicks(15, 1);
    AniPreview preview(animation);
    SetNameCount(animation, 90);
    SetAllTicks(animation, 9);
    preview.play();
    EXPECT_EQ(stepsToEnd(preview), 14);
    EXPECT_EQ(preview.shownName(), 15);
}

TEST(AniPreview, TakesAsManyTicksAsTheNamesHave) {
    for (const int ticks : {1, 2, 15, 40, 32767}) {
        AniPreview preview(withTicks(90, static_cast<std::int16_t>(ticks)));
        preview.play();
        EXPECT_EQ(stepsToEnd(preview), 89 * ticks);
    }
    std::mt19937 random(5);
    for (int round = 0; round < 50; ++round) {
        editing::AnimationDocument animation = withTicks(15 + static_cast<int>(random() % 76), 0);
        int sum = 0;
        for (int name = 1; name <= animation.nameCount; ++name) {
            SetTicks(animation, name, static_cast<std::int16_t>(random() % 16));
            sum += name < animation.nameCount ? animation.ticks(name) : 0;
        }
        AniPreview preview(animation);
        preview.play();
        EXPECT_EQ(stepsToEnd(preview), sum);
    }
}

TEST(AniPreview, TellsTheTicksSinceTheFirstName) {
    editing::AnimationDocument animation = withTicks(15, 2);
    SetTicks(animation, 3, 5);
    AniPreview preview(animation);
    EXPECT_EQ(preview.elapsedTicks(), 0);
    EXPECT_EQ(preview.ticksOf(3), 5);
    preview.toEnd();
    EXPECT_EQ(preview.elapsedTicks(), 13 * 2 + 5);
    for (int round = 0; round < 2; ++round) {
        preview.play();
        for (int step = 0; preview.playing(); ++step) {
            EXPECT_EQ(preview.elapsedTicks(), step);
            preview.step();
        }
        EXPECT_EQ(preview.elapsedTicks(), 13 * 2 + 5);
        preview.step();
        EXPECT_EQ(preview.elapsedTicks(), 13 * 2 + 5) << "idle steps do not count";
    }
}

TEST(AniPreview, BeginsAgainAfterTheTicksOfTheLastName) {
    editing::AnimationDocument animation = withTicks(15, 1);
    SetTicks(animation, 15, 4);
    AniPreview preview(animation);
    preview.setAgain(true);
    preview.play();
    for (int round = 0; round < 3; ++round) {
        for (int name = 1; name <= 15; ++name) {
            EXPECT_EQ(preview.elapsedTicks(), name - 1);
            for (int tick = preview.ticksOf(name); tick > 0; --tick) {
                EXPECT_EQ(preview.shownName(), name);
                preview.step();
                EXPECT_TRUE(preview.playing());
            }
        }
        EXPECT_EQ(preview.shownName(), 1);
    }
    preview.stop();
    EXPECT_EQ(stepsToEnd(preview), 1) << "after the current wait";
    EXPECT_EQ(preview.shownName(), 15);
    preview.play();
    for (int step = 0; step < 1000; ++step) {
        preview.step();
    }
    EXPECT_TRUE(preview.playing()) << "a stop counts for its own playing";
    preview.setAgain(false);
    EXPECT_LE(stepsToEnd(preview), 14 + 4);
    EXPECT_EQ(preview.shownName(), 15);
}

TEST(AniPreview, EndsAtOnceWithoutTicksEvenWhereItWouldBeginAgain) {
    AniPreview preview(withTicks(15, 0));
    preview.setAgain(true);
    preview.play();
    EXPECT_FALSE(preview.playing());
    EXPECT_EQ(preview.shownName(), 15);
}

TEST(TicksDue, CountsAtTheChosenPace) {
    EXPECT_EQ(TicksDue(13, 0, 13), 1);
    EXPECT_EQ(TicksDue(7, 0, 13), 0);
    EXPECT_EQ(TicksDue(130, 3, 13), 7);
}

TEST(TicksDue, CountsFromTheBeginningSoThatLateTimersCatchUp) {
    EXPECT_EQ(TicksDue(0, 0), 0);
    EXPECT_EQ(TicksDue(44, 0), 0);
    EXPECT_EQ(TicksDue(45, 0), 1) << "a timer a little early";
    EXPECT_EQ(TicksDue(50, 0), 1);
    EXPECT_EQ(TicksDue(50, 1), 0);
    EXPECT_EQ(TicksDue(99, 1), 1);
    EXPECT_EQ(TicksDue(1000, 3), 17);
    EXPECT_EQ(TicksDue(40, 1), 0) << "never steps back";
}

TEST(TicksDue, LetsNinetyNamesEndWithinATickOfTheIdealWhateverTheTimerDoes) {
    constexpr std::int16_t Ticks = 3;
    constexpr std::int64_t Ideal = 89 * Ticks * 50;
    for (const unsigned lateness : {0U, 1U, 20U, 49U, 70U}) {
        AniPreview preview(withTicks(90, Ticks));
        std::mt19937 random(lateness);
        preview.play();
        std::int64_t passed = 0;
        std::int64_t clock = 0;
        while (preview.playing()) {
            // The next tick's time and whatever the timer is late by.
            clock = (clock / 50 + 1) * 50 + static_cast<std::int64_t>(random() % (lateness + 1));
            for (std::int64_t due = TicksDue(clock, passed); due > 0; --due) {
                preview.step();
                ++passed;
            }
        }
        EXPECT_GE(clock, Ideal) << "late by up to " << lateness;
        EXPECT_LE(clock, Ideal + std::max<std::int64_t>(50, lateness)) << "late by up to " << lateness;
    }
}

TEST(FindScreenShot, FindsAnAbsolutePathAndOneInTheProgramDirectory) {
    support::FakePlatform platform;
    const ui::Path path = platform.directory.files.put("shot.bmp", "x");
    for (const std::string& setting : {path.string(), std::string("shot.bmp")}) {
        const ScreenShot shot = FindScreenShot(setting, platform.files, platform.directory);
        EXPECT_EQ(shot.message, "");
        EXPECT_EQ(shot.path, path);
    }
}

TEST(FindScreenShot, SaysWhatIsWrong) {
    const support::FakePlatform platform;
    EXPECT_EQ(
        FindScreenShot("", platform.files, platform.directory).message,
        "There is no screen shot chosen to display.\nPlease go to the options and select a new screen shot.");
    for (const std::string setting : {"/nowhere/a.bmp", "a.bmp"}) {
        const ScreenShot shot = FindScreenShot(setting, platform.files, platform.directory);
        EXPECT_EQ(
            shot.message, "The chosen screen shot, " + setting +
                              ", was not found in the VTM directory.\n"
                              "Please go to the options and select a new screen shot.");
        EXPECT_TRUE(shot.path.empty());
    }
}

} // namespace animation
