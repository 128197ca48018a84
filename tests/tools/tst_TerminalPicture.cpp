// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "charset/TerminalPicture.h"
#include "support/GameFiles.h"

#include <gtest/gtest.h>

using charset::TerminalPicture;

TEST(TerminalPicture, TwoPixelsMakeACharacter) {
    const ui::Picture picture = support::MakePicture(3, 2, [](int x, int y) {
        return ui::OpaquePixel(static_cast<unsigned>(x), static_cast<unsigned>(y), 9);
    });
    EXPECT_EQ(
        TerminalPicture(picture, 80), "\x1B[48;2;0;1;9m\x1B[38;2;0;0;9m\u2580"
                                      "\x1B[48;2;1;1;9m\x1B[38;2;1;0;9m\u2580"
                                      "\x1B[48;2;2;1;9m\x1B[38;2;2;0;9m\u2580\x1B[0m\n");
}

TEST(TerminalPicture, TransparentPixelsShowTheTerminalsBackground) {
    const ui::Picture picture = support::MakePicture(4, 2, [](int x, int y) {
        const bool isOpaque = y == 0 ? (x & 1) != 0 : (x & 2) != 0;
        return isOpaque ? 0xFF070809U : ui::Pixel(0);
    });
    EXPECT_EQ(TerminalPicture(picture, 80), " \x1B[38;2;7;8;9m\u2580\u2584\x1B[48;2;7;8;9m\u2580\x1B[0m\n");
}

TEST(TerminalPicture, ANarrowTerminalGetsBandsOfWholeGlyphs) {
    const ui::Picture picture(32, 2, 0);
    const std::string line8 = "        \x1B[0m\n";
    EXPECT_EQ(TerminalPicture(picture, 80), std::string(32, ' ') + "\x1B[0m\n");
    EXPECT_EQ(TerminalPicture(picture, 15), line8 + "\n" + line8 + "\n" + line8 + "\n" + line8);
    EXPECT_EQ(TerminalPicture(picture, 31), std::string(24, ' ') + "\x1B[0m\n\n" + line8);
    EXPECT_EQ(TerminalPicture(picture, 1), TerminalPicture(picture, 8));
}

TEST(TerminalPicture, AnOddRowAtTheEndHasNothingBelowIt) {
    EXPECT_EQ(TerminalPicture(ui::Picture(1, 1, 0xFF010203U), 80), "\x1B[38;2;1;2;3m\u2580\x1B[0m\n");
}
