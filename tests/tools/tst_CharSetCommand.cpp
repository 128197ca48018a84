// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/ToolRun.h"
#include "tools/CharSetCommandRun.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>

namespace {

using artwork::CharSetFiles;
using support::CharSetCommand;
using support::MakeSets;
using support::ShownSet;
using support::SmallArtwork;

} // namespace

TEST_F(CharSetCommand, ListShowsNumbersSlotsNamesAndAddresses) {
    ASSERT_EQ(run({"add", "F\xC3\xBCnf", picture(), "--web", "https://example.org/five"}), 0);
    ASSERT_EQ(run({"remove", "2"}), 0);
    ASSERT_EQ(run({"list"}), 0);
    EXPECT_EQ(
        output.str(), ui::PathText(directory.files / "vtmtc.dat") +
                          ":\n"
                          "  No.   Slot  Name  Address\n"
                          "    1      0  A\n"
                          "    2      2  C\n"
                          "    3      3  F\xC3\xBCnf  https://example.org/five\n");
    EXPECT_EQ(errors.str(), "");
}

TEST_F(CharSetCommand, ListLetsNothingReachTheTerminalButText) {
    (void)directory.files.put(
        "vtmtc.dat",
        glyphs::EncodeCharSetRecord(
            {.listIndex = 0, .name = "\x1B[31mred\x9B", .webAddress = "\x07", .artworkSlot = 0}));
    ASSERT_EQ(run({"list"}), 0);
    EXPECT_NE(output.str().find("    1      0  ?[31mred?  ?\n"), std::string::npos) << output.str();
}

TEST_F(CharSetCommand, AddAppendsASetThatTheProgramShows) {
    EXPECT_EQ(run({"add", "My game", picture(), "--web=https://example.org/mine"}), 0);
    EXPECT_EQ(output.str(), "\"My game\" is character set 4 now.\n");
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(
        ShownSets(directory), (std::vector<ShownSet>{
                                  {"A", SmallArtwork(0)},
                                  {"B", SmallArtwork(1)},
                                  {"C", SmallArtwork(2)},
                                  {"My game", SmallArtwork(9)}}));
    const auto record = glyphs::ReadCharSetRecord(disk, directory, 4);
    ASSERT_TRUE(record);
    EXPECT_EQ(glyphs::WebAddressText(record.value()), "https://example.org/mine");
}

TEST_F(CharSetCommand, RemoveTakesBackWhatAddDid) {
    const CharSetFiles before = now();
    ASSERT_EQ(run({"add", "My game", picture()}), 0);
    ASSERT_NE(now(), before);
    EXPECT_EQ(run({"remove", "my GAME"}), 0);
    EXPECT_EQ(output.str(), "\"My game\" was removed.\n");
    EXPECT_EQ(now(), before);
    ASSERT_EQ(run({"add", "My game", picture()}), 0);
    EXPECT_EQ(run({"remove", "4"}), 0);
    EXPECT_EQ(now(), before);
}

TEST_F(CharSetCommand, RemoveSaysWhenSetsMoveUp) {
    EXPECT_EQ(run({"remove", "B"}), 0);
    EXPECT_EQ(
        output.str(),
        "\"B\" was removed.\n"
        "The sets after it have moved up: if one of them was chosen in the options, choose it again.\n");
    EXPECT_EQ(ShownSets(directory), (std::vector<ShownSet>{{"A", SmallArtwork(0)}, {"C", SmallArtwork(2)}}));
}

TEST_F(CharSetCommand, RemoveKeepsTheLastSet) {
    ASSERT_EQ(run({"remove", "3"}), 0);
    ASSERT_EQ(run({"remove", "2"}), 0);
    expectRefusal({"remove", "1"}, "\"A\" was not removed: it is the only one, and the program needs one.");
}

