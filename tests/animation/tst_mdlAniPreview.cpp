// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniPreview.h"

#include "animation/mdlAniName.h"
#include "support/FakePlatform.h"
#include "ui/WholePixel.h"

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

TEST(LayOutRankings, CentresTheScreenshotAtATenthAndTheButtonsAtNineTenths) {
    const RankingsLayout layout = LayOutRankings(
        {.windowWidth = 1280,
         .windowHeight = 1024,
         .screenShotWidth = 640,
         .screenShotHeight = 480,
         .playerWidth = 500,
         .playerHeight = 30});
    EXPECT_EQ(layout.enlarge, 1);
    EXPECT_EQ(layout.reduce, 1);
    EXPECT_EQ(layout.screenShot, (ui::Rect{320, 102, 640, 480}));
    EXPECT_EQ(layout.strip, (ui::Rect{320 + 240, 102 + 176, 240, 16}));
    EXPECT_EQ(layout.player, (ui::Rect{390, 921, 500, 30}));
    EXPECT_EQ(layout.quit.x, 1240);
    EXPECT_EQ(layout.quit.y, 984);
    EXPECT_LE(layout.quit.width, 40);
    EXPECT_LE(layout.quit.height, 40);
}

TEST(LayOutRankings, ScalesByWholeFactorsOnly) {
    const auto layoutOf = [](int windowWidth, int windowHeight, int width, int height) {
        return LayOutRankings(
            {.windowWidth = windowWidth,
             .windowHeight = windowHeight,
             .screenShotWidth = width,
             .screenShotHeight = height,
             .playerWidth = 500,
             .playerHeight = 30});
    };
    EXPECT_EQ(layoutOf(1280, 1200, 640, 480).enlarge, 2);
    EXPECT_EQ(layoutOf(1279, 1200, 640, 480).enlarge, 1);
    EXPECT_EQ(layoutOf(1280, 1198, 640, 480).enlarge, 1);
    EXPECT_EQ(layoutOf(3840, 2160, 640, 480).enlarge, 3);
    EXPECT_EQ(layoutOf(3840, 2160, 320, 200).enlarge, 8);
    EXPECT_EQ(layoutOf(1024, 768, 1024, 768).reduce, 2);
    EXPECT_EQ(layoutOf(1024, 768, 3840, 2160).reduce, 4);
    for (const auto& [width, height] :
         {std::pair(640, 480), std::pair(1, 1), std::pair(5000, 3), std::pair(7, 4000)}) {
        for (const int side : {1, 39, 200, 768, 4000}) {
            const RankingsLayout layout = layoutOf(side, side, width, height);
            EXPECT_TRUE(layout.enlarge == 1 || layout.reduce == 1);
            EXPECT_LE(layout.screenShot.width, side);
            EXPECT_LE(layout.screenShot.height, side);
        }
    }
}

TEST(LayOutRankings, CountsInThePixelsOfAScreenOfHighResolution) {
    const auto layoutOf = [](int width, int height, double ratio) {
        return LayOutRankings(
            {.windowWidth = width,
             .windowHeight = height,
             .screenShotWidth = 640,
             .screenShotHeight = 480,
             .playerWidth = 500,
             .playerHeight = 30,
             .devicePixelRatio = ratio});
    };
    RankingsLayout layout = layoutOf(640, 512, 2);
    EXPECT_EQ(layout.enlarge, 1);
    EXPECT_EQ(layout.reduce, 1);
    EXPECT_EQ(layout.screenShot, (ui::Rect{160, 51, 320, 240}));
    EXPECT_EQ(layout.strip, (ui::Rect{160 + 120, 51 + 88, 120, 8}));
    layout = layoutOf(1280, 1024, 2);
    EXPECT_EQ(layout.enlarge, 3);
    EXPECT_EQ(layout.screenShot, (ui::Rect{160, 102, 960, 720}));
    EXPECT_EQ(layout.strip, (ui::Rect{160 + 360, 102 + 264, 360, 24}));
    layout = layoutOf(1280, 1024, 3);
    EXPECT_EQ(layout.enlarge, 5);
    EXPECT_EQ(layout.reduce, 1);
    EXPECT_EQ(layout.screenShot, (ui::Rect{106, 102, 1067, 800}));
}

