// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/PlacedLines.h"

#include <gtest/gtest.h>

#include <string>

namespace animation {

TEST(PlacedLines, KeepALineForEachScreenshot) {
    PlacedLines lines;
    EXPECT_EQ(LineOn(lines, "a.bmp"), std::nullopt);
    KeepLine(lines, "a.bmp", {});
    EXPECT_TRUE(lines.empty());
    KeepLine(lines, "a.bmp", BoardLine{1, 2});
    KeepLine(lines, "b c.bmp", BoardLine{-3, 4});
    EXPECT_EQ(LineOn(lines, "a.bmp"), (BoardLine{1, 2}));
    EXPECT_EQ(LineOn(lines, "b c.bmp"), (BoardLine{-3, 4}));
    KeepLine(lines, "a.bmp", BoardLine{5, 6});
    EXPECT_EQ(LineOn(lines, "a.bmp"), (BoardLine{5, 6}));
    EXPECT_EQ(lines.size(), 2U);
    KeepLine(lines, "b c.bmp", {});
    EXPECT_EQ(LineOn(lines, "b c.bmp"), std::nullopt);
}

TEST(PlacedLines, ForgetTheOldest) {
    PlacedLines lines;
    for (int i = 0; i <= static_cast<int>(MaxPlacedLines); ++i) {
        KeepLine(lines, std::to_string(i), BoardLine{i, i});
    }
    EXPECT_EQ(lines.size(), MaxPlacedLines);
    EXPECT_EQ(LineOn(lines, "0"), std::nullopt);
    EXPECT_EQ(LineOn(lines, "1"), (BoardLine{1, 1}));
}

TEST(PlacedLines, AreReadAsTheyWereWritten) {
    PlacedLines lines;
    EXPECT_EQ(PlacedLinesText(lines), "");
    KeepLine(lines, "/home/a/my shot.bmp", BoardLine{240, -176});
    KeepLine(lines, "b\xFF", BoardLine{0, 7});
    EXPECT_EQ(PlacedLinesText(lines), "0 7 b\xFF\n240 -176 /home/a/my shot.bmp");
    EXPECT_EQ(PlacedLinesOf(PlacedLinesText(lines)), lines);
}

TEST(PlacedLines, LeaveOutWhatCannotBeRead) {
    EXPECT_EQ(
        PlacedLinesOf("1 2\nx 2 a\n1 2 a\n99999999999 1 b\n1 2000000 c\n\n3 4 d"),
        (PlacedLines{{"a", {1, 2}}, {"d", {3, 4}}}));
}

} // namespace animation
