// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/mdlPaint.h"

#include "glyphs/mdlData.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace glyphs {

namespace {

using ui::OpaquePixel;
using ui::Picture;
using ui::Pixel;
using ui::Rect;

/// A picture in which no two pixels are alike.
Picture Distinct(int width, int height, unsigned blue = 0) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.setPixel(x, y, OpaquePixel(static_cast<unsigned>(x), static_cast<unsigned>(y), blue));
        }
    }
    return picture;
}

GlyphAtlas DistinctAtlas() {
    return BuildAtlas(Distinct(ArtworkSide, ArtworkSide), ui::OpaqueBlack);
}

/// Whether a cell of a picture (1-based) shows exactly the atlas cell of a glyph.
bool Shows(const Picture& picture, int column, int row, const GlyphAtlas& atlas, int code) {
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const Pixel shown = picture.pixel((column - 1) * 16 + x, (row - 1) * 16 + y);
            if (shown != atlas.cells.pixel(code % 16 * 16 + x, code / 16 * 16 + y)) {
                return false;
            }
        }
    }
    return true;
}

TEST(BlitCells, CopiesARectangle) {
    const Picture source = Distinct(10, 10);
    Picture destination(10, 10);
    BlitCells(destination, 2, 3, 4, 5, source, 5, 1);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            const bool isInside = x >= 2 && x < 6 && y >= 3 && y < 8;
            EXPECT_EQ(destination.pixel(x, y), isInside ? source.pixel(x + 3, y - 2) : ui::OpaqueBlack);
        }
    }
}

TEST(BlitCells, IsClippedToBothPictures) {
    // Every rectangle near the edges, compared with a copy pixel by pixel.
    const Picture source = Distinct(5, 4, 1);
    for (int x = -3; x <= 7; ++x) {
        for (int y = -3; y <= 6; ++y) {
            for (int sourceX = -2; sourceX <= 6; sourceX += 2) {
                for (int sourceY = -2; sourceY <= 5; ++sourceY) {
                    Picture destination = Distinct(6, 5, 2);
                    Picture expected = destination;
                    for (int line = 0; line < 3; ++line) {
                        for (int step = 0; step < 4; ++step) {
                            const int toX = x + step;
                            const int toY = y + line;
                            const int fromX = sourceX + step;
                            const int fromY = sourceY + line;
                            if (toX >= 0 && toY >= 0 && toX < 6 && toY < 5 && fromX >= 0 && fromY >= 0 &&
                                fromX < 5 && fromY < 4) {
                                expected.setPixel(toX, toY, source.pixel(fromX, fromY));
                            }
                        }
                    }
                    BlitCells(destination, x, y, 4, 3, source, sourceX, sourceY);
                    ASSERT_EQ(destination, expected) << x << ' ' << y << ' ' << sourceX << ' ' << sourceY;
                }
            }
        }
    }
}

TEST(BlitCells, CopiesNothingWithoutAnArea) {
    Picture destination = Distinct(4, 4);
    const Picture before = destination;
    BlitCells(destination, 0, 0, 0, 4, Picture(4, 4), 0, 0);
    BlitCells(destination, 0, 0, 4, -1, Picture(4, 4), 0, 0);
    BlitCells(destination, 0, 0, 4, 4, Picture(), 0, 0);
    EXPECT_EQ(destination, before);
}

TEST(BlitCells, MovesPixelsWithinOnePicture) {
    const Picture before = Distinct(8, 8);
    for (int dx = -3; dx <= 3; ++dx) {
        for (int dy = -3; dy <= 3; ++dy) {
            Picture picture = before;
            BlitCells(picture, 3 + dx, 3 + dy, 3, 3, picture, 3, 3);
            Picture expected = before;
            BlitCells(expected, 3 + dx, 3 + dy, 3, 3, before, 3, 3);
            EXPECT_EQ(picture, expected) << dx << ' ' << dy;
        }
    }
}

