// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/GifPicture.h"
#include "glyphs/mdlData.h"
#include "support/TempProgramDirectory.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

// Lines 1 to 6 of a source; glyphs follow from line 7.
const std::string Head = "name Test set\n"
                         "address https://example.org/test\n"
                         "transparent .\n"
                         "scale grey F0F0F0 C0C0C0 909090 606060\n"
                         "shading even rows 1 1 1 1 1 1 1 1\n"
                         "ink # even grey grey\n";

/// Eight rows of cells, all alike.
std::string cells(int count, const std::string& row) {
    std::string line;
    for (int index = 0; index < count; ++index) {
        line += (index == 0 ? "" : " ") + row;
    }
    std::string text;
    for (int y = 0; y < 8; ++y) {
        text += line + "\n";
    }
    return text;
}

/// The glyphs from `first` to 127, as far as they are needed for a whole set.
std::string restFrom(int first) {
    return "glyphs " + std::to_string(first) + "-127\n" + cells(128 - first, "........");
}

class MkCharSets : public ::testing::Test {
protected:
    support::ToolRun compile(const std::string& source) {
        return support::RunProgram(
            MKCHARSETS, {ui::PathText(folder.path()), ui::PathText(folder.put("set.txt", source))});
    }

    void expectRefusal(const std::string& source, const std::string& message) {
        const support::ToolRun run = compile(source);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.errors, ui::PathText(folder / "set.txt") + message + "\n");
        EXPECT_FALSE(folder.has("vtmtc.dat"));
        EXPECT_FALSE(folder.has("vtmgrid.dat"));
    }

    ui::Picture artwork(const std::string& source) {
        const support::ToolRun run = compile(source);
        EXPECT_EQ(run.exitCode, 0) << run.errors;
        const auto picture = glyphs::DecodeGif(folder.content("vtmgrid.dat"));
        EXPECT_TRUE(picture);
        return picture ? picture.value() : ui::Picture(128, 128);
    }

    support::TempFolder folder;
};

} // namespace

TEST_F(MkCharSets, WritesARecordAndASlotForEachSource) {
    const std::string rest = Head.substr(Head.find('\n') + 1) + restFrom(0);
    const ui::Path first = folder.put("first.txt", "name First  set \n" + rest);
    const ui::Path second = folder.put("second.txt", "# The second one.\n\nname    Second\n" + rest);
    const support::ToolRun run = support::RunProgram(
        MKCHARSETS, {ui::PathText(folder.path()), ui::PathText(first), ui::PathText(second)});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    const std::string address = "https://example.org/test" + std::string(76, ' ');
    EXPECT_EQ(
        folder.content("vtmtc.dat"), std::string("\0\0", 2) + "First  set" + std::string(40, ' ') + address +
                                         std::string("\0\0", 2) + std::string("\1\0", 2) + "Second" +
                                         std::string(44, ' ') + address + std::string("\1\0", 2));
    const std::string store = folder.content("vtmgrid.dat");
    ASSERT_EQ(store.size(), 20000U);
    EXPECT_EQ(store.substr(0, 6), "GIF89a");
    EXPECT_EQ(store.substr(0, 10000), store.substr(10000));
    EXPECT_EQ(store.substr(9000, 1000), std::string(1000, '\0'));
}

TEST_F(MkCharSets, DrawsTheSecondHalfFromTheFirstUnlessItIsDrawn) {
    const ui::Picture picture = artwork(
        "scale red FF0000\n" + Head + "ink r even grey red\nglyphs 0 1 129\n" +
        "rrrrrrrr #....... .......r\n" + "........ ........ ........\n........ ........ ........\n" +
        "........ ........ ........\n........ ........ ........\n........ ........ ........\n" +
        "........ ........ ........\n........ ........ ........\n" + restFrom(2));
    EXPECT_EQ(picture.pixel(0, 0), 0xFFC0C0C0U);
    EXPECT_EQ(picture.pixel(0, 64), 0xFFFF0000U);
    EXPECT_EQ(picture.pixel(8, 0), 0xFFC0C0C0U);
    EXPECT_EQ(picture.pixel(8, 64), 0U);
    EXPECT_EQ(picture.pixel(15, 64), 0xFFFF0000U);
    EXPECT_EQ(picture.pixel(0, 1), 0U);
}