TEST(LayOutRankings, MakesPairsOfPixelsWholeWhereTheScaleIsNot) {
    struct Case {
        double ratio;
        int width;
        int height;
        int enlarge;
        int reduce;
        ui::Rect screenShot;
    };

    for (const Case& expected : {
             Case{1.25, 1024, 768, 3, 2, {128, 76, 768, 576}},
             Case{1.5, 1024, 768, 3, 2, {192, 76, 640, 480}},
             Case{1.75, 1024, 768, 2, 1, {146, 76, 731, 549}},
             Case{1.25, 1280, 1024, 2, 1, {128, 102, 1024, 768}},
             Case{1.25, 600, 800, 1, 1, {44, 80, 512, 384}},
             Case{1.25, 500, 800, 1, 2, {122, 80, 256, 192}},
         }) {
        const RankingsLayout layout = LayOutRankings(
            {.windowWidth = expected.width,
             .windowHeight = expected.height,
             .screenShotWidth = 640,
             .screenShotHeight = 480,
             .playerWidth = 500,
             .playerHeight = 30,
             .devicePixelRatio = expected.ratio});
        EXPECT_EQ(layout.enlarge, expected.enlarge) << expected.ratio;
        EXPECT_EQ(layout.reduce, expected.reduce) << expected.ratio;
        EXPECT_EQ(layout.screenShot, expected.screenShot) << expected.ratio;
    }
}

TEST(LayOutRankings, LaysTheStripAtTheSameHeightInTheMiddleOfOtherScreenshots) {
    const RankingsLayout layout = LayOutRankings(
        {.windowWidth = 1024,
         .windowHeight = 768,
         .screenShotWidth = 800,
         .screenShotHeight = 600,
         .playerWidth = 500,
         .playerHeight = 30});
    EXPECT_EQ(layout.screenShot, (ui::Rect{112, 76, 800, 600}));
    EXPECT_EQ(layout.strip, (ui::Rect{112 + 280, 76 + 220, 240, 16}));
}

TEST(LayOutRankings, LaysTheStripWhereTheBoardWouldStandWithoutAScreenshot) {
    const RankingsLayout layout = LayOutRankings(
        {.windowWidth = 1024,
         .windowHeight = 768,
         .screenShotWidth = 0,
         .screenShotHeight = 0,
         .playerWidth = 500,
         .playerHeight = 30});
    EXPECT_TRUE(layout.screenShot.empty());
    EXPECT_EQ(layout.strip, (ui::Rect{192 + 240, 76 + 176, 240, 16}));
}

namespace {

/// A full screen of 1920 x 1080 over a screenshot of the given size.
RankingsLayout OnFullHd(int screenShotWidth, int screenShotHeight, double devicePixelRatio = 1) {
    return LayOutRankings(
        {.windowWidth = static_cast<int>(1920 / devicePixelRatio),
         .windowHeight = static_cast<int>(1080 / devicePixelRatio),
         .screenShotWidth = screenShotWidth,
         .screenShotHeight = screenShotHeight,
         .playerWidth = 500,
         .playerHeight = 30,
         .devicePixelRatio = devicePixelRatio});
}

} // namespace