TEST(StretchCells, RepeatsPixelsWithoutSmoothing) {
    const Picture source = Distinct(4, 4);
    Picture destination(8, 8);
    StretchCells(destination, destination.bounds(), source, source.bounds());
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            EXPECT_EQ(destination.pixel(x, y), source.pixel(x / 2, y / 2));
        }
    }
}

TEST(StretchCells, CanShrink) {
    const Picture source = Distinct(8, 8);
    Picture destination(6, 6);
    StretchCells(destination, {1, 2, 4, 4}, source, source.bounds());
    EXPECT_EQ(destination.pixel(1, 2), source.pixel(0, 0));
    EXPECT_EQ(destination.pixel(4, 5), source.pixel(6, 6));
    EXPECT_EQ(destination.pixel(0, 0), ui::OpaqueBlack);
    EXPECT_EQ(destination.pixel(5, 5), ui::OpaqueBlack);
}

TEST(BuildAtlas, StretchesTheArtworkToCellsOfSixteenPixels) {
    const Picture artwork = Distinct(ArtworkSide, ArtworkSide);
    const GlyphAtlas atlas = BuildAtlas(artwork, ui::OpaqueBlack);
    ASSERT_EQ(atlas.cells.width(), 256);
    ASSERT_EQ(atlas.cells.height(), 256);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            ASSERT_EQ(atlas.cells.pixel(x, y), artwork.pixel(x / 2, y / 2));
        }
    }
}

TEST(BuildAtlas, PutsTheBackgroundBehindTransparentPixels) {
    Picture artwork(ArtworkSide, ArtworkSide, 0);
    artwork.setPixel(5, 6, OpaquePixel(1, 2, 3));
    // A colour setting has no opacity of its own.
    const GlyphAtlas atlas = BuildAtlas(artwork, 0x000000FFU);
    EXPECT_EQ(atlas.artwork, artwork);
    EXPECT_EQ(atlas.cells.pixel(10, 12), OpaquePixel(1, 2, 3));
    EXPECT_EQ(atlas.cells.pixel(11, 13), OpaquePixel(1, 2, 3));
    EXPECT_EQ(atlas.cells.pixel(12, 12), OpaquePixel(0, 0, 255));
    EXPECT_EQ(atlas.source.pixel(0, 0), OpaquePixel(0, 0, 255));
}

TEST(PaintGlyph, CopiesTheCellOfTheGlyph) {
    const GlyphAtlas atlas = DistinctAtlas();
    Picture page(4 * 16, 3 * 16);
    PaintGlyph(page, atlas, 255, 2, 3);
    EXPECT_EQ(page.pixel(16, 32), atlas.cells.pixel(240, 240));
    EXPECT_TRUE(Shows(page, 2, 3, atlas, 255));
    PaintGlyph(page, atlas, 16, 4, 1);
    EXPECT_EQ(page.pixel(48, 0), atlas.cells.pixel(0, 16));
    EXPECT_TRUE(Shows(page, 4, 1, atlas, 16));
}

TEST(PaintGlyph, PaintsEveryGlyphIntoItsCellOnly) {
    const GlyphAtlas atlas = DistinctAtlas();
    for (GlyphCode code = 0; code < GlyphCount; ++code) {
        Picture page(3 * 16, 3 * 16);
        PaintGlyph(page, atlas, code, 2, 2);
        EXPECT_TRUE(Shows(page, 2, 2, atlas, code)) << code;
        page.fill({16, 16, 16, 16}, ui::OpaqueBlack);
        EXPECT_EQ(page, Picture(3 * 16, 3 * 16)) << code;
    }
}

TEST(PaintGlyph, PaintsABlankForACodeOutsideTheSet) {
    const GlyphAtlas atlas = DistinctAtlas();
    for (const GlyphCode code : std::vector<GlyphCode>{-1, 256, 32767, -32768}) {
        Picture page(16, 16);
        PaintGlyph(page, atlas, code, 1, 1);
        EXPECT_TRUE(Shows(page, 1, 1, atlas, 32)) << code;
    }
}