TEST_F(CharSetCommand, SetsThatAreNotThereAreNamed) {
    const std::string there = "; \"vtm-charset list\" shows the 3 there are.";
    expectRefusal({"remove", "D"}, "There is no character set \"D\"" + there);
    expectRefusal({"remove", "4"}, "There is no character set \"4\"" + there);
    expectRefusal({"remove", "0"}, "There is no character set \"0\"" + there);
    expectRefusal({"preview", "99999999999999"}, "There is no character set \"99999999999999\"" + there);
    expectRefusal({"export", "x", "x.png"}, "There is no character set \"x\"" + there);
}

TEST_F(CharSetCommand, AddRefusesNamesThatWillNotDo) {
    const std::string nothing = "Nothing was added: ";
    const std::string file = picture();
    expectRefusal({"add", "a", file}, nothing + "there is a character set \"A\" already.");
    expectRefusal({"add", "", file}, nothing + "the name is empty, or begins or ends with a blank.");
    expectRefusal({"add", " x", file}, nothing + "the name is empty, or begins or ends with a blank.");
    expectRefusal({"add", "x ", file}, nothing + "the name is empty, or begins or ends with a blank.");
    expectRefusal(
        {"add", "12", file}, nothing + "the name is a number, which stands for a set by its place.");
    expectRefusal({"add", std::string(51, 'x'), file}, nothing + "the name has 51 characters, more than 50.");
    expectRefusal({"add", "a\x1B", file}, nothing + "the name holds a control character.");
    expectRefusal({"add", "a\xC2\x85", file}, nothing + "the name holds a control character.");
    expectRefusal(
        {"add", "a\xE2\x82\xAC", file}, nothing + "the name holds a character that is not Latin-1.");
    expectRefusal({"add", "a\xFF", file}, nothing + "the name holds a character that is not Latin-1.");
    expectRefusal({"add", "a\xC3", file}, nothing + "the name is not UTF-8 text.");
    // Fifty characters of two bytes each fit.
    std::string umlauts;
    for (int count = 0; count < 50; ++count) {
        umlauts += "\xC3\xA4";
    }
    EXPECT_EQ(run({"add", umlauts, file}), 0);
    EXPECT_EQ(ShownSets(directory).back().first, std::string(50, '\xE4'));
}

TEST_F(CharSetCommand, AddRefusesAddressesThatABrowserMayNotBeGiven) {
    const std::string message =
        "Nothing was added: the web address must start with http:// or https:// and hold no blanks.";
    for (const char* address :
         {"example.org", "file:///etc/passwd", "https://a b", "https://", "javascript:1"}) {
        expectRefusal({"add", "New", picture(), "--web", address}, message);
    }
    expectRefusal(
        {"add", "New", picture(), "--web", "https://" + std::string(93, 'x')},
        "Nothing was added: the web address has 101 characters, more than 100.");
}

TEST_F(CharSetCommand, MessagesHoldNothingThatATerminalActsOn) {
    const std::string file = ui::PathText(folder / actedOn);
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--directory", file, "list"},
          {"add", "New", file},
          {"add", actedOn, picture()},
          {"remove", actedOn},
          {"preview", actedOn},
          {"export", "1", file},
          {"--" + actedOn}}) {
        expectHarmlessRefusal(arguments);
    }
}

TEST_F(CharSetCommand, AddNamesTheFileThatCannotBeUsed) {
    expectRefusal(
        {"add", "New", ui::PathText(folder / "missing.png")},
        "\"" + ui::PathText(folder / "missing.png") + "\" cannot be used: No such file or directory.");
    const std::string text = ui::PathText(folder.put("text.txt", "hello"));
    expectRefusal(
        {"add", "New", text},
        "\"" + text +
            "\" cannot be used: it is neither a picture (PNG, GIF, PCX, BMP, TGA) nor a "
            "game's character set (conchars, gfx.wad, pak0.pak).");
    expectRefusal(
        {"add", "New", picture(), "--palette", text},
        "\"" + text + "\" cannot be used: it is neither a palette of 768 bytes nor a game's pak0.pak.");
}

