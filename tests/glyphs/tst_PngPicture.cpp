// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/PngPicture.h"

#include <gtest/gtest.h>

TEST(PngPicture, APictureWithAlphaComesBackAsItWas) {
    ui::Picture picture(5, 3);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            picture.setPixel(
                x, y, static_cast<ui::Pixel>((x * 60) << 24U) | (0x00102030U + static_cast<ui::Pixel>(y)));
        }
    }
    const auto png = glyphs::EncodePng(picture);
    ASSERT_TRUE(png);
    EXPECT_EQ(png.value()[25], 6); // colour type: red, green, blue, alpha
    const auto decoded = glyphs::DecodePng(png.value());
    ASSERT_TRUE(decoded) << decoded.failure().message;
    EXPECT_EQ(decoded.value(), picture);
}

TEST(PngPicture, AnOpaquePictureHasNoAlphaChannel) {
    const ui::Picture picture(4, 4, 0xFF123456U);
    const auto png = glyphs::EncodePng(picture);
    ASSERT_TRUE(png);
    EXPECT_EQ(png.value()[25], 2); // colour type: red, green, blue
    const auto decoded = glyphs::DecodePng(png.value());
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded.value(), picture);
}

TEST(PngPicture, WhatIsCutOffOrTooLargeIsRefused) {
    const auto png = glyphs::EncodePng(ui::Picture(128, 128, 0xFF123456U));
    ASSERT_TRUE(png);
    for (const std::size_t size : {std::size_t(0), std::size_t(8), std::size_t(30), png.value().size() / 2}) {
        EXPECT_FALSE(glyphs::DecodePng(png.value().substr(0, size))) << size;
    }
    const auto large = glyphs::EncodePng(ui::Picture(1025, 1));
    ASSERT_TRUE(large);
    EXPECT_EQ(
        glyphs::DecodePng(large.value()).failure().message,
        "not a usable PNG picture: its size is out of range");
}
