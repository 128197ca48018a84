// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/RankingsLayout.h"

#include "ui/WholePixel.h"

#include <gtest/gtest.h>

#include <utility>

namespace animation {

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

TEST(LayOutRankings, ScalesDoubledPixelsByHalfFactors) {
    struct Case {
        double ratio;
        int width;
        int height;
        int enlarge;
        int reduce;
        ui::Rect screenShot;
    };

    for (const Case& expected : {
             Case{1, 1024, 768, 1, 1, {192, 76, 640, 480}},
             Case{1, 1920, 1080, 3, 2, {480, 108, 960, 720}},
             Case{1, 2560, 1440, 2, 1, {640, 144, 1280, 960}},
             Case{1, 3000, 1600, 5, 2, {700, 160, 1600, 1200}},
             Case{2, 1920, 1080, 7, 2, {400, 108, 1120, 840}},
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
             .devicePixelRatio = expected.ratio,
             .isDoubled = true});
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

TEST(LayOutRankings, NeverReducesTheNamesWhateverTheScreenshotIsReducedBy) {
    RankingsLayout layout = OnFullHd(3840, 2160);
    EXPECT_EQ(layout.reduce, 3);
    EXPECT_EQ(layout.screenShot, (ui::Rect{320, 108, 1280, 720}));
    // The line of the board is 80 x 5 pixels there, from 600, 264 on: the middle is the same.
    EXPECT_EQ(layout.strip, (ui::Rect{320 + 520, 108 + 258, 240, 16}));
    EXPECT_EQ(layout.line, (BoardLine{1800, 792}));
    for (const double ratio : {1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0, 4.0}) {
        for (const auto& [width, height] :
             {std::pair(1, 1), std::pair(16, 16), std::pair(640, 480), std::pair(801, 603),
              std::pair(1921, 1081), std::pair(3840, 2160), std::pair(5001, 7003), std::pair(17, 8000),
              std::pair(17, 30000), std::pair(1, 67108863), std::pair(67108863, 1)}) {
            SCOPED_TRACE(testing::Message() << ratio << ' ' << width << ' ' << height);
            layout = OnFullHd(width, height, ratio);
            EXPECT_EQ(layout.nameReduce, 1);
            const auto expectWhole = [&layout, ratio](int own, int frame, int inset) {
                EXPECT_GE(inset, 0);
                EXPECT_LE(inset, ratio);
                const int end = inset + own * layout.nameEnlarge;
                EXPECT_LE(end, frame * ratio + ui::PixelTolerance);
                EXPECT_GT(end, (frame - 1) * ratio);
            };
            expectWhole(240, layout.strip.width, layout.insetX);
            expectWhole(16, layout.strip.height, layout.insetY);
            EXPECT_GE(layout.strip.x, 0);
            EXPECT_LE((layout.strip.x + layout.strip.width - 1) * ratio, 1920);
            EXPECT_GE(layout.strip.y, 0);
            EXPECT_LE(layout.strip.y + layout.strip.height, layout.player.y + 1);
        }
    }
}

TEST(LayOutRankings, LaysTheStripOnTheChosenLine) {
    RankingsSizes sizes{
        .windowWidth = 1024,
        .windowHeight = 768,
        .screenShotWidth = 640,
        .screenShotHeight = 480,
        .playerWidth = 500,
        .playerHeight = 30,
        .line = BoardLine{33, 71}};
    RankingsLayout layout = LayOutRankings(sizes);
    EXPECT_EQ(layout.strip, (ui::Rect{192 + 33, 76 + 71, 240, 16}));
    EXPECT_EQ(layout.line, (BoardLine{33, 71}));
    // The same line in a larger window, of doubled pixels.
    sizes.windowWidth = 1920;
    sizes.windowHeight = 1080;
    sizes.isDoubled = true;
    layout = LayOutRankings(sizes);
    EXPECT_EQ(layout.line, (BoardLine{32, 70})) << "where a pair begins";
    EXPECT_EQ(layout.strip, (ui::Rect{480 + 48, 108 + 105, 360, 24}));
}

TEST(LayOutRankings, KeepsTheChosenLineInTheWindowAndAboveTheButtons) {
    RankingsSizes sizes{
        .windowWidth = 1024,
        .windowHeight = 768,
        .screenShotWidth = 640,
        .screenShotHeight = 480,
        .playerWidth = 500,
        .playerHeight = 30,
        .line = BoardLine{-5000, -5000}};
    RankingsLayout layout = LayOutRankings(sizes);
    EXPECT_EQ(layout.strip, (ui::Rect{0, 0, 240, 16}));
    EXPECT_EQ(layout.line, (BoardLine{-192, -76}));
    sizes.line = BoardLine{5000, 5000};
    layout = LayOutRankings(sizes);
    EXPECT_EQ(layout.strip, (ui::Rect{1024 - 240, 691 - 16, 240, 16}));
    sizes.line = layout.line;
    EXPECT_EQ(LayOutRankings(sizes).line, layout.line) << "it stays there";
}

TEST(IsDoubled, TellsSquaresOfTwoByTwo) {
    ui::Picture picture(4, 4);
    EXPECT_TRUE(IsDoubled(picture));
    picture.fill({2, 0, 2, 2}, ui::OpaquePixel(1, 2, 3));
    EXPECT_TRUE(IsDoubled(picture));
    picture.setPixel(3, 3, ui::OpaquePixel(1, 2, 3));
    EXPECT_FALSE(IsDoubled(picture));
    EXPECT_FALSE(IsDoubled(ui::Picture(3, 4)));
    EXPECT_FALSE(IsDoubled(ui::Picture(4, 3)));
}

} // namespace animation