TEST(GlyphButtonPicture, StretchesTheGlyphsArtwork) {
    const GlyphAtlas atlas = DistinctAtlas();
    for (const GlyphCode code : std::vector<GlyphCode>{0, 16, 86, 255}) {
        const Picture picture = GlyphButtonPicture(atlas, code);
        ASSERT_EQ(picture.width(), 16);
        ASSERT_EQ(picture.height(), 16);
        EXPECT_TRUE(Shows(picture, 1, 1, atlas, code)) << code;
    }
}

TEST(PagePicture, CollectsTheDamagedCells) {
    PagePicture page(15, 90);
    EXPECT_EQ(page.pixels().width(), 240);
    EXPECT_EQ(page.pixels().height(), 1440);
    EXPECT_TRUE(page.takeDamage().empty());
    page.damageCells(2, 3, 1, 1);
    EXPECT_EQ(page.takeDamage(), Rect({16, 32, 16, 16}));
    EXPECT_TRUE(page.takeDamage().empty());
    page.damageCells(2, 3, 1, 1);
    page.damageCells(4, 3, 2, 1);
    EXPECT_EQ(page.takeDamage(), Rect({16, 32, 64, 16}));
    page.damageAll();
    EXPECT_EQ(page.takeDamage(), Rect({0, 0, 240, 1440}));
}

/// The values that a progress of so many cells shows, one entry a change.
std::vector<int> ShownFor(int cells) {
    std::vector<int> shown;
    Progress progress([&shown](int percentage) { shown.push_back(percentage); });
    progress.ProgressStart(1, cells, 1);
    for (int i = 0; i < cells; ++i) {
        progress.ProgressStep();
        EXPECT_GE(progress.percentage(), 0);
        EXPECT_LE(progress.percentage(), 100);
        EXPECT_EQ(progress.percentage() % 10, 0);
    }
    EXPECT_EQ(progress.percentage(), 100);
    progress.setCurrent(1);
    progress.ProgressStep();
    EXPECT_EQ(progress.percentage(), shown.back());
    return shown;
}

TEST(Progress, RisesInTensAndFallsBack) {
    EXPECT_EQ(ShownFor(93), (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 0}));
    EXPECT_EQ(ShownFor(225), (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 0}));
    EXPECT_EQ(ShownFor(1350), (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 0}));
}

TEST(Progress, NeverShowsMoreThanHundredPerCent) {
    // 5 of 4 steps would be 125.
    EXPECT_EQ(ShownFor(5), (std::vector<int>{20, 50, 70, 100, 20}));
    EXPECT_EQ(ShownFor(15).at(9), 100);
    EXPECT_EQ(ShownFor(15).back(), 0);
}

TEST(Progress, SurvivesAPageOfOneCell) {
    Progress progress([](int) {});
    progress.ProgressStart(1, 1, 1);
    progress.ProgressStep();
    EXPECT_EQ(progress.percentage(), 100);
}

TEST(PlaySoundResource, PlaysTheWaveOfTheNumber) {
    support::FakeSounds player;
    for (int number = 101; number <= 104; ++number) {
        PlaySoundResource(player, {true, true, true, true}, number);
        EXPECT_FALSE(player.waves.back().empty());
        EXPECT_EQ(player.waves.back(), SoundWave(number));
    }
    EXPECT_EQ(player.waves.size(), 4U);
}

TEST(PlaySoundResource, ObeysTheOptionOfTheSound) {
    for (int off = 0; off < 4; ++off) {
        SoundOptions options{true, true, true, true};
        options[static_cast<std::size_t>(off)] = false;
        support::FakeSounds player;
        for (int number = 101; number <= 104; ++number) {
            PlaySoundResource(player, options, number);
        }
        EXPECT_EQ(player.waves.size(), 3U);
        PlaySoundResource(player, options, 101 + off);
        EXPECT_EQ(player.waves.size(), 3U);
    }
}