TEST_F(CharSetCommand, AddTakesTheGamesFiles) {
    const std::string lump =
        support::MakeLump(128, [](int x, int y) { return static_cast<unsigned>(x / 8 + y / 64); });
    const ui::Picture expected = support::MakePicture(128, 128, [](int x, int y) {
        const auto index = static_cast<unsigned>(x / 8 + y / 64);
        return index == 0 ? ui::Pixel(0) : support::PaletteColour(index);
    });
    const std::string palette = ui::PathText(folder.put("palette.lmp", support::MakePalette()));
    const std::string loose = ui::PathText(folder.put("conchars.lmp", lump));
    const std::string wad = ui::PathText(folder.put("gfx.wad", support::MakeWad({{"CONCHARS", lump}})));
    const std::string pack = ui::PathText(folder.put(
        "pak0.pak", support::MakePack(
                        {{"gfx.wad", support::MakeWad({{"CONCHARS", lump}})},
                         {"gfx/palette.lmp", support::MakePalette()}})));
    EXPECT_EQ(run({"add", "Loose", loose, "--palette", palette}), 0) << errors.str();
    EXPECT_EQ(run({"--palette", pack, "add", "Wad", wad}), 0) << errors.str();
    EXPECT_EQ(run({"add", "Pack", pack}), 0) << errors.str();
    const auto sets = ShownSets(directory);
    ASSERT_EQ(sets.size(), 6U);
    for (std::size_t set = 3; set < 6; ++set) {
        EXPECT_EQ(sets[set].second, expected) << sets[set].first;
    }
}

TEST_F(CharSetCommand, AddSaysWhatItChanged) {
    const std::string file = ui::PathText(folder.put(
        "many.png", glyphs::EncodePng(support::MakePicture(256, 256, [](int x, int y) {
                        return ui::OpaquePixel(static_cast<unsigned>(x), static_cast<unsigned>(y / 4), 0);
                    })).value()));
    ASSERT_EQ(run({"add", "Many", file}), 0) << errors.str();
    EXPECT_TRUE(output.str().starts_with(
        "The picture was reduced from 256 to 128 pixels a side; details between were dropped.\n"
        "The picture has no transparent pixels: its glyphs keep its own background.\n"
        "Its 8192 colors were reduced to "))
        << output.str();
    EXPECT_TRUE(output.str().ends_with(", so that it fits.\n\"Many\" is character set 4 now.\n"))
        << output.str();
}

