// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/ArtworkSlot.h"
#include "artwork/Quantise.h"
#include "glyphs/GifPicture.h"
#include "support/GameFiles.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <random>

namespace {

using artwork::CountColours;
using artwork::WithFewerColours;
using support::MakePicture;

int Distance(ui::Pixel first, ui::Pixel second) {
    int distance = 0;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        distance = std::max(
            distance,
            std::abs(
                static_cast<int>((first >> shift) & 0xFFU) - static_cast<int>((second >> shift) & 0xFFU)));
    }
    return distance;
}

/// Every pixel another colour, at random.
ui::Picture Noise(unsigned levels) {
    std::mt19937 random(7);
    return MakePicture(128, 128, [&](int, int) {
        return ui::OpaqueBlack |
               (static_cast<ui::Pixel>(random()) & 0xFFFFFFU) / (256 / levels) * (256 / levels);
    });
}

} // namespace

TEST(Quantise, APictureOfFewColoursStaysAsItIs) {
    const ui::Picture picture = support::MakeArtwork(3);
    EXPECT_EQ(CountColours(picture), 256U);
    EXPECT_EQ(WithFewerColours(picture, 256), picture);
}

TEST(Quantise, NoMoreColoursThanAskedForAreLeftAndTransparentPixelsStay) {
    const ui::Picture picture = support::MakeArtwork(3);
    for (const std::size_t most : {255U, 64U, 5U, 1U}) {
        const ui::Picture reduced = WithFewerColours(picture, most);
        EXPECT_EQ(CountColours(reduced), most);
        for (int y = 0; y < 128; ++y) {
            for (int x = 0; x < 128; ++x) {
                ASSERT_EQ(reduced.pixel(x, y) == 0, picture.pixel(x, y) == 0);
            }
        }
    }
}

TEST(Quantise, ColoursMoveLittle) {
    // 256 greys as 32: each stands for eight of them.
    const ui::Picture greys = MakePicture(256, 1, [](int x, int) {
        const auto grey = static_cast<unsigned>(x);
        return ui::OpaquePixel(grey, grey, grey);
    });
    const ui::Picture reduced = WithFewerColours(greys, 32);
    for (int x = 0; x < 256; ++x) {
        EXPECT_LE(Distance(greys.pixel(x, 0), reduced.pixel(x, 0)), 4) << x;
    }
}

TEST(Quantise, ARareColourFarFromTheOthersSurvives) {
    const ui::Picture picture = MakePicture(64, 2, [](int x, int y) {
        return x == 0 && y == 0 ? 0xFFFF0000U : ui::OpaquePixel(0, 0, static_cast<unsigned>(x));
    });
    const ui::Picture reduced = WithFewerColours(picture, 8);
    EXPECT_LE(Distance(reduced.pixel(0, 0), 0xFFFF0000U), 64);
}

TEST(Quantise, AColourThatFillsMostOfThePictureIsKept) {
    const ui::Picture picture = MakePicture(100, 100, [](int x, int y) {
        return y > 0 ? 0xFF808080U
                     : ui::OpaquePixel(static_cast<unsigned>(x), 0, static_cast<unsigned>(2 * x));
    });
    EXPECT_EQ(WithFewerColours(picture, 4).pixel(50, 50), 0xFF808080U);
}

TEST(ArtworkSlot, AnImageThatFitsKeepsItsColours) {
    const ui::Picture picture = support::MakePicture(128, 128, [](int x, int y) {
        return x % 8 == 7 ? ui::Pixel(0) : ui::OpaquePixel(static_cast<unsigned>(x / 8 + y / 8 * 8), 0, 0);
    });
    const auto image = artwork::MakeSlotImage(picture, 10000);
    ASSERT_TRUE(image) << image.failure().message;
    EXPECT_EQ(image.value().colours, image.value().originalColours);
    const auto decoded = glyphs::DecodeGif(image.value().gif);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded.value(), picture);
}

TEST(ArtworkSlot, TransparentIsOneOfTheColours) {
    const auto image = artwork::MakeSlotImage(support::MakeArtwork(3), 10000);
    ASSERT_TRUE(image) << image.failure().message;
    EXPECT_EQ(image.value().originalColours, 256U);
    EXPECT_EQ(image.value().colours, 255U);
}

TEST(ArtworkSlot, FewerColoursAreTriedUntilItFits) {
    std::mt19937 random(7);
    const ui::Picture greys = MakePicture(128, 128, [&](int x, int y) {
        const unsigned grey = x < 64 || y < 40 ? 17U : static_cast<unsigned>(random() & 0xFFU);
        return ui::OpaquePixel(grey, grey, grey);
    });
    const auto sizeWith = [&](std::size_t colours) {
        return glyphs::EncodeGif(WithFewerColours(greys, colours)).value().size();
    };
    for (const std::size_t colours : {256U, 128U, 64U, 32U}) {
        const auto image = artwork::MakeSlotImage(greys, sizeWith(colours));
        ASSERT_TRUE(image) << image.failure().message;
        EXPECT_EQ(image.value().originalColours, 256U);
        EXPECT_EQ(image.value().colours, colours);
        EXPECT_EQ(image.value().gif.size(), sizeWith(colours));
    }
    EXPECT_FALSE(artwork::MakeSlotImage(greys, sizeWith(32) - 1));
}

TEST(ArtworkSlot, WhatFitsInNoWayIsRefusedWithItsSize) {
    const auto image = artwork::MakeSlotImage(Noise(256), 10000);
    ASSERT_FALSE(image);
    EXPECT_TRUE(image.failure().message.starts_with("its picture takes 1")) << image.failure().message;
    EXPECT_TRUE(image.failure().message.ends_with(" bytes even with 32 colors, more than the 10000 that "
                                                  "there is room for; simpler shading makes it smaller"))
        << image.failure().message;
}
