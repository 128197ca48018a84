// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/Picture.h"

#include <gtest/gtest.h>

namespace {

using ui::Picture;
using ui::Rect;

constexpr ui::Pixel Red = 0xFFFF0000U;

int CountPixels(const Picture& picture, ui::Pixel value) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += picture.pixel(x, y) == value ? 1 : 0;
        }
    }
    return count;
}

TEST(OpaquePixel, PacksRedGreenAndBlue) {
    EXPECT_EQ(ui::OpaquePixel(0x12, 0x34, 0x56), 0xFF123456U);
    EXPECT_EQ(ui::OpaquePixel(0x112, 0x234, 0x356), 0xFF123456U);
}

TEST(Picture, StartsFilled) {
    const Picture picture(3, 2, Red);
    EXPECT_EQ(picture.width(), 3);
    EXPECT_EQ(picture.height(), 2);
    EXPECT_EQ(picture.bounds(), (Rect{0, 0, 3, 2}));
    EXPECT_EQ(CountPixels(picture, Red), 6);
    EXPECT_EQ(CountPixels(Picture(3, 2), ui::OpaqueBlack), 6);
}

TEST(Picture, IsEmptyWithoutArea) {
    EXPECT_TRUE(Picture().empty());
    EXPECT_TRUE(Picture(0, 5).empty());
    EXPECT_TRUE(Picture(-3, 5).empty());
    EXPECT_EQ(Picture(-3, 5).width(), 0);
}

TEST(Picture, FillsARectangle) {
    Picture picture(4, 4);
    picture.fill({1, 2, 2, 1}, Red);
    EXPECT_EQ(CountPixels(picture, Red), 2);
    EXPECT_EQ(picture.pixel(1, 2), Red);
    EXPECT_EQ(picture.pixel(2, 2), Red);
}

TEST(Picture, ClipsWhatItFills) {
    Picture picture(4, 4);
    picture.fill({-2, -2, 3, 3}, Red);
    EXPECT_EQ(CountPixels(picture, Red), 1);
    EXPECT_EQ(picture.pixel(0, 0), Red);
    picture.fill({3, 3, 100, 100}, Red);
    EXPECT_EQ(CountPixels(picture, Red), 2);
    picture.fill({4, 0, 2, 2}, Red);
    picture.fill({-5, 0, 2, 2}, Red);
    picture.fill({0, 0, -1, 4}, Red);
    EXPECT_EQ(CountPixels(picture, Red), 2);
}

TEST(Rect, UnitesWithAnother) {
    EXPECT_EQ((Rect{0, 0, 2, 2}.united({4, 5, 1, 1})), (Rect{0, 0, 5, 6}));
    EXPECT_EQ((Rect{4, 5, 1, 1}.united({0, 0, 2, 2})), (Rect{0, 0, 5, 6}));
    EXPECT_EQ((Rect{0, 0, 9, 9}.united({2, 2, 1, 1})), (Rect{0, 0, 9, 9}));
}

TEST(Rect, UnitesWithAnEmptyOneAsItself) {
    EXPECT_EQ((Rect{}.united({4, 5, 1, 1})), (Rect{4, 5, 1, 1}));
    EXPECT_EQ((Rect{4, 5, 1, 1}.united({})), (Rect{4, 5, 1, 1}));
    EXPECT_EQ((Rect{4, 5, 1, 1}.united({0, 0, 0, 7})), (Rect{4, 5, 1, 1}));
}

} // namespace