TEST(LayOutRankings, KeepsTheNameInTheWindowOverTheSmallestScreenshot) {
    RankingsLayout layout = OnFullHd(16, 16);
    EXPECT_EQ(layout.enlarge, 8) << "so often a name fits in";
    EXPECT_EQ(layout.screenShot, (ui::Rect{896, 108, 128, 128}));
    EXPECT_EQ(layout.strip, (ui::Rect{0, 108 + 5 * 8, 1920, 128}));
    layout = OnFullHd(1, 1);
    EXPECT_LE(layout.enlarge, 8);
    EXPECT_GE(layout.strip.x, 0);
    EXPECT_LE(layout.strip.x + layout.strip.width, 1920);
    for (int width = 1; width < 300; width += 7) {
        for (const int height : {1, 2, 15, 16, 17, 64, 1080}) {
            for (const int window : {239, 240, 241, 500, 1920}) {
                layout = LayOutRankings(
                    {.windowWidth = window,
                     .windowHeight = 1080,
                     .screenShotWidth = width,
                     .screenShotHeight = height,
                     .playerWidth = 500,
                     .playerHeight = 30});
                EXPECT_GE(layout.strip.x, 0) << width << ' ' << height << ' ' << window;
                EXPECT_LE(layout.strip.x + layout.strip.width, window)
                    << width << ' ' << height << ' ' << window;
                EXPECT_LE(layout.strip.y + layout.strip.height, layout.player.y) << width << ' ' << height;
            }
        }
    }
}

TEST(LayOutRankings, CoversTheExactPlaceOfTheNameWhateverTheScreenshotIsReducedBy) {
    RankingsLayout layout = OnFullHd(3840, 2160);
    EXPECT_EQ(layout.reduce, 3);
    EXPECT_EQ(layout.screenShot, (ui::Rect{320, 108, 1280, 720}));
    // The name's 16 pixels are five and a third here.
    EXPECT_EQ(layout.strip, (ui::Rect{320 + 600, 108 + 264, 80, 6}));
    EXPECT_EQ(layout.underStrip, (ui::Rect{1800, 792, 240, 18}));
    EXPECT_EQ(layout.nameX, 0);
    EXPECT_EQ(layout.nameY, 0);
    layout = OnFullHd(3847, 2171);
    EXPECT_EQ(layout.underStrip, (ui::Rect{1803, 795, 240, 18}));
    EXPECT_EQ(layout.nameX, 0);
    EXPECT_EQ(layout.nameY, 1);
    for (const double ratio : {1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0, 4.0}) {
        for (const auto& [width, height] :
             {std::pair(1, 1), std::pair(16, 16), std::pair(640, 480), std::pair(801, 603),
              std::pair(1921, 1081), std::pair(3840, 2160), std::pair(5001, 7003), std::pair(17, 8000)}) {
            layout = OnFullHd(width, height, ratio);
            const ui::Rect& part = layout.underStrip;
            const auto expectExact =
                [&layout, ratio](int begin, int length, int shot, int frame, int frameLength, int inset) {
                    EXPECT_EQ(begin * layout.enlarge % layout.reduce, 0);
                    EXPECT_EQ(length * layout.enlarge % layout.reduce, 0);
                    EXPECT_EQ(
                        ui::WholePixel(shot * ratio) + begin * layout.enlarge / layout.reduce,
                        ui::WholePixel(frame * ratio) + inset);
                    EXPECT_GE(inset, 0);
                    EXPECT_LE(inset, ratio);
                    const int end = inset + length * layout.enlarge / layout.reduce;
                    EXPECT_LE(end, frameLength * ratio);
                    EXPECT_GT(end, (frameLength - 1) * ratio);
                };
            SCOPED_TRACE(testing::Message() << ratio << ' ' << width << ' ' << height);
            expectExact(
                part.x, part.width, layout.screenShot.x, layout.strip.x, layout.strip.width, layout.insetX);
            expectExact(
                part.y, part.height, layout.screenShot.y, layout.strip.y, layout.strip.height, layout.insetY);
            EXPECT_GE(layout.nameX, 0);
            EXPECT_LE(layout.nameX + 240, part.width);
            EXPECT_GE(layout.nameY, 0);
            EXPECT_LE(layout.nameY + 16, part.height);
        }
    }
}

TEST(LayOutRankings, ShowsNoNameThatIsSmallerThanAPixel) {
    for (const auto& [width, height] :
         {std::pair(17, 30000), std::pair(1, 67108863), std::pair(67108863, 1)}) {
        const RankingsLayout layout = OnFullHd(width, height);
        EXPECT_TRUE(layout.strip.empty());
        EXPECT_LE(layout.underStrip.width, 240);
        EXPECT_LE(layout.underStrip.height, 16);
    }
}

} // namespace animation