TEST_F(MkCharSets, ShadesByRowAndEdge) {
    const std::string scale = "scale tones 000000 010101 020202 030303 040404 050505 060606 070707\n";
    const std::string shadings = "shading free rows 0 1 2 3 4 5 6 7 top -9 bottom 9\n"
                                 "shading side rows 3 3 3 3 3 3 3 3 left -1 right 2\n"
                                 "shading onward rows 3 3 3 3 3 3 3 3 left -1 right 2 top -1 joins\n";
    const std::string inks = "ink f free tones tones\nink s side tones tones\nink o onward tones tones\n";
    const ui::Picture picture = artwork(
        Head + scale + shadings + inks + "glyphs 'A'-'C'\n" +
        "f....... ........ oooooooo\nf....... ........ ........\nf....... .sss.... ........\n" +
        "f....... .s.s.... ........\n........ ........ ........\n........ ........ ........\n" +
        "........ ........ ........\n........ ........ ...o....\n" + "glyphs 0-64 68-127\n" +
        cells(125, "........"));
    const auto tone = [&](int code, int x, int y) {
        return picture.pixel(code % 16 * 8 + x, code / 16 * 8 + y) & 0xFFU;
    };
    EXPECT_EQ(tone(65, 0, 0), 0U);
    EXPECT_EQ(tone(65, 0, 1), 1U);
    EXPECT_EQ(tone(65, 0, 2), 2U);
    EXPECT_EQ(tone(65, 0, 3), 7U);
    EXPECT_EQ(tone(66, 1, 2), 2U);
    EXPECT_EQ(tone(66, 2, 2), 3U);
    EXPECT_EQ(tone(66, 3, 2), 5U);
    EXPECT_EQ(tone(66, 1, 3), 4U);
    EXPECT_EQ(tone(67, 0, 0), 3U);
    EXPECT_EQ(tone(67, 7, 0), 3U);
    EXPECT_EQ(tone(67, 3, 7), 3U);
}

TEST_F(MkCharSets, GrainsPartnersAlikeAndEveryTime) {
    const std::string source = Head + "shading rough rows 1 1 1 1 1 1 1 1 grain 20\nink g rough grey grey\n" +
                               "glyphs 0-127\n" + cells(128, "gggggggg");
    const ui::Picture picture = artwork(source);
    EXPECT_EQ(picture, artwork(source));
    std::array<int, 3> tones{};
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 128; ++x) {
            EXPECT_EQ(picture.pixel(x, y), picture.pixel(x, y + 64));
            tones[(0xF0U - (picture.pixel(x, y) & 0xFFU)) / 0x30U] += 1;
        }
    }
    EXPECT_NEAR(tones[0], 8192 / 5, 200);
    EXPECT_NEAR(tones[2], 8192 / 5, 200);
}

TEST_F(MkCharSets, SaysHowItIsCalled) {
    const support::ToolRun run = support::RunProgram(MKCHARSETS, {ui::PathText(folder.path())});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errors, "usage: mkcharsets OUTDIR SET.txt...\n");
}

TEST_F(MkCharSets, RefusesAMissingSource) {
    const support::ToolRun run =
        support::RunProgram(MKCHARSETS, {ui::PathText(folder.path()), ui::PathText(folder / "none.txt")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, ui::PathText(folder / "none.txt") + ": cannot be read\n");
}

TEST_F(MkCharSets, RefusesAFolderThatIsNotThere) {
    const ui::Path source = folder.put("set.txt", Head + restFrom(0));
    const support::ToolRun run =
        support::RunProgram(MKCHARSETS, {ui::PathText(folder / "none"), ui::PathText(source)});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, ui::PathText(folder / "none/vtmtc.dat") + ": cannot be written\n");
}

