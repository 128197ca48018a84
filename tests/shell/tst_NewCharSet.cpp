// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/PngPicture.h"
#include "shell/NewCharSet.h"
#include "support/CharSetWorld.h"
#include "support/FailingFiles.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using shell::NewCharSet;
using support::MakeSets;
using support::SmallArtwork;

class NewSets : public ::testing::Test {
protected:
    NewSets() {
        (void)directory.files.put("vtmtc.dat", MakeSets(3).list);
        (void)directory.files.put("vtmgrid.dat", MakeSets(3).store);
    }

    /// A picture file in a folder of that path.
    [[nodiscard]] ui::Path picture(const ui::Path& name = "set.png") const {
        std::filesystem::create_directories((folder / name).parent_path());
        return folder.put(name, glyphs::EncodePng(SmallArtwork(9)).value());
    }

    [[nodiscard]] NewCharSet read(const ui::Path& file) {
        return NewCharSet::In(file, files, directory).value();
    }

    [[nodiscard]] std::string suggested(const ui::Path& name) { return read(picture(name)).suggestedName(); }

    [[nodiscard]] std::string refusal(const ui::Path& file) {
        const auto set = NewCharSet::In(file, files, directory);
        return set ? "" : set.failure().message;
    }

    support::TempProgramDirectory directory;
    support::TempFolder folder;
    ui::DiskFiles disk;
    support::FailingFiles files{disk};
};

std::string Lump() {
    return support::MakeLump(128, [](int x, int y) { return static_cast<unsigned>(x / 8 + y / 64); });
}

} // namespace

TEST_F(NewSets, APictureIsASet) {
    const NewCharSet set = read(picture());
    EXPECT_EQ(set.file(), folder / "set.png");
    EXPECT_FALSE(set.takesPalette());
    ASSERT_TRUE(set.picture());
    EXPECT_EQ(*set.picture(), SmallArtwork(9));
    EXPECT_EQ(set.facts(), "128 x 128 pixels, 32 colors");
    EXPECT_TRUE(set.notes().empty());
    EXPECT_EQ(set.objection("New", ""), "");
}

TEST_F(NewSets, ThePictureIsShownAsItWillBeStored) {
    const ui::Path file = folder.put(
        "many.png", glyphs::EncodePng(support::MakePicture(256, 256, [](int x, int y) {
                        return ui::OpaquePixel(static_cast<unsigned>(x), static_cast<unsigned>(y / 4), 0);
                    })).value());
    const NewCharSet set = read(file);
    EXPECT_EQ(set.facts(), "256 x 256 pixels, 8192 colors");
    ASSERT_EQ(set.notes().size(), 3U);
    EXPECT_EQ(
        set.notes()[0],
        "The picture was reduced from 256 to 128 pixels a side; details between were dropped.");
    EXPECT_EQ(set.notes()[1], "The picture has no transparent pixels: its glyphs keep its own background.");
    EXPECT_TRUE(set.notes()[2].starts_with("It is stored in ")) << set.notes()[2];
    const auto place = set.store("Many", "");
    ASSERT_TRUE(place);
    EXPECT_EQ(place.value(), 3);
    EXPECT_EQ(support::ShownSets(directory).back(), support::ShownSet("Many", *set.picture()));
}

TEST_F(NewSets, ALumpWaitsForItsPalette) {
    NewCharSet set = read(folder.put("conchars.lmp", Lump()));
    EXPECT_TRUE(set.takesPalette());
    EXPECT_FALSE(set.picture());
    EXPECT_EQ(set.facts(), "");
    EXPECT_EQ(
        set.objection("New", ""),
        "Its colors are those of the game's palette: choose gfx/palette.lmp, or the pak0.pak of the game.");
    const ui::Path text = folder.put("text.txt", "hello");
    const ui::Status refused = set.usePalette(text);
    ASSERT_FALSE(refused);
    EXPECT_EQ(
        refused.failure().message, "\"" + ui::PathText(text) +
                                       "\" cannot be used: it is neither a palette of 768 bytes nor a game's "
                                       "pak0.pak.");
    EXPECT_FALSE(set.picture());
    ASSERT_TRUE(set.usePalette(folder.put("palette.lmp", support::MakePalette())));
    ASSERT_TRUE(set.picture());
    EXPECT_EQ(set.picture()->pixel(127, 127), support::PaletteColour(16));
    EXPECT_TRUE(set.takesPalette()) << "another one can be chosen";
    EXPECT_EQ(set.objection("New", ""), "");
    ASSERT_TRUE(set.store("New", "https://example.org/new"));
    const auto record = glyphs::ReadCharSetRecord(disk, directory, 4);
    ASSERT_TRUE(record);
    EXPECT_EQ(glyphs::WebAddressText(record.value()), "https://example.org/new");
}