TEST_F(CharSetCommand, ExportWritesAPictureThatCanBeAddedAgain) {
    const std::string file = ui::PathText(folder / "out.png");
    ASSERT_EQ(run({"export", "2", file}), 0) << errors.str();
    EXPECT_EQ(output.str(), "");
    const auto picture = glyphs::DecodePng(folder.content("out.png"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.value(), SmallArtwork(1));
    ASSERT_EQ(run({"add", "Again", file}), 0);
    EXPECT_EQ(ShownSets(directory).back(), ShownSet("Again", SmallArtwork(1)));
}

TEST_F(CharSetCommand, ExportWritesNothingButPngFiles) {
    const std::string store = ui::PathText(directory.files / "vtmgrid.dat");
    expectRefusal({"export", "2", store}, "\"" + store + "\" was not written: its name must end in .png.");
    const std::string nowhere = ui::PathText(folder / "no" / "out.png");
    expectRefusal({"export", "2", nowhere}, "Could not open \"" + nowhere + "\": No such file or directory.");
}

TEST_F(CharSetCommand, PreviewDrawsInTheTerminal) {
    ASSERT_EQ(run({"preview", "1"}), 0);
    const std::string drawn = output.str();
    EXPECT_EQ(std::count(drawn.begin(), drawn.end(), '\n'), 64);
    // Two rows of the same colour, then a column of transparent pixels after seven others.
    EXPECT_TRUE(drawn.starts_with("\x1B[48;2;0;9;0m\x1B[38;2;0;9;0m"
                                  "\u2580\u2580\u2580\u2580\u2580\u2580\u2580\x1B[49m \x1B[48;2;1;9;0m"))
        << drawn.substr(0, 100);
}

TEST_F(CharSetCommand, AFileThatCannotBeWrittenChangesNothing) {
    const std::string file = picture();
    const CharSetFiles before = now();
    using Step = support::FailingFiles::Step;
    for (const auto step :
         {Step::Lock, Step::Look, Step::Read, Step::Write, Step::Flush, Step::Close, Step::Folder}) {
        files.failOnce(step);
        EXPECT_EQ(run({"add", "New", file}), 1);
        EXPECT_NE(errors.str().find("injected failure"), std::string::npos) << errors.str();
        EXPECT_EQ(output.str(), "");
        EXPECT_EQ(now(), before);
    }
    EXPECT_EQ(run({"add", "New", file}), 0);
}

TEST_F(CharSetCommand, WithoutRightsTheStandInFolderIsWritten) {
    directory.isWritable = false;
    const CharSetFiles before = now();
    ASSERT_EQ(run({"add", "Mine", picture()}), 0) << errors.str();
    EXPECT_EQ(now(), before);
    EXPECT_EQ(ShownSets(directory).size(), 4U);
    EXPECT_TRUE(directory.standIn.has("vtmtc.dat"));
    ASSERT_EQ(run({"remove", "Mine"}), 0) << errors.str();
    EXPECT_EQ(ShownSets(directory).size(), 3U);
    EXPECT_FALSE(directory.standIn.has("vtmtc.dat"));
    EXPECT_FALSE(directory.standIn.has("vtmgrid.dat"));
}

TEST_F(CharSetCommand, AnEmptyListInTheStandInFolderIsNone) {
    directory.isWritable = false;
    (void)directory.standIn.put("vtmtc.dat", "");
    ASSERT_EQ(run({"add", "Mine", picture()}), 0) << errors.str();
    EXPECT_EQ(ShownSets(directory).size(), 4U);
    (void)directory.standIn.put("vtmtc.dat", "");
    ASSERT_EQ(run({"list"}), 0) << errors.str();
    EXPECT_NE(output.str().find("\n    3 "), std::string::npos) << output.str();
}

TEST_F(CharSetCommand, AnotherDirectoryCanBeNamed) {
    const support::TempFolder other;
    (void)other.put("vtmtc.dat", MakeSets(1).list);
    (void)other.put("vtmgrid.dat", MakeSets(1).store);
    const CharSetFiles before = now();
    ASSERT_EQ(run({"--directory", ui::PathText(other.path()), "add", "New", picture()}), 0) << errors.str();
    EXPECT_EQ(output.str(), "\"New\" is character set 2 now.\n");
    EXPECT_EQ(other.content("vtmtc.dat").size(), 308U);
    EXPECT_EQ(other.content("vtmgrid.dat").size(), 20000U);
    EXPECT_EQ(now(), before);
    const support::TempFolder empty;
    EXPECT_EQ(run({"--directory", ui::PathText(empty.path()), "list"}), 1);
    EXPECT_EQ(
        errors.str(), "vtm-charset: Could not open \"" + ui::PathText(empty / "vtmtc.dat") +
                          "\": No such file or directory.\n");
    EXPECT_FALSE(empty.has("vtmtc.dat"));
}

TEST_F(CharSetCommand, HelpGoesToTheOutput) {
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_TRUE(output.str().starts_with("Usage: vtm-charset [--directory DIR] COMMAND\n")) << output.str();
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(run({"add", "-h"}), 0);
}

TEST_F(CharSetCommand, WhatIsNotUnderstoodIsWrongUsage) {
    expectWrongUsage({});
    expectWrongUsage({"lsit"});
    expectWrongUsage({"list", "1"});
    expectWrongUsage({"add", "name"});
    expectWrongUsage({"add", "name", "file", "more"});
    expectWrongUsage({"remove"});
    expectWrongUsage({"export", "1"});
    expectWrongUsage({"preview", "1", "--web", "https://example.org"});
    expectWrongUsage({"--unknown", "list"});
    EXPECT_EQ(errors.str(), "vtm-charset: unknown option \"--unknown\"; \"vtm-charset --help\" explains.\n");
    expectWrongUsage({"list", "--directory"});
    EXPECT_EQ(
        errors.str(),
        "vtm-charset: the option \"--directory\" needs a value; \"vtm-charset --help\" explains.\n");
    expectWrongUsage({"--help=yes"});
    expectWrongUsage({"--web=a", "--web=b", "list"});
}

TEST(CharSetProgram, ExitsWithTheCodeOfTheCommand) {
    const support::TempFolder folder;
    (void)folder.put("vtmtc.dat", MakeSets(1).list);
    (void)folder.put("vtmgrid.dat", MakeSets(1).store);
    const std::string directory = "--directory=" + ui::PathText(folder.path());
    const std::string file = ui::PathText(folder / "out.png");
    EXPECT_EQ(support::RunProgram(VTM_CHARSET, {directory, "export", "1", file}).exitCode, 0);
    EXPECT_TRUE(folder.has("out.png"));
    const support::ToolRun refused = support::RunProgram(VTM_CHARSET, {directory, "remove", "1"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(
        refused.errors,
        "vtm-charset: \"A\" was not removed: it is the only one, and the program needs one.\n");
    EXPECT_EQ(support::RunProgram(VTM_CHARSET, {directory, "export"}).exitCode, 2);
}

TEST(CharSetProgram, TakesAndShowsEveryCharacter) {
    const support::TempFolder folder;
    const ui::Path name = ui::PathFromText("\xC3\xBC \xE6\xBC\xA2 \xF0\x9F\x98\x80");
    const std::string list = ui::PathText(folder.put(name / "vtmtc.dat", MakeSets(1).list));
    (void)folder.put(name / "vtmgrid.dat", MakeSets(1).store);
    // A command line takes a backslash before a quote for the quote's.
    const std::string directory = ui::PathText(folder / name / "");
    const support::ToolRun listed = support::RunProgram(VTM_CHARSET, {"--directory", directory, "list"});
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_EQ(listed.output, list + ":\n  No.   Slot  Name  Address\n    1      0  A\n");
    EXPECT_EQ(listed.errors, "");
    const support::ToolRun refused =
        support::RunProgram(VTM_CHARSET, {"--directory", directory, "remove", ui::PathText(name)});
    EXPECT_EQ(refused.output, "");
    EXPECT_EQ(
        refused.errors, "vtm-charset: There is no character set \"" + ui::PathText(name) +
                            "\"; \"vtm-charset list\" shows the 1 there are.\n");
}

TEST_F(CharSetCommand, ExportsToNoOtherName) {
    const support::TempFolder place;
    place.put("y.png.new", "mine");
    std::filesystem::create_hard_link(place.put("precious", "mine too"), place / "y.png");
    EXPECT_EQ(run({"export", "1", ui::PathText(place / "y.png")}), 0);
    EXPECT_EQ(place.content("y.png.new"), "mine");
    EXPECT_EQ(place.content("precious"), "mine too");
    EXPECT_TRUE(place.content("y.png").starts_with("\x89PNG"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(place.path()), {}), 3);
}

TEST(CharSetProgram, FindsTheSetsThatLieBesideIt) {
    const support::TempFolder folder;
    const std::string file = ui::PathText(folder / "out.png");
    const support::ToolRun run = support::RunProgram(VTM_CHARSET, {"export", "1", file});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
}