TEST_F(MkCharSets, RefusesAMissingGlyph) {
    expectRefusal(Head + restFrom(1), ":15: glyph 0 is missing");
    expectRefusal("", ":1: the set has no name");
    expectRefusal("name Test\n", ":1: glyph 0 is missing");
}

TEST_F(MkCharSets, RefusesAGlyphThatIsDrawnTwice) {
    expectRefusal(Head + restFrom(0) + "\n" + restFrom(127), ":17: glyph 127 is drawn twice");
    expectRefusal(Head + "glyphs 65 'A'\n" + cells(2, "........"), ":7: glyph 65 is drawn twice");
}

TEST_F(MkCharSets, RefusesACellOfTheWrongSize) {
    expectRefusal(Head + "glyphs 7\n" + cells(1, "......."), ":8: a row of glyph 7 is 7 pixels wide, not 8");
    expectRefusal(
        Head + "glyphs 7\n" + cells(1, "........."), ":8: a row of glyph 7 is 9 pixels wide, not 8");
    expectRefusal(Head + "glyphs 7-9\n" + cells(2, "........"), ":8: row 1 of the block has 2 cells, not 3");
    expectRefusal(Head + "glyphs 7\n........\n........\n", ":9: the block ends before its eighth row");
}

TEST_F(MkCharSets, RefusesAnUnknownColourLetter) {
    expectRefusal(Head + "glyphs 7\n........\n...x....\n", ":9: unknown colour letter \"x\" in glyph 7");
}

TEST_F(MkCharSets, RefusesWrongCodes) {
    for (const std::string code : {"256", "-1", "9-7", "A", "'A", "7-", "0x20"}) {
        expectRefusal(
            Head + "glyphs " + code + "\n",
            ":7: \"" + code + "\" is not a glyph code from 0 to 255 or a range of them");
    }
    expectRefusal(Head + "glyphs\n", ":7: \"glyphs\" takes the codes of the cells below it");
}

TEST_F(MkCharSets, TakesASetWithoutAnAddress) {
    std::string rest = Head;
    rest.erase(rest.find("address"), rest.find('\n', rest.find("address")) + 1 - rest.find("address"));
    EXPECT_EQ(compile(rest + restFrom(0)).exitCode, 0);
    EXPECT_EQ(folder.content("vtmtc.dat").substr(52, 100), std::string(100, ' '));
}

TEST_F(MkCharSets, TakesANameOfFiftyCharacters) {
    const std::string fifty(50, 'n');
    EXPECT_EQ(compile("name " + fifty + "\n" + Head.substr(Head.find('\n') + 1) + restFrom(0)).exitCode, 0);
    EXPECT_EQ(folder.content("vtmtc.dat").substr(2, 50), fifty);
}

TEST_F(MkCharSets, RefusesWrongTexts) {
    expectRefusal("name " + std::string(51, 'n') + "\n", ":1: the name has 51 characters, more than 50");
    expectRefusal(
        "address " + std::string(101, 'n') + "\n", ":1: the address has 101 characters, more than 100");
    expectRefusal("name\n", ":1: the name is empty");
    expectRefusal("name One\nname Two\n", ":2: the set has a second name");
    expectRefusal("name Gl\xC3\xBChend\n", ":1: the name holds a character that is not printable ASCII");
}

TEST_F(MkCharSets, RefusesAnUnknownKeyword) {
    expectRefusal("# Comment\nglyph 1\n", ":2: unknown keyword \"glyph\"");
}

TEST_F(MkCharSets, RefusesWrongScales) {
    expectRefusal("scale grey\n", ":1: \"scale\" takes a name and its colours from light to dark");
    expectRefusal("scale grey 00FF0\n", ":1: \"00FF0\" is not a colour of six hexadecimal digits");
    expectRefusal("scale grey 00FF0G\n", ":1: \"00FF0G\" is not a colour of six hexadecimal digits");
    expectRefusal("scale grey 000000\nscale grey 111111\n", ":2: the scale \"grey\" is given twice");
}

