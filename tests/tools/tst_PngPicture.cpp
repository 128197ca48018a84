// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/PngPicture.h"
#include "tools/GameFiles.h"

#include <gtest/gtest.h>

TEST(PngPicture, APictureWithAlphaComesBackAsItWas) {
    const ui::Picture picture = support::MakePicture(5, 3, [](int x, int y) {
        return static_cast<ui::Pixel>((x * 60) << 24U) | (0x00102030U + static_cast<ui::Pixel>(y));
    });
    const auto png = cli::EncodePng(picture);
    ASSERT_TRUE(png);
    EXPECT_EQ(png.value()[25], 6); // colour type: red, green, blue, alpha
    const auto decoded = cli::DecodePng(png.value());
    ASSERT_TRUE(decoded) << decoded.failure().message;
    EXPECT_EQ(decoded.value(), picture);
}

TEST(PngPicture, AnOpaquePictureHasNoAlphaChannel) {
    const ui::Picture picture(4, 4, 0xFF123456U);
    const auto png = cli::EncodePng(picture);
    ASSERT_TRUE(png);
    EXPECT_EQ(png.value()[25], 2); // colour type: red, green, blue
    const auto decoded = cli::DecodePng(png.value());
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded.value(), picture);
}

TEST(PngPicture, WhatIsCutOffOrTooLargeIsRefused) {
    const auto png = cli::EncodePng(support::MakeArtwork(9));
    ASSERT_TRUE(png);
    for (const std::size_t size : {std::size_t(0), std::size_t(8), std::size_t(30), png.value().size() / 2}) {
        EXPECT_FALSE(cli::DecodePng(png.value().substr(0, size))) << size;
    }
    const auto large = cli::EncodePng(ui::Picture(1025, 1));
    ASSERT_TRUE(large);
    EXPECT_EQ(
        cli::DecodePng(large.value()).failure().message,
        "not a usable PNG picture: its size is out of range");
}