TEST_F(NewSets, WhatHoldsNoSetIsRefused) {
    const ui::Path text = folder.put("text.txt", "hello");
    EXPECT_EQ(
        refusal(text),
        "\"" + ui::PathText(text) +
            "\" cannot be used: it is neither a picture (PNG, GIF, PCX, BMP, TGA) nor a game's "
            "character set (conchars, gfx.wad, pak0.pak).");
    EXPECT_EQ(
        refusal(folder / "missing.png"),
        "\"" + ui::PathText(folder / "missing.png") + "\" cannot be used: No such file or directory.");
    directory.files.put("vtmtc.dat", MakeSets(3).list + "rest");
    EXPECT_EQ(
        refusal(picture()), "The character-set list \"" + ui::PathText(directory.files / "vtmtc.dat") +
                                "\" is damaged: its last record is cut off.");
}

TEST_F(NewSets, NamesAreSuggestedThatTellOneSetFromAnother) {
    EXPECT_EQ(suggested("my glyphs.png"), "my glyphs");
    EXPECT_EQ(suggested("id1/pak0.pak"), "id1");
    EXPECT_EQ(suggested("mod/pics/conchars.pcx.png"), "conchars.pcx") << "its stem is no common name";
    EXPECT_EQ(suggested("mod/pics/conchars.png"), "mod");
    EXPECT_EQ(suggested("rogue/GFX/Charset.png"), "rogue");
    EXPECT_EQ(suggested("pakistan.png"), "pakistan");
    EXPECT_EQ(suggested("b.png"), "b 2") << "there is a B already";
    EXPECT_EQ(suggested("12.png"), "12 2") << "a number stands for a place";
    EXPECT_EQ(suggested(std::string(60, 'x') + ".png"), "New set");
    EXPECT_EQ(suggested("\xE2\x82\xAC.png"), "New set");
    ASSERT_TRUE(read(picture()).store("New set", ""));
    EXPECT_EQ(suggested("\xE2\x82\xAC.png"), "New set 2");
}

TEST_F(NewSets, WordsAreObjectedToInSentences) {
    const NewCharSet set = read(picture());
    EXPECT_EQ(set.objection("", ""), "The name is empty, or begins or ends with a blank.");
    EXPECT_EQ(set.objection("a", ""), "There is a character set \"A\" already.");
    EXPECT_EQ(set.objection("7", ""), "The name is a number, which stands for a set by its place.");
    EXPECT_EQ(
        set.objection("New", "example.org"),
        "The web address must start with http:// or https:// and hold no blanks.");
}

TEST_F(NewSets, NothingIsStoredOfWhatCannotBeWritten) {
    const NewCharSet set = read(picture());
    files.failOnce(support::FailingFiles::Step::Write);
    const auto place = set.store("New", "");
    ASSERT_FALSE(place);
    EXPECT_NE(place.failure().message.find("injected failure"), std::string::npos) << place.failure().message;
    EXPECT_EQ(support::ShownSets(directory).size(), 3U);
    // Another program may have taken the name meanwhile.
    ASSERT_TRUE(read(picture()).store("New", ""));
    EXPECT_EQ(
        set.store("New", "").failure().message,
        "Nothing was added: there is a character set \"New\" already.");
    EXPECT_EQ(support::ShownSets(directory).size(), 4U);
}