TEST_F(MkCharSets, RefusesWrongShadings) {
    expectRefusal("shading\n", ":1: \"shading\" takes a name and its rules");
    expectRefusal("shading even side 1\n", ":1: a shading has no rule \"side\"");
    expectRefusal("shading even rows 1 1 1\n", ":1: \"rows\" takes eight numbers");
    expectRefusal("shading even top\n", ":1: \"top\" takes a number");
    expectRefusal("shading even top x\n", ":1: \"x\" is not a number from -50 to 50");
    expectRefusal("shading even\nshading even\n", ":2: the shading \"even\" is given twice");
}

TEST_F(MkCharSets, RefusesWrongInks) {
    expectRefusal(Head + "ink x\n", ":7: \"ink\" takes a letter, a shading and the scales of the two halves");
    expectRefusal(Head + "ink xy even grey grey\n", ":7: \"xy\" is not a colour letter");
    expectRefusal(Head + "ink # even grey grey\n", ":7: the colour letter \"#\" is given twice");
    expectRefusal(Head + "ink . even grey grey\n", ":7: the colour letter \".\" is given twice");
    expectRefusal(Head + "ink x odd grey grey\n", ":7: there is no shading \"odd\"");
    expectRefusal(Head + "ink x even grey blue\n", ":7: there is no scale \"blue\"");
    expectRefusal(Head + "transparent ,\n", ":7: \"transparent\" takes one letter, once");
}

TEST_F(MkCharSets, RefusesMoreColoursThanAPictureHolds) {
    std::string source = Head + "shading ramp rows 0 1 2 3 4 5 6 7\n";
    const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFG";
    std::string codes;
    for (std::size_t ink = 0; ink < letters.size(); ++ink) {
        std::string tones;
        for (std::size_t tone = 0; tone < 8; ++tone) {
            const std::string colour = std::to_string(100000 + 8 * ink + tone);
            tones += " " + colour;
        }
        source += "scale s" + std::to_string(ink) + tones + "\n";
        source += std::string("ink ") + letters[ink] + " ramp s" + std::to_string(ink) + " s" +
                  std::to_string(ink) + "\n";
        source += "glyphs " + std::to_string(ink) + "\n" + cells(1, std::string(8, letters[ink]));
    }
    expectRefusal(
        source + restFrom(static_cast<int>(letters.size())), ":1: the picture has more than 256 colors");
}

TEST_F(MkCharSets, RefusesAPictureThatDoesNotFitIntoASlot) {
    std::string source = Head;
    const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789!$%&()*+";
    for (std::size_t ink = 0; ink < letters.size(); ++ink) {
        source += "scale s" + std::to_string(ink) + " " + std::to_string(100000 + ink) + "\n";
        source += std::string("ink ") + letters[ink] + " even s" + std::to_string(ink) + " s" +
                  std::to_string(ink) + "\n";
    }
    source += "glyphs 0-255\n";
    std::uint32_t random = 1;
    for (int y = 0; y < 8; ++y) {
        for (int code = 0; code < 256; ++code) {
            for (int x = 0; x < 8; ++x) {
                random = random * 1664525U + 1013904223U;
                source += letters[(random >> 16U) % letters.size()];
            }
            source += code == 255 ? "\n" : " ";
        }
    }
    const support::ToolRun run = compile(source);
    EXPECT_EQ(run.exitCode, 1);
    const std::string start = ui::PathText(folder / "set.txt") + ":1: the picture takes ";
    EXPECT_EQ(run.errors.substr(0, start.size()), start);
    EXPECT_TRUE(run.errors.ends_with(" bytes, more than the 10000 of a slot\n")) << run.errors;
    EXPECT_FALSE(folder.has("vtmgrid.dat"));
}
