// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>

namespace {

constexpr std::size_t Width = 640;
constexpr std::size_t Height = 480;
constexpr std::size_t HeaderSize = 54;

// Where the board leaves room for a name, in pixels from the top left.
constexpr std::size_t StripX = 240;
constexpr std::size_t StripY = 176;
constexpr std::size_t StripWidth = 240;
constexpr std::size_t StripHeight = 16;

const std::string Classic = CHARSET;
const std::string Panel = "panel 0 0 640 480\n";
const std::string Strip = "strip 160 176 3 night sea\n";

std::uint32_t numberAt(const std::string& bytes, std::size_t at, int width) {
    std::uint32_t value = 0;
    for (int byte = width - 1; byte >= 0; --byte) {
        value = value << 8U | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(byte)]);
    }
    return value;
}

// The pixel as 0xRRGGBB.
std::uint32_t pixelAt(const std::string& bitmap, std::size_t x, std::size_t y) {
    return numberAt(bitmap, HeaderSize + ((Height - 1 - y) * Width + x) * 3, 3);
}

std::set<std::uint32_t>
coloursIn(const std::string& bitmap, std::size_t x, std::size_t y, std::size_t width, std::size_t height) {
    std::set<std::uint32_t> colours;
    for (std::size_t line = y; line < y + height; ++line) {
        for (std::size_t column = x; column < x + width; ++column) {
            colours.insert(pixelAt(bitmap, column, line));
        }
    }
    return colours;
}

class Screenshot : public ::testing::Test {
protected:
    void SetUp() override {
        bitmap = support::FileContent(PROGRAM_DIR "/quake00.bmp");
        ASSERT_EQ(bitmap.size(), HeaderSize + Width * Height * 3);
    }

    std::string bitmap;
};

class MkScreenshot : public ::testing::Test {
protected:
    support::ToolRun draw(const std::string& source) {
        return support::RunProgram(
            MKSCREENSHOT,
            {ui::PathText(folder.put("scene.txt", source)), Classic, ui::PathText(folder / "out.bmp")});
    }

    void expectRefusal(const std::string& source, const std::string& message) {
        const support::ToolRun run = draw(source);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.errors, ui::PathText(folder / "scene.txt") + message + "\n");
        EXPECT_FALSE(folder.has("out.bmp"));
    }

    support::TempFolder folder;
};

} // namespace

TEST_F(Screenshot, IsABitmapOf640By480In24Bits) {
    EXPECT_EQ(bitmap.substr(0, 2), "BM");
    EXPECT_EQ(numberAt(bitmap, 2, 4), bitmap.size());
    EXPECT_EQ(numberAt(bitmap, 10, 4), HeaderSize);
    EXPECT_EQ(numberAt(bitmap, 14, 4), 40U);
    EXPECT_EQ(numberAt(bitmap, 18, 4), Width);
    EXPECT_EQ(numberAt(bitmap, 22, 4), Height);
    EXPECT_EQ(numberAt(bitmap, 26, 2), 1U);
    EXPECT_EQ(numberAt(bitmap, 28, 2), 24U);
    EXPECT_EQ(numberAt(bitmap, 30, 4), 0U) << "not compressed";
    EXPECT_EQ(numberAt(bitmap, 34, 4), Width * Height * 3);
}

TEST_F(Screenshot, LeavesTheStripEmpty) {
    EXPECT_EQ(coloursIn(bitmap, StripX, StripY, StripWidth, StripHeight), std::set<std::uint32_t>{0x000000});
}

TEST_F(Screenshot, FramesTheStripOnAllSides) {
    for (const std::size_t y : {StripY - 1, StripY + StripHeight}) {
        EXPECT_EQ(coloursIn(bitmap, StripX, y, StripWidth, 1).count(0), 0U) << "line " << y;
    }
    for (const std::size_t x : {StripX - 1, StripX + StripWidth}) {
        EXPECT_EQ(coloursIn(bitmap, x, StripY, 1, StripHeight).count(0), 0U) << "column " << x;
    }
}

TEST_F(Screenshot, ShowsFragsBesideTheStrip) {
    EXPECT_GT(coloursIn(bitmap, StripX - 80, StripY, 64, StripHeight).size(), 4U);
}

TEST_F(Screenshot, NamesTheOtherPlayers) {
    for (std::size_t row = 0; row < 9; ++row) {
        const std::size_t y = 144 + row * 32;
        if (y != StripY) {
            EXPECT_GT(coloursIn(bitmap, StripX, y, StripWidth, StripHeight).size(), 4U) << "line " << y;
        }
    }
}

TEST_F(Screenshot, KeepsToThePaletteOfItsTime) {
    const std::size_t colours = coloursIn(bitmap, 0, 0, Width, Height).size();
    EXPECT_GT(colours, 64U);
    EXPECT_LE(colours, 256U);
}

TEST_F(Screenshot, IsTheSameEveryTime) {
    const support::TempFolder folder;
    const std::string again = ui::PathText(folder / "again.bmp");
    const support::ToolRun run = support::RunProgram(MKSCREENSHOT, {SCENE, Classic, again});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_TRUE(support::FileContent(again) == bitmap);
}

TEST_F(MkScreenshot, RefusesABoardWithoutPanelOrStrip) {
    expectRefusal("", ": a board has one panel and one strip");
    expectRefusal(Panel, ": a board has one panel and one strip");
    expectRefusal(Strip, ": a board has one panel and one strip");
    expectRefusal(Panel + Strip + Strip, ": a board has one panel and one strip");
    expectRefusal(Panel + Panel + Strip, ":2: a second panel");
}

TEST_F(MkScreenshot, RefusesUnknownWords) {
    expectRefusal("picture 0 0\n", ":1: there is no element \"picture\"");
    expectRefusal(Panel + "\nrow 0 0 1 night pink Somebody\n", ":3: there is no dye \"pink\"");
    expectRefusal(Panel + "strip 0 0 1 night sea name\n", ":2: \"name\" is too much");
}

TEST_F(MkScreenshot, RefusesPlacesOffTheRaster) {
    expectRefusal("text 12 0 A\n", ":1: X 12 is not a multiple of 8");
    expectRefusal("text 8 4 A\n", ":1: Y 4 is not a multiple of 8");
    expectRefusal("text 800 0 A\n", ":1: \"800\" is not a number from 0 to 640");
    expectRefusal("text 632 0 A\n", ":1: it does not fit into the picture");
    expectRefusal("title 320 0 RANKINGS\n", ":1: it does not fit into the picture");
    expectRefusal("panel 8 8 640 400\n", ":1: it does not fit into the picture");
}

TEST_F(MkScreenshot, RefusesIncompleteLines) {
    expectRefusal("row 0 0\n", ":1: FRAGS is missing");
    expectRefusal("text 0\n", ":1: Y is missing");
}

TEST_F(MkScreenshot, RefusesImproperTexts) {
    expectRefusal("text 0 0\n", ":1: a text has 1 to 40 glyphs, not 0");
    expectRefusal("row 0 0 1 night sea sixteen glyphs!!\n", ":1: a text has 1 to 15 glyphs, not 16");
    expectRefusal("text 0 0 a\\q\n", ":1: a text holds ASCII characters, \\xHH and \\c");
    expectRefusal("text 0 0 a\xE9\n", ":1: a text holds ASCII characters, \\xHH and \\c");
    expectRefusal("text 0 0 \\x1\n", ":1: \\x needs two hexadecimal digits");
    expectRefusal("text 0 0 \\x1g\n", ":1: \\x needs two hexadecimal digits");
}
