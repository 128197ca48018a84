// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/InstalledSets.h"
#include "glyphs/PngPicture.h"
#include "support/CharSetWorld.h"
#include "support/FailingFiles.h"

#include <gtest/gtest.h>

namespace {

using artwork::CharSetRecords;
using support::MakeSets;
using support::SmallArtwork;

class InstalledSets : public ::testing::Test {
protected:
    InstalledSets() {
        (void)directory.files.put("vtmtc.dat", MakeSets(3).list);
        (void)directory.files.put("vtmgrid.dat", MakeSets(3).store);
    }

    [[nodiscard]] artwork::CharSetFiles now() const {
        return {directory.files.content("vtmtc.dat"), directory.files.content("vtmgrid.dat")};
    }

    support::TempProgramDirectory directory;
    support::TempFolder folder;
    ui::DiskFiles disk;
    support::FailingFiles files{disk};
};

std::string Refusal(const std::string& name, const std::string& address = "") {
    const auto naming = artwork::NamingOf(name, address);
    return naming ? "" : naming.failure().message;
}

} // namespace

TEST_F(InstalledSets, OnlyTheProgramsOwnSetsAreShipped) {
    EXPECT_TRUE(artwork::IsShipped({.name = "Classic Stone"}));
    EXPECT_TRUE(artwork::IsShipped(glyphs::DecodeCharSetRecord(
        glyphs::EncodeCharSetRecord({.name = "Ember and Frost", .artworkSlot = 7}))));
    EXPECT_FALSE(artwork::IsShipped({.name = "Classic Stone 2"}));
    EXPECT_FALSE(artwork::IsShipped({.name = ""}));
}

TEST_F(InstalledSets, WordsOfASetAreLatin1ThatFits) {
    const auto naming = artwork::NamingOf("F\xC3\xBCnf", "https://example.org/5");
    ASSERT_TRUE(naming);
    EXPECT_EQ(naming.value().name, "F\xFCnf");
    EXPECT_EQ(naming.value().webAddress, "https://example.org/5");
    EXPECT_EQ(Refusal("7"), "the name is a number, which stands for a set by its place");
    EXPECT_EQ(Refusal(""), "the name is empty, or begins or ends with a blank");
    EXPECT_EQ(
        Refusal("x", "example.org"),
        "the web address must start with http:// or https:// and hold no blanks");
}

TEST_F(InstalledSets, NamesDifferInMoreThanCase) {
    const CharSetRecords records = artwork::RecordsOf(MakeSets(3).list);
    EXPECT_TRUE(artwork::CheckNameIsFree(records, "D"));
    const ui::Status taken = artwork::CheckNameIsFree(records, "b");
    ASSERT_FALSE(taken);
    EXPECT_EQ(taken.failure().message, "there is a character set \"B\" already");
}

TEST_F(InstalledSets, AFileOfIndexesLacksAPalette) {
    const std::string lump = support::MakeLump(128, [](int x, int) { return static_cast<unsigned>(x); });
    const ui::Path loose = folder.put("conchars.lmp", lump);
    const ui::Path wad = folder.put("gfx.wad", support::MakeWad({{"CONCHARS", lump}}));
    const ui::Path pack = folder.put(
        "pak0.pak", support::MakePack(
                        {{"gfx.wad", support::MakeWad({{"CONCHARS", lump}})},
                         {"gfx/palette.lmp", support::MakePalette()}}));
    const ui::Path picture = folder.put("set.png", glyphs::EncodePng(SmallArtwork(9)).value());
    EXPECT_TRUE(artwork::LacksPalette(loose));
    EXPECT_TRUE(artwork::LacksPalette(wad));
    EXPECT_FALSE(artwork::LacksPalette(pack)) << "it has its own";
    EXPECT_FALSE(artwork::LacksPalette(picture));
    EXPECT_FALSE(artwork::LacksPalette(folder.put("text.txt", "hello"))) << "it lacks more than that";
    EXPECT_FALSE(artwork::LacksPalette(folder / "missing"));
}

TEST_F(InstalledSets, ThePictureOfANewSetIsKnownBeforeItIsAdded) {
    const ui::Path file = folder.put("set.png", glyphs::EncodePng(SmallArtwork(9)).value());
    const auto drawn = artwork::ArtworkIn(file, std::nullopt);
    ASSERT_TRUE(drawn);
    const artwork::CharSetFiles before = now();
    const auto image = artwork::SlotImageFor(files, directory, file, drawn.value());
    ASSERT_TRUE(image);
    EXPECT_EQ(now(), before);
    const auto added =
        artwork::AddSet(files, directory, {.name = "D", .webAddress = ""}, file, drawn.value());
    ASSERT_TRUE(added);
    EXPECT_EQ(added.value().place, 3U);
    EXPECT_EQ(added.value().image.gif, image.value().gif);
    EXPECT_TRUE(std::string_view(now().store).substr(30000).starts_with(image.value().gif));
}

TEST_F(InstalledSets, WhatIsNotChosenIsNotRemoved) {
    const artwork::CharSetFiles before = now();
    const auto removed = artwork::RemoveSet(files, directory, [](const CharSetRecords& records) {
        EXPECT_EQ(records.size(), 3U);
        return ui::Result<std::size_t>(ui::Failure{"none of them"});
    });
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.failure().message, "none of them");
    EXPECT_EQ(now(), before);
}

TEST_F(InstalledSets, ARemovedSetTellsWhetherOthersMoved) {
    const auto remove = [this](std::size_t place) {
        return artwork::RemoveSet(
            files, directory, [place](const CharSetRecords&) { return ui::Result<std::size_t>(place); });
    };
    const auto second = remove(1);
    ASSERT_TRUE(second);
    EXPECT_EQ(second.value().name, "B");
    EXPECT_TRUE(second.value().othersMoved);
    const auto last = remove(1);
    ASSERT_TRUE(last);
    EXPECT_EQ(last.value().name, "C");
    EXPECT_FALSE(last.value().othersMoved);
    EXPECT_EQ(
        remove(0).failure().message, "\"A\" was not removed: it is the only one, and the program needs one.");
}