TEST(PlaySoundResource, IgnoresUnknownNumbers) {
    support::FakeSounds player;
    for (const int number : {0, 100, 105, -1}) {
        PlaySoundResource(player, {true, true, true, true}, number);
        PlaySoundResource(player, {}, number);
        EXPECT_TRUE(SoundWave(number).empty());
    }
    EXPECT_TRUE(player.waves.empty());
}

TEST(ShowGridMarker, StandsOnTheGlyphInTwips) {
    const GridMarker marker = ShowGridMarker(145);
    EXPECT_TRUE(marker.visible);
    EXPECT_EQ(marker.left, 240);
    EXPECT_EQ(marker.top, 9 * 240);
    const GridMarker last = ShowGridMarker(253);
    EXPECT_EQ(last.left, 13 * 240);
    EXPECT_EQ(last.top, 15 * 240);
}

TEST(ShowGridMarker, IsHiddenOnGlyphsThatMayNotBePicked) {
    for (const GlyphCode code : std::vector<GlyphCode>{0, 34, 126, 127, 162, 254, 255}) {
        EXPECT_FALSE(ShowGridMarker(code).visible) << code;
    }
}

TEST(ShowGridMarker, StandsOnTheOtherArrowHeadForTheCarriageReturn) {
    EXPECT_EQ(ShowGridMarker(13).left, 13 * 240);
    EXPECT_EQ(ShowGridMarker(13).top, 8 * 240);
}

TEST(GridHitTest, FindsTheGlyphUnderAPositionInTwips) {
    EXPECT_EQ(GridHitTest(0, 3825), 240);
    EXPECT_EQ(GridHitTest(3825, 0), 15);
    EXPECT_EQ(GridHitTest(0, 0), 0);
    EXPECT_EQ(GridHitTest(239, 239), 0);
    EXPECT_EQ(GridHitTest(240, 239), 1);
    EXPECT_EQ(GridHitTest(239, 240), 16);
    EXPECT_EQ(GridHitTest(3839, 3839), 255);
}

TEST(GridHitTest, FindsTheCellOfEveryPixel) {
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            ASSERT_EQ(GridHitTest(x * 15, y * 15), y / 16 * 16 + x / 16);
        }
    }
}

TEST(GridHitTest, FindsNothingOutsideTheGrid) {
    EXPECT_EQ(GridHitTest(-1, 0), -1);
    EXPECT_EQ(GridHitTest(0, -1), -1);
    EXPECT_EQ(GridHitTest(3840, 0), -1);
    EXPECT_EQ(GridHitTest(0, 3840), -1);
}

TEST(RowPicture, ShowsARowEnlargedWithoutTheBlanksAtItsEnds) {
    const Picture source = DistinctAtlas().source;
    const std::vector<GlyphCode> row{32, 17, 32, 255, 32, 32};
    const ui::Picture picture = RowPicture(row, source, 3);
    ASSERT_EQ(picture.width(), 3 * 8 * 3);
    ASSERT_EQ(picture.height(), 8 * 3);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < 24; ++x) {
            ASSERT_EQ(picture.pixel(x, y), source.pixel(8 + x / 3, 8 + y / 3));
            ASSERT_EQ(picture.pixel(24 + x, y), source.pixel(x / 3, 16 + y / 3));
            ASSERT_EQ(picture.pixel(48 + x, y), source.pixel(120 + x / 3, 120 + y / 3));
        }
    }
    EXPECT_TRUE(RowPicture(std::vector<GlyphCode>(15, 32), source, 2).empty());
    EXPECT_TRUE(RowPicture({}, source, 2).empty());
}

} // namespace

} // namespace glyphs
